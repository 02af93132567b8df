#pragma once

#include <QGroupBox>
#include <QLabel>

#include "core/forms/label.h"
#include "frontends/qt/control_view.h"

namespace fiscalon::qt {

/// A label: the caption of a field, a hint, or a value that the form shows.
class LabelView final : public ControlView {
 public:
  LabelView(Label& label, QWidget& parent, WatchedActs& acts);

  void Refresh() override;
  void Restyle() override;

 private:
  ShownControl Content() const override;

  Label& label_;
  QLabel& native_;
};

/// A frame around other controls, with a heading or without.
class FrameView final : public ControlView {
 public:
  FrameView(Frame& frame, QWidget& parent, WatchedActs& acts);

  void Refresh() override;

 private:
  ShownControl Content() const override;

  Frame& frame_;
  QGroupBox& native_;
};

}  // namespace fiscalon::qt
