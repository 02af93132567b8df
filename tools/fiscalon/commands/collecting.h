#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "core/session.h"
#include "frontends/played/front_end.h"
#include "frontends/played/session_recorder.h"
#include "tools/fiscalon/context.h"

namespace fiscalon {

/// A payment whose details a user is to be asked for. Texts are UTF-8.
struct PaymentToCollect {
  std::string code = {};
  /// What the host sets, in its order, by the names of its properties.
  std::vector<std::pair<std::string, std::string>> host = {};
  /// What shows the form; empty for the first that can.
  std::string toolkit = {};
  /// Where the session is written down as a scenario; empty for nowhere.
  std::string record = {};
};

/// One launch of a screen with a user at it, written down if that is wanted.
class Collecting {
 public:
  Collecting(const PaymentToCollect& payment, const Context& context) : payment_(payment), context_(context) {}
  ~Collecting();
  Collecting(const Collecting&) = delete;
  Collecting& operator=(const Collecting&) = delete;

  /// What the form is to be shown by. Where another program holds that, the command goes on there. Throws
  /// `CommandError` where there is none.
  static const FrontEnd& FrontEndFor(const std::string& toolkit, const Context& context);

  /// Has the form's front end and a fresh payment. Throws what stands in the way of showing forms.
  void Begin(const FrontEnd& frontEnd);
  /// Sets a property that nothing is wrong with. Raises what the property raises.
  void Set(std::string_view property, const std::string& value);
  /// Whether the user has accepted. Raises what the screen raises; the session is written down in any case.
  bool Show();

  /// The payment, once it has begun.
  const Levyra& Payment() const { return *session_; }

 private:
  std::string LocaleToRecord() const;
  void RecordResult(bool result);
  void WriteRecording() const;

  const PaymentToCollect& payment_;
  const Context& context_;
  SessionRecorder recorder_;
  std::unique_ptr<Toolkit> toolkit_;
  std::optional<Levyra> session_;
};

}  // namespace fiscalon
