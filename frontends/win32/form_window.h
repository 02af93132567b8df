#pragma once

#include <deque>
#include <exception>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string_view>
#include <vector>

#include "core/forms/form.h"
#include "core/forms/watched_acts.h"
#include "frontends/win32/control_view.h"
#include "frontends/win32/hints.h"
#include "frontends/win32/screen_scale.h"
#include "frontends/win32/status_line.h"

namespace fiscalon::win32 {

/// A form as a modal window, made from its controls and its layout alone. Keys, mouse and focus go to the form first,
/// whether their messages were posted or sent; text editing stays native. No exception crosses Windows: acts on a form
/// do not throw, and what the window itself throws, such as that it is gone, ends the form.
class FormWindow final : private FormObserver, private AccessibleSource {
 public:
  /// The form must be up. It is observed until the window goes. The owner, null for none, is disabled as long. The
  /// watcher, if any, hears of all acts. `dotsPerInch` 0: those of the owner's screen. Throws `std::system_error` where
  /// no window can be made.
  FormWindow(Form& form, HWND owner, ActWatcher* watcher = nullptr, int dotsPerInch = 0);
  ~FormWindow();
  FormWindow(const FormWindow&) = delete;
  FormWindow& operator=(const FormWindow&) = delete;

  /// Shows the window and makes it the active one.
  void Present();
  /// Serves the user until the form is no longer up, or the host's message queue ends.
  void Serve();
  /// Ends the form with the exception that is being handled, for `Rethrow` to throw behind Windows.
  void HasFailed();
  void Rethrow() const;
  /// Deals with a message of the thread's queue, perhaps another window's.
  void Dispatch(const MSG& message);
  /// Brings windows in line with what handlers have changed, in the middle of one too.
  void Settle();

  /// The language of the form.
  const Language& ShownIn() const { return form_.ShownIn(); }
  HWND Window() const { return window_; }
  const DialogFonts& Fonts() const { return *fonts_; }
  ControlView& ViewOf(const Control& control) const { return *views_.at(&control); }
  /// The control of a window; null for a window that is none's.
  Control* ControlOf(HWND window) const;

  /// The window closes for a reason that windows do not tell, such as the end of the owner.
  void CloseFor(CloseReason reason);

  /// Does what an assistive program asks for, behind what was asked before, with the next message that finds the form
  /// at rest. False where it can't be asked: a handler runs, another window is in front, or the form is down.
  bool DoLater(std::function<void()> act);

  /// What is shown while the mouse rests over a control; empty for nothing.
  void SetHint(const ControlView& view, const std::wstring& text);

  /// A message to one of the controls.
  LRESULT Hear(ControlView& view, UINT message, WPARAM wide, LPARAM extra);

  /// Hears of each handler that is about to run, such as "txtAmountPayable", "Change".
  std::function<void(std::string_view object, std::string_view event)> onHandler = {};

 private:
  // FormObserver
  void ControlChanged(const Control& control) override;
  void FocusMoved(const Control& control, FocusBy by) override;
  void CaptionChanged() override;
  void ShowEnded() override;
  void HandlerRuns(std::string_view object, std::string_view event) override;

  // AccessibleSource
  ToldWindow Told() const override;
  std::vector<HWND> ToldWindows() const override;

  static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wide, LPARAM extra);
  LRESULT HearOwn(HWND window, UINT message, WPARAM wide, LPARAM extra);

  void MakeWindows(HWND owner);
  void MakeViews();
  /// The controls as a reader meets them: captions before their fields.
  std::vector<Control*> InReadingOrder() const;
  void LayOut();
  /// The status line below all, which is there from the first time that it says something.
  void ShowStatus();
  /// What assistive programs call the fields.
  void NameFields();
  /// What the status line takes of the height, where it is that wide.
  int RoomOfStatus(int width);
  void FitWindow(SIZE client);
  void PlaceControls(const std::map<const Control*, RECT>& places, POINT corner);
  void PlaceLines(const std::vector<RECT>& lines);
  void Rescale(int dotsPerInch);
  void ScrollTo(int place);
  void ScrollBy(WORD request);
  void ShowWhole(HWND control);

  /// Whether a key that comes to a control is the form's. One that comes to a control without the focus brings it.
  bool GoesToForm(ControlView*& view);
  /// Whether a key is Windows' own, or the control's.
  bool IsForSystem(const ControlView* view, int keyCode) const;
  /// A key of the message loop, which makes its characters at once.
  void PressKey(ControlView* view, const MSG& message);
  std::vector<wchar_t> CharactersMadeBy(const MSG& message) const;
  void LetPass(const MSG& message);
  // A key and a character that were sent apart.
  void KeyWasSent(ControlView* view, int keyCode, LPARAM extra);
  void CharacterWasSent(ControlView* view, wchar_t unit, LPARAM extra);
  /// Whether a message is about a key and needs nothing more.
  bool HearKey(ControlView* view, UINT message, WPARAM wide, LPARAM extra);
  void FocusArrived(const ControlView& view);
  /// Whether a user could act on the form.
  bool IsAtRest() const;
  void DoWhatWasAsked();
  /// What was asked for while the form was not at rest is done now.
  void AskAgain();
  /// The focus is where the form has it, whatever Windows made of it meanwhile.
  void AlignFocus();

  Form& form_;
  WatchedActs acts_;
  const ScalingByMonitor scaling_;
  std::unique_ptr<DialogFonts> fonts_;
  HWND owner_ = nullptr;
  HWND window_ = nullptr;
  /// What scrolls where the screen is too low.
  HWND body_ = nullptr;
  std::map<const Control*, std::unique_ptr<ControlView>> views_;
  std::map<const Control*, RECT> places_;
  std::vector<HWND> lines_;
  Hints hints_;
  StatusLine status_;
  int heightOfStatus_ = 0;
  /// Its height and its distance to the buttons, as they are laid out.
  int roomOfStatus_ = 0;
  SIZE client_ = {};
  int scrolled_ = 0;
  bool layoutIsOld_ = false;
  std::exception_ptr failure_;
  AccessibleObject accessible_{*this};
  std::deque<std::function<void()>> asked_;
  bool movingFocus_ = false;
  bool letsPass_ = false;
  /// Of a key that was sent: its character comes by itself, or is none of the form's.
  enum class Follows { Nothing, ItsCharacter, Dropped };
  Follows follows_ = Follows::Nothing;
};

}  // namespace fiscalon::win32
