#pragma once

#include <vector>

#include "frontends/terminal/screen.h"
#include "frontends/terminal/window.h"

namespace fiscalon::terminal {

/// The windows that are up, the last one on top: what is on the screen, and who takes what the user does.
class Windows {
 public:
  /// A window among them, while it is.
  class Up {
   public:
    Up(Windows& windows, Window& window) : windows_(windows) { windows_.all_.push_back(&window); }
    ~Up() { windows_.all_.pop_back(); }
    Up(const Up&) = delete;
    Up& operator=(const Up&) = delete;

   private:
    Windows& windows_;
  };

  bool AreNone() const { return all_.empty(); }
  /// A screen that is too small says what is needed, and takes nothing.
  Screen Drawn(Size size) const;
  void Take(const Input& input, Size size) const;

 private:
  std::vector<Window*> all_;
};

}  // namespace fiscalon::terminal
