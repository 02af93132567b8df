#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <utility>

#include "core/forms/act_watcher.h"
#include "core/forms/form.h"
#include "core/forms/form_observer.h"
#include "core/forms/toolkit.h"
#include "frontends/played/user_driver.h"

namespace fiscalon {

/// A front end without a person: whoever drives it is called for each form, box, beep and help page. What is left to
/// each front end is to show forms and boxes.
class DrivenToolkit : public Toolkit, private FormObserver {
 public:
  /// A form is up. Returns when the form is closed, or leaves it up, which ends its show.
  std::function<void(Form& form, UserDriver& user)> onForm = {};
  /// A message box is up; its answer. Without one a box gets its default answer.
  std::function<MessageAnswer(const BoxRequest& box)> onMessage = {};
  std::function<void()> onBeep = {};                                        ///< a beep sounds
  std::function<void(std::string_view file, int32_t context)> onHelp = {};  ///< a help page opens
  /// A handler is about to run, such as "txtAmountPayable_Change".
  std::function<void(const std::string& handler)> onEvent = {};

  /// Who hears of all that the played user does; null for nobody. Not owned.
  void Watch(ActWatcher* watcher) { watcher_ = watcher; }

  void Opening(Form& form) final;
  void Beep() final;
  void OpenHelp(std::string_view file, int32_t context) final;

 protected:
  /// Who watches, or null.
  ActWatcher* Watcher() const { return watcher_; }

  /// Has the driver act on a form that is shown.
  void Drive(Form& form, UserDriver& user) const;
  /// The driver's answer to a box that is shown.
  MessageAnswer AnswerTo(const BoxRequest& shown) const;
  /// The watcher hears what a box was answered.
  MessageAnswer Answered(const BoxRequest& box, MessageAnswer answer) const;

  /// For front ends whose window observes the form in the toolkit's place.
  void HandlerRuns(std::string_view object, std::string_view event) final;

 private:
  /// Calls one of them, which may put another in its own place while it runs.
  template <typename Result, typename... Arguments, typename... Given>
  static Result Call(const std::function<Result(Arguments...)>& callback, Given&&... given) {
    const auto running = callback;
    return running(std::forward<Given>(given)...);
  }

  ActWatcher* watcher_ = nullptr;
};

}  // namespace fiscalon
