#include "core/forms/control_array.h"

#include "core/forms/form.h"
#include "core/platform/runtime_error.h"

namespace fiscalon {
namespace {

template <class... Args>
std::function<void(Args...)> Bound(int index, const std::function<void(int, Args...)>& handler) {
  if (!handler)
    return {};
  return [index, handler](Args... args) { handler(index, std::forward<Args>(args)...); };
}

}  // namespace

FieldEvents EventsOf(int index, const FieldHandlers<int>& events) {
  return {.change = Bound(index, events.change),
          .keyDown = Bound(index, events.keyDown),
          .keyPress = Bound(index, events.keyPress),
          .lostFocus = Bound(index, events.lostFocus),
          .mouseDown = Bound(index, events.mouseDown)};
}

ButtonEvents EventsOf(int index, const ButtonHandlers<int>& events) {
  return {.keyDown = Bound(index, events.keyDown),
          .keyPress = Bound(index, events.keyPress),
          .lostFocus = Bound(index, events.lostFocus),
          .mouseDown = Bound(index, events.mouseDown),
          .click = Bound(index, events.click)};
}

ListEvents EventsOf(int index, const ListHandlers<int>& events) {
  return {.keyDown = Bound(index, events.keyDown),
          .keyPress = Bound(index, events.keyPress),
          .lostFocus = Bound(index, events.lostFocus),
          .mouseDown = Bound(index, events.mouseDown),
          .click = Bound(index, events.click),
          .chosen = Bound(index, events.chosen)};
}

void RaiseNoSuchMember(const Control& neighbour, const std::string& member) {
  throw RuntimeError(error_number::kSubscriptOutOfRange,
                     "Subscript out of range: " + neighbour.Owner().Name() + "." + member);
}

}  // namespace fiscalon
