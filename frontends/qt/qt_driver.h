#pragma once

#include <QPoint>
#include <string>

#include "frontends/played/user_driver.h"

class QWidget;

namespace fiscalon::qt {

class FormDialog;

/// A played user at a Qt dialog: keys and mouse come through the window system's door as a person's do, and what is
/// read is read off the widgets.
class QtDriver final : public UserDriver {
 public:
  explicit QtDriver(FormDialog& dialog) : dialog_(dialog) {}

  void Type(char character) override;
  void PressKey(const KeyStroke& stroke) override;
  void PressMouse(Control& control) override;
  void Click(Control& control) override;
  void Choose(ListControl& list, int row) override;
  void Paste(std::string_view text) override;
  void CloseWindow(int reason) override;

  std::string Title() override;
  std::string FocusName() override;
  std::string Text(Control& control) override;
  std::string SelectedText(Control& control) override;
  bool Enabled(Control& control) override;
  bool Visible(Control& control) override;
  bool Checked(Control& control) override;
  bool Locked(Control& control) override;
  int Items(Control& control) override;

 private:
  /// Where a user would point at a control: within its window. False for a control that can't be seen.
  bool Point(const Control& control, QPoint& place) const;
  /// The mouse button goes down at a place and comes up at another.
  void PressAndRelease(const Control& control, QPoint down, QPoint up) const;
  void ChooseInPopup(QWidget& list, int row) const;

  FormDialog& dialog_;
};

}  // namespace fiscalon::qt
