#pragma once

#include <QPoint>
#include <string>

#include "frontends/played/user_driver.h"

class QAbstractItemView;

namespace fiscalon::qt {

class ControlView;
class FormDialog;

/// A played user at a Qt dialog: keys and mouse come through the window system's door as a person's do, and what is
/// read is read off the widgets.
class QtDriver final : public UserDriver {
 public:
  explicit QtDriver(FormDialog& dialog) : dialog_(dialog) {}

  void PressKey(const KeyStroke& stroke) override;
  void PressMouse(Control& control) override;
  void Click(Control& control) override;
  void Choose(ListControl& list, int row) override;
  void Paste(std::string_view text) override;
  void CloseWindow(CloseReason reason) override;

  std::string Title() override;
  std::string FocusName() override;
  ShownControl Shown(const Control& control) override;

 private:
  /// Where a user would point at a control: within its window. False for a control that can't be seen.
  bool Point(const ControlView& view, QPoint& place) const;
  /// The mouse button goes down at a place and comes up at another.
  void PressAndRelease(ControlView& view, QPoint down, QPoint up) const;
  void PickIn(QAbstractItemView& rows, int row) const;

  FormDialog& dialog_;
};

}  // namespace fiscalon::qt
