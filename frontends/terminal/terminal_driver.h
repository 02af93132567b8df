#pragma once

#include <string>

#include "frontends/played/user_driver.h"
#include "frontends/terminal/screen.h"

namespace fiscalon {
class PlayedTerminalToolkit;
}

namespace fiscalon::terminal {

class ControlView;
class FormWindow;

/// A played user at a terminal: what it does are bytes, and what it reads is read off the cells of the screen. Where a
/// control stands it asks the window, as a user's eyes would find it.
class TerminalDriver final : public UserDriver {
 public:
  TerminalDriver(PlayedTerminalToolkit& toolkit, Form& form, FormWindow& window)
      : toolkit_(toolkit), form_(form), window_(window) {}

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
  /// The button goes down at a place and comes up at another.
  void PressAndRelease(Point down, Point up);
  void Turn(Point at, int rows);

  PlayedTerminalToolkit& toolkit_;
  Form& form_;
  FormWindow& window_;
};

}  // namespace fiscalon::terminal
