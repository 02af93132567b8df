#pragma once

#include "core/forms/button.h"
#include "frontends/terminal/control_view.h"

namespace fiscalon::terminal {

/// A push button: [ OK ], or : OK : where it can't be pressed.
class ButtonView final : public ControlView {
 public:
  ButtonView(Button& button, WatchedActs& acts) : ControlView(button, acts), button_(button) {}

  Size Wanted(int room, Grow grow) const override;
  void Draw(Screen& screen, const Rect& place, Focused focused) override;
  Point CursorIn(const Rect& place) const override { return {place.x + 2, place.y}; }
  ShownControl Read(const Screen& seen, const Rect& place) const override;

 private:
  Button& button_;
};

/// A check box, [x] with its caption, or an option button, (o).
class ToggleView final : public ControlView {
 public:
  ToggleView(ToggleButton& toggle, WatchedActs& acts) : ControlView(toggle, acts), toggle_(toggle) {}

  Size Wanted(int room, Grow grow) const override;
  void Draw(Screen& screen, const Rect& place, Focused focused) override;
  ShownControl Read(const Screen& seen, const Rect& place) const override;

 private:
  ToggleButton& toggle_;
};

}  // namespace fiscalon::terminal
