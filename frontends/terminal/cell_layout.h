#pragma once

#include <functional>
#include <map>
#include <utility>
#include <vector>

#include "core/forms/laid_out.h"
#include "frontends/terminal/screen.h"

namespace fiscalon::terminal {

/// Whether a field may take more room than usual for a long text.
enum class Grow { No, Yes };

/// Where the controls of a form stand, in cells, by the form's own layout: groups beneath each other in columns,
/// captions and fields of a column aligned through its groups, hints beside their fields. Where that is too wide,
/// columns stand beneath each other and captions are broken into lines; where it still is, each cell goes on the next
/// line.
class CellLayout {
 public:
  /// What a control takes where there is that much room.
  using WantedBy = std::function<Size(const Control& control, int room, Grow grow)>;

  CellLayout() = default;
  /// For a body of that width. Where the height does not do, groups move together.
  CellLayout(const std::vector<LaidOutGroup>& groups, const WantedBy& wantedBy, Size room);

  Size Extent() const { return extent_; }
  /// Of all controls that it was given: a window gives it no hidden ones.
  const std::map<const Control*, Rect>& Places() const { return places_; }

 private:
  using Column = std::vector<const LaidOutGroup*>;
  enum class Gaps { Wide, None };
  /// Of captions and of what stands behind them, by the place of the cell in its row.
  using GridWidths = std::map<std::pair<size_t, size_t>, std::pair<int, int>>;

  /// Where a row is too wide, captions of all rows give way to it. Or it does without the grid, if it has several
  /// cells. Or the groups, beside, are no longer aligned with each other.
  enum class Way { BreakCaptions, FlowWideRows, GroupsApart };

  void LayOutAsLowAsPossible(const std::vector<Column>& columns, int room, Gaps gaps);
  void LayOut(const std::vector<Column>& columns, int room, bool sideBySide, Gaps gaps);
  Size PlaceColumn(const Column& column, Point at, int room, Gaps gaps);
  Size PlaceGroup(const LaidOutGroup& group, Point at, int room, int captions);
  /// In a grid: false where that is too wide.
  bool FitsGrid(const LaidOutGroup& group, int room, int captions) const;
  bool FitsGrid(const LaidOutRow& row, int room, const GridWidths& widths) const;
  bool MayFlow(const LaidOutRow& row) const;
  GridWidths WidthsOf(const LaidOutGroup& group, int room, int captions) const;
  Size UsualOf(const Control& control, int room) const;
  int PlaceInGrid(const LaidOutGroup& group, Point at, int room, int captions);
  /// One row, whose fields may grow by so much.
  Size PlaceGridRow(const LaidOutRow& row, Point at, int room, const GridWidths& widths, int spare);
  int PlaceFlowing(const LaidOutGroup& group, Point at, int room);
  int PlaceFlowing(const LaidOutRow& row, Point at, int room);
  /// The widest caption of a group's first cells that has a field beside it.
  int CaptionWidth(const LaidOutGroup& group) const;
  /// That to which the captions of groups beneath each other are aligned.
  int CaptionWidth(const Column& groups, int room) const;
  void Place(const Control& control, Point at, Size size);

  WantedBy wantedBy_;
  Way way_ = Way::BreakCaptions;
  int rowsThatFlow_ = 0;
  std::map<const Control*, Rect> places_;
  Size extent_ = {};
};

}  // namespace fiscalon::terminal
