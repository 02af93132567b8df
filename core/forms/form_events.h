#pragma once

#include <utility>

#include "core/forms/form.h"

/// How handlers run, for the sources of the runtime itself.
namespace fiscalon {

/// Sets a value for the time of a scope.
template <class T>
class ScopedValue {
 public:
  ScopedValue(T& variable, T value) : variable_(variable), before_(std::exchange(variable, value)) {}
  ~ScopedValue() { variable_ = before_; }
  ScopedValue(const ScopedValue&) = delete;
  ScopedValue& operator=(const ScopedValue&) = delete;

 private:
  T& variable_;
  T before_;
};

template <class Call>
void Form::Run(std::string_view object, std::string_view event, Call&& call) {
  if (observer_ != nullptr)
    observer_->HandlerRuns(object, event);
  {
    const ScopedValue depth(runningHandlers_, runningHandlers_ + 1);
    Begins(object, event);
    call();
  }
  if (runningHandlers_ == 0 && !runningPosted_)
    RunPosted();
}

template <class Call>
void Form::Act(ActPart part, Call&& call) {
  // While a handler waits, in a message box for one, the user can't act on the form.
  if (!IsUp() || acting_)
    return;
  const ScopedValue acting(acting_, true);
  editingFollows_ = false;
  if (part == ActPart::First)
    queue_.BeginAct();
  try {
    call();
    RunPosted();
  } catch (...) {
    Fail(std::current_exception());
  }
}

}  // namespace fiscalon
