#pragma once

#include "core/forms/button.h"
#include "frontends/win32/control_view.h"

namespace fiscalon::win32 {

/// What push buttons, check boxes and option buttons share: the window shows the press, the form clicks.
class AnyButtonView : public ControlView {
 public:
  bool MousePressed(UINT message, POINT place) override;
  void Refresh() override;
  LRESULT Message(UINT message, WPARAM wide, LPARAM extra) override;
  void Notified(int code) override;
  Answer ClickLater() override;

 protected:
  AnyButtonView(AnyButton& button, WatchedActs& acts) : ControlView(button, acts), button_(button) {}

  SIZE ExtentOfCaption(const DialogFonts& fonts) const;
  ShownControl Content() const override;

 private:
  void Clicked();

  AnyButton& button_;
  bool releasing_ = false;
};

class ButtonView final : public AnyButtonView {
 public:
  ButtonView(Button& button, WatchedActs& acts) : AnyButtonView(button, acts) {}

  SIZE Wanted(const DialogFonts& fonts) const override;
  LRESULT Message(UINT message, WPARAM wide, LPARAM extra) override;

 private:
  Design Designed() const override;
};

/// A check box or an option button.
class ToggleView final : public AnyButtonView {
 public:
  ToggleView(ToggleButton& toggle, WatchedActs& acts) : AnyButtonView(toggle, acts), toggle_(toggle) {}

  SIZE Wanted(const DialogFonts& fonts) const override;
  void Refresh() override;
  LRESULT Message(UINT message, WPARAM wide, LPARAM extra) override;
  POINT PointToPress() const override;

 private:
  Design Designed() const override;

  ToggleButton& toggle_;
};

}  // namespace fiscalon::win32
