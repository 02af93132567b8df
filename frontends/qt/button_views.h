#pragma once

#include <QAbstractButton>

#include "core/forms/button.h"
#include "frontends/qt/control_view.h"

namespace fiscalon::qt {

/// What push buttons, check boxes and option buttons share: the widget shows the press, the form clicks.
class AnyButtonView : public ControlView {
 public:
  bool MousePressed(QMouseEvent& event) override;
  void ReleasedLate(QPoint globalPosition) override;
  void Refresh() override;

 protected:
  AnyButtonView(Captioned& button, QAbstractButton& native, WatchedActs& acts);

  QAbstractButton& Native() const { return native_; }
  ShownControl Content() const override;

 private:
  void Clicked();

  Captioned& button_;
  QAbstractButton& native_;
  bool interrupted_ = false;
};

class ButtonView final : public AnyButtonView {
 public:
  ButtonView(Button& button, QWidget& parent, WatchedActs& acts);
};

/// A check box or an option button.
class ToggleView final : public AnyButtonView {
 public:
  ToggleView(ToggleButton& toggle, QWidget& parent, WatchedActs& acts);

  void Refresh() override;
  QPoint PointToPress() const override;

 private:
  /// The state of the widget has changed.
  void Toggled();

  ToggleButton& toggle_;
  bool refreshing_ = false;
};

}  // namespace fiscalon::qt
