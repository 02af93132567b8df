#pragma once

#include <exception>
#include <utility>

#include "core/forms/form.h"
#include "core/forms/scoped_value.h"

/// How handlers and acts run, for the sources of the runtime itself.
namespace fiscalon {

template <class Call>
void Form::Run(std::string_view object, std::string_view event, Call&& call) {
  Begins(object, event);
  if (observer_ != nullptr)
    observer_->HandlerRuns(object, event);
  {
    const ScopedValue depth(runningHandlers_, runningHandlers_ + 1);
    call();
  }
  if (runningHandlers_ == 0 && !runningPosted_)
    RunPosted();
}

template <class Call>
void Form::Fire(PassKey<Control> /*key*/, std::string_view control, std::string_view event, Call&& call) {
  Run(control, event, std::forward<Call>(call));
}

template <class Call>
void UserActs::Act(ActPart part, Call&& call) {
  // While a handler waits, in a message box for one, the user can't act on the form.
  if (!form_.IsUp() || acting_)
    return;
  const ScopedValue acting(acting_, true);
  editingFollows_ = false;
  characterFollows_ = false;
  if (part == ActPart::First) {
    queue_.BeginAct();
    focus_.ActBegins();
  }
  try {
    call();
    form_.RunPosted({});
  } catch (...) {
    form_.Fail({}, std::current_exception());
  }
  focus_.ActEnds();
}

}  // namespace fiscalon
