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
  Label& label_;
  QLabel& native_;
};

/// A frame around other controls, with a heading or without.
class FrameView final : public ControlView {
 public:
  FrameView(Frame& frame, QWidget& parent, WatchedActs& acts);

  void Refresh() override;

 private:
  Frame& frame_;
  QGroupBox& native_;
};

/// In labels and frames an ampersand is one; Qt would take it for the mark of an access key.
QString AsShown(const QString& caption);
/// The other way round: the caption that is shown so.
QString AsCaption(QString shown);

}  // namespace fiscalon::qt
