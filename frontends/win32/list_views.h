#pragma once

#include "core/forms/list_control.h"
#include "frontends/win32/control_view.h"

namespace fiscalon::win32 {

/// What drop-down lists and list boxes share.
class AnyListView : public ControlView {
 public:
  using ControlView::ControlView;

  /// The window of the rows, where a user can pick one: what has dropped down, or the list itself. Null while it is
  /// closed.
  virtual HWND Rows() const = 0;
};

/// A drop-down list. Arrow keys and letters are the form's while it is closed; an open one is Windows'.
class DropDownView final : public AnyListView {
 public:
  DropDownView(DropDownList& list, WatchedActs& acts) : AnyListView(list, acts), list_(list) {}

  SIZE Wanted(const DialogFonts& fonts) const override;
  void Restyle(const DialogFonts& fonts) override;
  void Refresh() override;
  bool KeepsKey(int keyCode, int shift) const override;
  bool MousePressed(UINT message, POINT place) override;
  // The wheel would change a choice that nobody looks at.
  bool TurnsByWheel() const override { return IsOpen(); }
  LRESULT Message(UINT message, WPARAM wide, LPARAM extra) override;
  void Notified(int code) override;
  HWND Rows() const override;

 private:
  Design Designed() const override;
  ShownControl Content() const override;
  /// With room for the rows, which drop down over what lies beneath.
  RECT RoomFor(const RECT& place, const DialogFonts& fonts) const override;
  FontKind Font() const override;
  bool IsOpen() const;

  DropDownList& list_;
  bool refreshing_ = false;
};

class ListBoxView final : public AnyListView {
 public:
  ListBoxView(ListBox& list, WatchedActs& acts) : AnyListView(list, acts), list_(list) {}

  SIZE Wanted(const DialogFonts& fonts) const override;
  void Refresh() override;
  bool MousePressed(UINT message, POINT place) override;
  bool MouseReleased(POINT place) override;
  bool TurnsByWheel() const override { return true; }
  void Notified(int code) override;
  HWND Rows() const override { return Window(); }

 private:
  Design Designed() const override;
  ShownControl Content() const override;
  FontKind Font() const override;
  int RowAt(POINT place);

  ListBox& list_;
  bool refreshing_ = false;
  int pressedRow_ = ListControl::kNothingSelected;
};

}  // namespace fiscalon::win32
