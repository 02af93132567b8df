#pragma once

#include <optional>
#include <string>

#include "frontends/played/user_driver.h"
#include "frontends/win32/windows_api.h"

namespace fiscalon::win32 {

class FormWindow;

/// A played user at a form's window: keys and mouse are messages in the thread's queue as a person's are, and what is
/// read is asked of the controls.
class Win32Driver final : public UserDriver {
 public:
  explicit Win32Driver(FormWindow& window) : window_(window) {}

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

  /// Deals with all messages that wait. Nothing is drawn: nobody looks.
  void ServeMessages();

 private:
  HWND WindowOf(const Control& control) const;
  /// Another program may have come to the front meanwhile: a user goes back before anything else.
  void ComeToFront() const;
  /// The mouse button goes down at a place of the control, and comes up there or beside it.
  enum class Release { Within, Beside };
  void PressAndRelease(const Control& control, POINT place, Release release);
  /// Where a user would point at a control; nothing for one that can't be seen or does nothing.
  std::optional<POINT> Point(const Control& control) const;
  void PickDroppedDown(HWND dropDown, int row);

  FormWindow& window_;
};

}  // namespace fiscalon::win32
