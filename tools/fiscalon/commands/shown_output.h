#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "tools/fiscalon/context.h"
#include "tools/reading/shown_record.h"

namespace fiscalon {

/// How `show` prints.
enum class ShownAs { Text, Json, JsonLines };

/// What `show` prints to standard output, written as it goes.
class ShownOutput {
 public:
  ShownOutput();
  /// `name` is that of the file; `screen` may be null.
  static std::unique_ptr<ShownOutput> Of(ShownAs form, const std::string& name, const LaunchRow* screen,
                                         const Context& context);
  virtual ~ShownOutput() = default;

  void Begin() { AppendBeginning(text_); }
  void Add(const ShownRecord& record);
  /// A line of its own behind the records, where the form has room for it.
  void Say(const std::string& line) { AppendSaying(text_, line); }
  /// Whether only some of the lines were to be shown.
  enum class Picked { All, Some };
  void End(Picked picked);
  /// Lets out what was written so far, which ends with a whole record.
  void Flush();

  uint64_t Problems() const { return problems_; }

 protected:
  struct Counts {
    uint64_t lines = 0;
    uint64_t problems = 0;
    uint64_t oddities = 0;
    Picked picked = Picked::All;
  };

  virtual void AppendBeginning(std::string& text) = 0;
  virtual void AppendRecord(std::string& text, const ShownRecord& record, bool isFirst) = 0;
  virtual void AppendSaying(std::string& /*text*/, const std::string& /*line*/) {}
  virtual void AppendEnd(std::string& text, const Counts& counts) = 0;

 private:
  std::string text_;
  /// Where the records in it end.
  std::vector<size_t> ends_;
  /// What went out last.
  std::string sent_;
  std::vector<size_t> sentEnds_;
  uint64_t lines_ = 0;
  uint64_t problems_ = 0;
  uint64_t oddities_ = 0;
};

}  // namespace fiscalon
