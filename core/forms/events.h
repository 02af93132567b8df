#pragma once

#include <functional>

/// The handlers that a form has for a control's events: a control has the events of its kind and no others.
namespace fiscalon {

using Handler = std::function<void()>;
/// The character by reference: 0 drops it, another value replaces it.
using KeyPressHandler = std::function<void(int& character)>;
/// The key code by reference: 0 ends the key's way. The shift state as in keys.h.
using KeyDownHandler = std::function<void(int& keyCode, int shift)>;

// `Index` is nothing, or `int` for the members of a control array, whose handlers are told the member's index first.

template <class... Index>
struct FieldHandlers {
  std::function<void(Index... index)> change = {};
  std::function<void(Index... index, int& keyCode, int shift)> keyDown = {};
  std::function<void(Index... index, int& character)> keyPress = {};
  std::function<void(Index... index)> lostFocus = {};
  std::function<void(Index... index)> mouseDown = {};
};

template <class... Index>
struct ButtonHandlers {
  std::function<void(Index... index, int& keyCode, int shift)> keyDown = {};
  std::function<void(Index... index, int& character)> keyPress = {};
  std::function<void(Index... index)> lostFocus = {};
  std::function<void(Index... index)> mouseDown = {};
  std::function<void(Index... index)> click = {};
};

template <class... Index>
struct ListHandlers {
  std::function<void(Index... index, int& keyCode, int shift)> keyDown = {};
  std::function<void(Index... index, int& character)> keyPress = {};
  std::function<void(Index... index)> lostFocus = {};
  std::function<void(Index... index)> mouseDown = {};
  /// A row was picked, or another one was stepped to.
  std::function<void(Index... index)> click = {};
  /// A row was picked, after its click: with the mouse, or with Enter while the rows are dropped down.
  std::function<void(Index... index)> chosen = {};
};

/// Labels and frames.
struct NoEvents {};

using FieldEvents = FieldHandlers<>;
/// Push buttons, check boxes and option buttons.
using ButtonEvents = ButtonHandlers<>;
using ListEvents = ListHandlers<>;

/// The events that all controls with keyboard input have.
struct CommonEvents {
  KeyDownHandler keyDown = {};
  KeyPressHandler keyPress = {};
  Handler lostFocus = {};
  Handler mouseDown = {};

  template <class Events>
  static CommonEvents Of(const Events& events) {
    return {.keyDown = events.keyDown,
            .keyPress = events.keyPress,
            .lostFocus = events.lostFocus,
            .mouseDown = events.mouseDown};
  }
};

}  // namespace fiscalon
