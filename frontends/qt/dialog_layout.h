#pragma once

#include <QGridLayout>
#include <QVBoxLayout>
#include <functional>
#include <map>
#include <set>
#include <vector>

#include "core/forms/form.h"

namespace fiscalon {

/// Lays the widgets of a form out by the form's own layout: groups beneath each other in columns, captions and
/// fields of a column aligned through all its groups, hints beside their fields, buttons at the bottom.
class DialogLayout {
 public:
  using WidgetOf = std::function<QWidget&(const Control&)>;

  DialogLayout(const Form& form, WidgetOf widgetOf, QWidget& body);

  /// The row of buttons, to stand under the body.
  QLayout* Buttons();
  /// Gives the captions of a column one width. To be called again when fonts have changed.
  void AlignCaptions();

 private:
  /// A column of groups, and the framed box at its end where the next group may belong too.
  struct Column {
    QVBoxLayout* sections = nullptr;
    const Control* frame = nullptr;
    QVBoxLayout* framed = nullptr;
    std::vector<QGridLayout*> grids = {};
  };

  void AddGroup(Column& column, const Group& group);
  QVBoxLayout* PlaceFor(Column& column, const Group& group);
  static void AlignCaptions(const Column& column);
  void AddRow(QGridLayout& grid, int rowNumber, const Row& row);
  QLayout* FieldWithHint(const Cell& cell);
  /// Controls that the layout forgets are shown all the same, at the end.
  Group Forgotten() const;
  QWidget& Place(const Control& control);

  const Form& form_;
  WidgetOf widgetOf_;
  std::set<const Control*> placed_;
  std::map<int, Column> columns_;
};

/// The frame that a group stands in: its heading, or the frame of its heading or fields; null for none.
const Control* FrameOf(const Group& group);

}  // namespace fiscalon
