#pragma once

#include <vector>

#include "core/forms/among.h"
#include "frontends/terminal/screen.h"
#include "frontends/terminal/window.h"

namespace fiscalon::terminal {

/// The windows that are up, the last one on top: what is on the screen, and who takes what the user does.
class Windows {
 public:
  /// A window among them, while it is.
  class Up : Among<Window> {
   public:
    Up(Windows& windows, Window& window) : Among(windows.all_, window) {}
  };

  /// The language of the topmost one.
  Language ShownIn() const { return all_.empty() ? Language() : all_.back()->ShownIn(); }
  /// A screen that is too small says what is needed, and takes nothing.
  Screen Drawn(Size size) const;
  void Take(const Input& input, Size size) const;

 private:
  std::vector<Window*> all_;
};

}  // namespace fiscalon::terminal
