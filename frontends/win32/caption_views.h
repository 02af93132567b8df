#pragma once

#include "core/forms/label.h"
#include "frontends/win32/control_view.h"

namespace fiscalon::win32 {

/// A label: the caption of a field, a hint, or a value that the form shows.
class LabelView final : public ControlView {
 public:
  LabelView(Label& label, WatchedActs& acts);

  SIZE Wanted(const DialogFonts& fonts) const override;
  void Refresh() override;

 private:
  Design Designed() const override;
  ShownControl Content() const override;

  Label& label_;
};

/// A frame around other controls, with a heading or without.
class FrameView final : public ControlView {
 public:
  FrameView(Frame& frame, WatchedActs& acts) : ControlView(frame, acts), frame_(frame) {}

  /// Of the heading alone.
  SIZE Wanted(const DialogFonts& fonts) const override;
  void Refresh() override;

 private:
  Design Designed() const override;
  ShownControl Content() const override;

  Frame& frame_;
};

}  // namespace fiscalon::win32
