#pragma once

#include <functional>
#include <memory>

#include "core/forms/control.h"
#include "core/forms/shown_control.h"
#include "core/forms/user_acts.h"
#include "frontends/win32/accessible_window.h"
#include "frontends/win32/dialog_fonts.h"

namespace fiscalon {
class WatchedActs;
}

namespace fiscalon::win32 {

class FormWindow;

/// One control of a form as a window: shows what the control holds, and makes acts of what the user does to it. The
/// form's window hears the control's messages first and asks the view.
class ControlView : public AccessibleSource {
 public:
  ControlView(Control& control, WatchedActs& acts) : control_(control), acts_(acts) {}
  ControlView(const ControlView&) = delete;
  ControlView& operator=(const ControlView&) = delete;
  virtual ~ControlView() = default;

  Control& Model() const { return control_; }
  HWND Window() const { return window_; }

  /// How much room the control takes. Needs no window.
  virtual SIZE Wanted(const DialogFonts& fonts) const = 0;
  /// Makes the window, which shows what the control holds with the next `Refresh`. Its messages come to the owner
  /// first.
  void Create(HWND parent, const RECT& place, const DialogFonts& fonts, FormWindow& owner);
  void Place(const RECT& place, const DialogFonts& fonts);
  /// Takes the font of another scale.
  virtual void Restyle(const DialogFonts& fonts);

  /// What a user sees of the control, read off the window.
  ShownControl Shown() const;
  /// Whether the window is there and enabled, without which it takes no mouse, key or value.
  bool IsUsable() const;
  /// Where a user points at the control.
  virtual POINT PointToPress() const;

  /// Brings the window in line with the control. The form must be up.
  virtual void Refresh();
  /// For headings, and for the field of a caption that stands out, such as a total. Before the window is made.
  void StandOut() { bold_ = true; }

  /// What assistive programs call the control where its caption does not say it, and what they say beside.
  void Name(std::wstring name, std::wstring description);
  std::optional<LRESULT> AnswerForObject(WPARAM wide, LPARAM extra) {
    return accessible_.AnswerTo(window_, wide, extra);
  }
  // AccessibleSource
  ToldWindow Told() const override;
  Answer FocusLater() override;

  /// The window's own procedure, which a view asks past itself: what is sent to its window comes to the view.
  LRESULT Native(UINT message, WPARAM wide, LPARAM extra) const;
  /// A message that is no key and no press.
  virtual LRESULT Message(UINT message, WPARAM wide, LPARAM extra);
  /// What the window tells its parent.
  virtual void Notified(int /*code*/) {}

  /// Keys that belong to the window alone, such as those that drop a list down.
  virtual bool KeepsKey(int /*keyCode*/, int /*shift*/) const { return false; }
  /// The native editing of a key that the form has let through.
  virtual void Edit(const KeyOutcome& /*outcome*/, const KeyStroke& /*stroke*/, LPARAM /*extra*/) {}

  /// A mouse button goes down or comes up. True: nothing is left for the window to do.
  virtual bool MousePressed(UINT message, POINT place);
  virtual bool MouseReleased(POINT /*place*/) { return false; }
  /// The wheel turns over the control. False: the form scrolls.
  virtual bool TurnsByWheel() const { return false; }

 protected:
  struct Design {
    const wchar_t* windowClass;
    DWORD style = 0;
    DWORD extendedStyle = 0;
  };
  virtual Design Designed() const = 0;
  /// The window is there.
  virtual void Made() {}
  /// What the window shows but for its being there and enabled.
  virtual ShownControl Content() const = 0;
  /// The room that the window must be given to be seen at its place.
  virtual RECT RoomFor(const RECT& place, const DialogFonts& /*fonts*/) const { return place; }
  virtual FontKind Font() const { return bold_ ? FontKind::Bold : FontKind::Plain; }

  WatchedActs& Acts() const { return acts_; }
  /// Once the window is made.
  FormWindow& Owner() const { return *owner_; }
  bool IsActive() const;
  /// Has the form do what an assistive program asks for, unless the window is hidden or disabled now or by then.
  HRESULT DoLater(std::function<void()> act);
  void ShowText(const std::wstring& text);
  /// What became of a press that the form has dealt with.
  enum class AfterPress {
    /// The focus is elsewhere: nothing more comes of it.
    Over,
    /// The window may go on with it.
    Goes,
    /// Another window was up meanwhile, and the button came up there.
    Interrupted,
  };
  AfterPress Press();

 private:
  static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wide, LPARAM extra);

  Control& control_;
  WatchedActs& acts_;
  FormWindow* owner_ = nullptr;
  HWND window_ = nullptr;
  WNDPROC native_ = nullptr;
  bool bold_ = false;
  std::wstring name_;
  std::wstring description_;
  AccessibleObject accessible_{*this};
};

std::unique_ptr<ControlView> MakeView(Control& control, WatchedActs& acts);

}  // namespace fiscalon::win32
