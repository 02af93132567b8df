#pragma once

#include <string>
#include <vector>

#include "core/forms/list_control.h"
#include "frontends/terminal/control_view.h"

namespace fiscalon::terminal {

/// Rows in a box of a list: which of them are seen, and how they are drawn. The lower edge tells how many there are.
class ListRows {
 public:
  explicit ListRows(const ListControl& list) : list_(list) {}

  /// Scrolls as far as it takes to see a row.
  void Reveal(int row, int rowsSeen);
  void Scroll(int rows, int rowsSeen);
  void Draw(Screen& screen, const Rect& place, int marked, Style markedStyle, bool enabled) const;
  /// The row at a place in the box; `kNothingSelected` at its edges and behind the last row.
  int RowAt(Point at, const Rect& place) const;
  /// Where a row stands; nowhere if it is not seen.
  std::optional<Point> PlaceOf(int row, const Rect& place) const;

  /// The widest row.
  int Width() const;
  /// "3/12": which row is selected, and of how many.
  std::string Count(int marked) const;

 private:
  const ListControl& list_;
  int first_ = 0;
};

/// What both kinds of lists share.
class AnyListView : public ControlView {
 public:
  AnyListView(ListControl& list, WatchedActs& acts) : ControlView(list, acts), list_(list), rows_(list) {}

  /// Where the mouse would pick a row; nowhere if the row is not seen, or no row is.
  virtual std::optional<Point> PlaceOfRow(int row, const Rect& place) const = 0;

 protected:
  ListControl& List() const { return list_; }
  ListRows& Rows() { return rows_; }
  const ListRows& Rows() const { return rows_; }

 private:
  ListControl& list_;
  ListRows rows_;
};

/// A list that shows the selected row, and drops the others down over the form: [Alberta   1/3 v]. F4, Alt+Down or the
/// mouse open it; then Up, Down, Home and End go through the rows, Enter picks one, and Escape closes it.
class DropDownView final : public AnyListView {
 public:
  using AnyListView::AnyListView;

  Size Wanted(int room, Grow grow) const override;
  void Draw(Screen& screen, const Rect& place, Focused focused) override;
  Point CursorIn(const Rect& place) const override;
  bool TakesKey(const KeyStroke& stroke) override;
  void Press(Point at, const Rect& place) override;
  bool TurnWheel(int rows) override;
  void DrawOver(Screen& screen, const Rect& place) override;
  std::optional<Rect> Over() const override { return isOpen_ ? std::optional(box_) : std::nullopt; }
  void PressOver(Point at) override;
  void CloseOver() override { isOpen_ = false; }
  std::optional<Point> PlaceOfRow(int row, const Rect& place) const override;
  ShownControl Read(const Screen& seen, const Rect& place) const override;

 private:
  void Open();
  bool TakesKeyWhileOpen(int keyCode);
  void Pick(int row);

  bool isOpen_ = false;
  int marked_ = ListControl::kNothingSelected;
  Rect box_ = {};
};

/// A list in a box of its own, with ">" before the selected row.
class ListBoxView final : public AnyListView {
 public:
  using AnyListView::AnyListView;

  void TakeMoreRows(int rows) override { moreRows_ = rows; }
  Size Wanted(int room, Grow grow) const override;
  void Draw(Screen& screen, const Rect& place, Focused focused) override;
  Point CursorIn(const Rect& place) const override;
  void Press(Point at, const Rect& place) override;
  bool TurnWheel(int rows) override;
  std::optional<Point> PlaceOfRow(int row, const Rect& place) const override;
  ShownControl Read(const Screen& seen, const Rect& place) const override;

 private:
  int moreRows_ = 0;
  int rowsSeen_ = 0;
  /// The row that was selected when the list was drawn last: the wheel scrolls it away, and a step brings it back.
  int revealed_ = ListControl::kNothingSelected;
};

}  // namespace fiscalon::terminal
