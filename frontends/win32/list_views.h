#pragma once

#include <optional>
#include <string>
#include <vector>

#include "core/forms/list_control.h"
#include "frontends/win32/control_view.h"

namespace fiscalon::win32 {

/// The messages of a kind of list.
struct ListMessages {
  UINT count, length, text, selected;
  // Those that change it.
  UINT select, find, add, insert, remove, clear;
};

/// What drop-down lists and list boxes share.
class AnyListView : public ControlView {
 public:
  void Refresh() override;
  LRESULT Message(UINT message, WPARAM wide, LPARAM extra) override;
  /// The window of the rows, where a user can pick one: what has dropped down, or the list itself. Null while it is
  /// closed.
  virtual HWND Rows() const = 0;
  // AccessibleSource
  ToldWindow Told() const override;
  Answer EnterLater(const std::wstring& value) override;

 protected:
  AnyListView(ListControl& list, const ListMessages& messages, WatchedActs& acts)
      : ControlView(list, acts), list_(list), messages_(messages) {}

  ListControl& List() const { return list_; }
  bool Refreshing() const { return refreshing_; }
  /// The selected one; negative for none.
  int NativeRow() const;
  int RowCount() const;
  std::vector<std::wstring> NativeRows() const;
  /// Another program has changed the list past the mouse and the keyboard: a row that it selects is picked, rows are
  /// the form's.
  void ChangedByProgram();
  /// As an assistive program asks for it.
  HRESULT PickRowLater(size_t row);
  /// A row was picked past the mouse and the keyboard.
  virtual void Picked(int row);
  ShownControl Content() const override;
  FontKind Font() const override;

 private:
  ListControl& list_;
  const ListMessages& messages_;
  bool refreshing_ = false;
};

/// A drop-down list. Arrow keys and letters are the form's while it is closed; an open one is Windows'.
class DropDownView final : public AnyListView {
 public:
  DropDownView(DropDownList& list, WatchedActs& acts);

  SIZE Wanted(const DialogFonts& fonts) const override;
  void Restyle(const DialogFonts& fonts) override;
  bool KeepsKey(int keyCode, int shift) const override;
  bool MousePressed(UINT message, POINT place) override;
  // The wheel would change a choice that nobody looks at.
  bool TurnsByWheel() const override { return IsOpen(); }
  LRESULT Message(UINT message, WPARAM wide, LPARAM extra) override;
  void Notified(int code) override;
  HWND Rows() const override;

 private:
  Design Designed() const override;
  /// With room for the rows, which drop down over what lies beneath.
  RECT RoomFor(const RECT& place, const DialogFonts& fonts) const override;
  void Made() override;
  void Picked(int row) override;
  bool IsOpen() const;
  COMBOBOXINFO Info() const;
  /// Messages of the rows that drop down, which have a window of their own.
  static LRESULT CALLBACK RowsProcedure(HWND rows, UINT message, WPARAM wide, LPARAM extra);

  WNDPROC nativeRows_ = nullptr;
  /// The list is at a message of its own, and tells its rows what follows.
  bool busy_ = false;
};

class ListBoxView final : public AnyListView {
 public:
  ListBoxView(ListBox& list, WatchedActs& acts);

  SIZE Wanted(const DialogFonts& fonts) const override;
  bool MousePressed(UINT message, POINT place) override;
  bool MouseReleased(POINT place) override;
  bool TurnsByWheel() const override { return true; }
  void Notified(int code) override;
  HWND Rows() const override { return Window(); }
  // AccessibleSource
  std::optional<ToldRows> ToldOfRows() const override;
  std::optional<ToldWindow> ToldOfRow(int row) const override;
  Answer PickLater(int row) override { return PickRowLater(static_cast<size_t>(row)); }

 private:
  Design Designed() const override;
  int RowAt(POINT place);

  int pressedRow_ = ListControl::kNothingSelected;
};

}  // namespace fiscalon::win32
