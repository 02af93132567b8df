#pragma once

#include <QGridLayout>
#include <QHBoxLayout>
#include <QVBoxLayout>
#include <functional>
#include <map>
#include <span>
#include <vector>

#include "core/forms/laid_out.h"

namespace fiscalon::qt {

/// Lays the widgets of a form out by the form's own layout: groups beneath each other in columns, captions and
/// fields of a column aligned through all its groups, hints beside their fields, buttons at the bottom.
class DialogLayout {
 public:
  using WidgetOf = std::function<QWidget&(const Control&)>;

  DialogLayout(const Form& form, WidgetOf widgetOf, QWidget& body);

  /// The row of buttons, to stand under the body.
  QLayout* Buttons();
  /// Gives the captions of a column one width: that of the widest that is shown. To be called when it is known what is
  /// shown, and again when something appears or fonts have changed.
  void AlignCaptions();

 private:
  /// A column of groups, and the framed box at its end where the next group may belong too.
  struct Column {
    QVBoxLayout* sections = nullptr;
    const Control* frame = nullptr;
    QVBoxLayout* framed = nullptr;
    std::vector<QGridLayout*> grids = {};
  };

  void AddGroup(Column& column, const LaidOutGroup& group);
  QVBoxLayout* PlaceFor(Column& column, const LaidOutGroup& group);
  static void AlignCaptions(const Column& column);
  /// How many cells of the grid the row takes.
  int AddRow(QGridLayout& grid, int rowNumber, const LaidOutRow& row);
  /// Of a cell and of those that stand close behind it.
  QLayout* FieldsWithHints(std::span<const LaidOutCell> cells);
  void AddFieldWithHint(QHBoxLayout& line, const LaidOutCell& cell);
  QWidget& Place(const Control& control);

  const Form& form_;
  WidgetOf widgetOf_;
  std::map<int, Column> columns_;
};

}  // namespace fiscalon::qt
