#pragma once

#include "core/forms/label.h"
#include "frontends/terminal/control_view.h"

namespace fiscalon::terminal {

/// A label: the caption of a field, a hint, or a value that the form shows.
class LabelView final : public ControlView {
 public:
  LabelView(Label& label, WatchedActs& acts) : ControlView(label, acts), label_(label) {}

  /// With a blank behind it, which an empty one has too.
  Size Wanted(int room, Grow grow) const override;
  void Draw(Screen& screen, const Rect& place, Focused focused) override;
  ShownControl Read(const Screen& seen, const Rect& place) const override;

 private:
  Label& label_;
};

/// The box around a group, with its heading in the upper edge.
class FrameView final : public ControlView {
 public:
  FrameView(Frame& frame, WatchedActs& acts) : ControlView(frame, acts), frame_(frame) {}

  Size Wanted(int room, Grow grow) const override;
  void Draw(Screen& screen, const Rect& place, Focused focused) override;
  ShownControl Read(const Screen& seen, const Rect& place) const override;

 private:
  Frame& frame_;
};

}  // namespace fiscalon::terminal
