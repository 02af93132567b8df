#pragma once

#include <QComboBox>
#include <QListWidget>

#include "core/forms/list_control.h"
#include "frontends/qt/control_view.h"

namespace fiscalon::qt {

/// What drop-down lists and list boxes share.
class AnyListView : public ControlView {
 public:
  using ControlView::ControlView;

  /// The rows, where a user can pick one: those that have dropped down, or the list itself. Null while it is closed.
  virtual QAbstractItemView* Rows() const = 0;
};

/// A drop-down list. Arrow keys and letters are the form's; dropping down and picking by mouse are native.
class DropDownView final : public AnyListView {
 public:
  DropDownView(DropDownList& list, QWidget& parent, WatchedActs& acts);
  ~DropDownView() override;

  void Refresh() override;
  bool KeepsKey(const QKeyEvent& event) const override;
  bool MousePressed(QMouseEvent& event) override;
  // The wheel would change a choice that nobody looks at.
  bool WheelTurned() const override { return true; }
  void Restyle() override;
  QAbstractItemView* Rows() const override;

 private:
  ShownControl Content() const override;
  void Picked(int row);
  /// Other rows are marked among those that drop down.
  void RowsMarked();
  /// The marked row is the one that a user has come to or, in a closed list, the form's.
  void MarkRow();
  void Align();

  DropDownList& list_;
  QComboBox& native_;
  bool refreshing_ = false;
};

class ListBoxView final : public AnyListView {
 public:
  ListBoxView(ListBox& list, QWidget& parent, WatchedActs& acts);

  QWidget& MouseArea() const override { return *native_.viewport(); }
  void Refresh() override;
  void Restyle() override;
  bool MousePressed(QMouseEvent& event) override;
  bool MouseReleased(QMouseEvent& event) override;
  void ReleasedLate(QPoint globalPosition) override;
  QAbstractItemView* Rows() const override { return &native_; }

 private:
  ShownControl Content() const override;
  void ShowRow(int row);
  void RowSelected(int row);
  /// The button comes up over that row.
  void Released(int row);

  ListBox& list_;
  QListWidget& native_;
  bool refreshing_ = false;
  int pressedRow_ = ListControl::kNothingSelected;
  bool interrupted_ = false;
};

}  // namespace fiscalon::qt
