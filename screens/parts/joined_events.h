#pragma once

#include <functional>
#include <utility>

#include "core/forms/control.h"

namespace fiscalon {

template <class... Args>
std::function<void(Args...)> Joined(std::function<void(Args...)> first, std::function<void(Args...)> second) {
  if (!first || !second)
    return first ? first : second;
  return [first = std::move(first), second = std::move(second)](Args... args) {
    first(args...);
    second(args...);
  };
}

/// The handlers of a form for one of its parts, and behind them those that the part has by itself.
inline FieldEvents Joined(FieldEvents own, FieldEvents parts) {
  return {.change = Joined(std::move(own.change), std::move(parts.change)),
          .keyDown = Joined(std::move(own.keyDown), std::move(parts.keyDown)),
          .keyPress = Joined(std::move(own.keyPress), std::move(parts.keyPress)),
          .lostFocus = Joined(std::move(own.lostFocus), std::move(parts.lostFocus)),
          .mouseDown = Joined(std::move(own.mouseDown), std::move(parts.mouseDown))};
}

}  // namespace fiscalon
