#pragma once

#include <optional>
#include <string>

#include "frontends/played/user_driver.h"
#include "frontends/win32/windows_api.h"

namespace fiscalon::win32 {

class ControlView;
class FormWindow;

/// A played user at a form's window: keys and mouse are messages in the thread's queue as a person's are, and what is
/// read is asked of the controls.
class Win32Driver final : public UserDriver {
 public:
  explicit Win32Driver(FormWindow& window) : window_(window) {}

  void PressKey(const KeyStroke& stroke) override;
  void PressMouse(Control& control) override;
  void Click(Control& control) override;
  void Choose(ListControl& list, int row) override;
  void Paste(std::string_view text) override;
  void CloseWindow(CloseReason reason) override;

  std::string Title() override;
  std::string FocusName() override;
  ShownControl Shown(const Control& control) override;

  /// Deals with all messages that wait. Nothing is drawn: nobody looks.
  void ServeMessages();

 private:
  /// Another program may have come to the front meanwhile: a user goes back before anything else.
  void ComeToFront() const;
  /// The mouse button goes down at a place of the control, and comes up there or beside it.
  enum class Release { Within, Beside };
  void PressAndRelease(const ControlView& view, POINT place, Release release);
  /// Where a user would point at a control; nothing for one that can't be seen or does nothing.
  static std::optional<POINT> Point(const ControlView& view);
  void PickIn(HWND rows, const ControlView& view, int row);

  FormWindow& window_;
};

}  // namespace fiscalon::win32
