#pragma once

#include <string>

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

  Frame& frame_;
};

/// In frames an ampersand is one; Windows would take it for the mark of an access key.
std::wstring AsShown(std::wstring_view caption);
/// The other way round: the caption that is shown so.
std::wstring AsCaption(std::wstring_view shown);

}  // namespace fiscalon::win32
