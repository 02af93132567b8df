#include "frontends/played/driven_toolkit.h"

namespace fiscalon {

void DrivenToolkit::Opening(Form& form) {
  form.Observe(this);
}

void DrivenToolkit::Beep() {
  if (watcher_ != nullptr)
    watcher_->Beeped();
  if (onBeep)
    Call(onBeep);
}

void DrivenToolkit::OpenHelp(std::string_view file, int32_t context) {
  if (watcher_ != nullptr)
    watcher_->HelpOpened(file, context);
  if (onHelp)
    Call(onHelp, file, context);
}

void DrivenToolkit::Drive(Form& form, UserDriver& user) const {
  if (onForm)
    Call(onForm, form, user);
}

MessageAnswer DrivenToolkit::AnswerTo(const BoxRequest& shown) const {
  return onMessage ? Call(onMessage, shown) : shown.DefaultAnswer();
}

MessageAnswer DrivenToolkit::Answered(const BoxRequest& box, MessageAnswer answer) const {
  if (watcher_ != nullptr)
    watcher_->BoxAnswered(box, answer);
  return answer;
}

void DrivenToolkit::HandlerRuns(std::string_view object, std::string_view event) {
  if (onEvent)
    Call(onEvent, std::string(object).append("_").append(event));
}

}  // namespace fiscalon
