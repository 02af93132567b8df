#pragma once

#include <functional>

/// The handlers that a form has for a control's events: a control has the events of its kind and no others.
namespace fiscalon {

/// A member of the form that is told nothing.
using Handler = std::function<void()>;
/// The character by reference: 0 drops it, another value replaces it.
using KeyPressHandler = std::function<void(int& character)>;
/// The key code by reference: 0 ends the key's way. The shift state as in keys.h.
using KeyDownHandler = std::function<void(int& keyCode, int shift)>;

// `Index` is nothing, or `int` for the members of a control array, whose handlers are told the member's index first.

/// The events of text fields.
template <class... Index>
struct FieldHandlers {
  std::function<void(Index... index)> change = {};                            ///< the text has changed
  std::function<void(Index... index, int& keyCode, int shift)> keyDown = {};  ///< a key went down; 0 ends its way
  std::function<void(Index... index, int& character)> keyPress = {};          ///< a character comes; 0 drops it
  std::function<void(Index... index)> lostFocus = {};                         ///< the focus has gone elsewhere
  std::function<void(Index... index)> mouseDown = {};                         ///< the mouse went down on it
};

/// The events of push buttons, check boxes and option buttons.
template <class... Index>
struct ButtonHandlers {
  std::function<void(Index... index, int& keyCode, int shift)> keyDown = {};  ///< a key went down; 0 ends its way
  std::function<void(Index... index, int& character)> keyPress = {};          ///< a character comes; 0 drops it
  std::function<void(Index... index)> lostFocus = {};                         ///< the focus has gone elsewhere
  std::function<void(Index... index)> mouseDown = {};                         ///< the mouse went down on it
  std::function<void(Index... index)> click = {};                             ///< it was clicked, or its value changed
};

/// The events of lists.
template <class... Index>
struct ListHandlers {
  std::function<void(Index... index, int& keyCode, int shift)> keyDown = {};  ///< a key went down; 0 ends its way
  std::function<void(Index... index, int& character)> keyPress = {};          ///< a character comes; 0 drops it
  std::function<void(Index... index)> lostFocus = {};                         ///< the focus has gone elsewhere
  std::function<void(Index... index)> mouseDown = {};                         ///< the mouse went down on it
  /// A row was picked, or another one was stepped to.
  std::function<void(Index... index)> click = {};
  /// A row was picked, after its click: with the mouse, or with Enter while the rows are dropped down.
  std::function<void(Index... index)> chosen = {};
};

/// Labels and frames.
struct NoEvents {};

/// Text fields.
using FieldEvents = FieldHandlers<>;
/// Push buttons, check boxes and option buttons.
using ButtonEvents = ButtonHandlers<>;
/// Lists.
using ListEvents = ListHandlers<>;

/// The events that all controls with keyboard input have.
struct CommonEvents {
  KeyDownHandler keyDown = {};    ///< a key went down
  KeyPressHandler keyPress = {};  ///< a character comes
  Handler lostFocus = {};         ///< the focus has gone elsewhere
  Handler mouseDown = {};         ///< the mouse went down on it

  /// Those of the events of any kind.
  template <class Events>
  static CommonEvents Of(const Events& events) {
    return {.keyDown = events.keyDown,
            .keyPress = events.keyPress,
            .lostFocus = events.lostFocus,
            .mouseDown = events.mouseDown};
  }
};

}  // namespace fiscalon
