#pragma once

#include <vector>

namespace fiscalon {

class Button;
class Control;

/// One field with what stands around it: a caption before it, a hint behind it. Any of the three may be missing.
struct Cell {
  Control* caption = nullptr;  ///< before the field
  Control* field = nullptr;    ///< what the user fills in or reads
  Control* hint = nullptr;     ///< behind the field
  /// Stands close behind the cell before it, such as the parts of a telephone number, and in no column of its own.
  bool isClose = false;
};

/// Cells side by side, such as the two ends of a period.
struct Row {
  std::vector<Cell> cells = {};  ///< from left to right
};

/// Rows beneath each other, with a heading or without. Groups of the same column stand beneath each other.
struct Group {
  Control* heading = nullptr;  ///< a label or a frame; null for none
  int column = 0;              ///< counted from 0, from left to right
  std::vector<Row> rows = {};  ///< from top to bottom
};

/// How a form is laid out, without a pixel: front ends turn it into their own layouts.
struct Layout {
  std::vector<Group> groups = {};     ///< in the order of reading
  std::vector<Button*> buttons = {};  ///< below all groups, or beside them
};

}  // namespace fiscalon
