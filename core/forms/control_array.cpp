#include "core/forms/control_array.h"

namespace fiscalon {
namespace {

template <class... Args>
std::function<void(Args...)> WithIndex(int index, const std::function<void(int, Args...)>& handler) {
  if (!handler)
    return {};
  return [index, handler](Args... args) { handler(index, std::forward<Args>(args)...); };
}

}  // namespace

Events ArrayEvents::Of(int index) const {
  return {.change = WithIndex(index, change),
          .keyDown = WithIndex(index, keyDown),
          .keyPress = WithIndex(index, keyPress),
          .lostFocus = WithIndex(index, lostFocus),
          .mouseDown = WithIndex(index, mouseDown),
          .click = WithIndex(index, click)};
}

}  // namespace fiscalon
