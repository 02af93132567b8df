#pragma once

#include "core/wording/language.h"
#include "frontends/terminal/key_decoder.h"
#include "frontends/terminal/screen.h"

namespace fiscalon::terminal {

/// What stands on the screen and takes what the user does: a form, or a box over it.
class Window {
 public:
  Window() = default;
  Window(const Window&) = delete;
  Window& operator=(const Window&) = delete;
  virtual ~Window() = default;

  virtual void Draw(Screen& screen) = 0;
  virtual void Take(const Input& input) = 0;
  /// The language of what it says.
  virtual const Language& ShownIn() const = 0;
};

/// The smallest screen on which there is a form to see.
constexpr Size kSmallestScreen = {.width = 40, .height = 12};

}  // namespace fiscalon::terminal
