#pragma once

#include <vector>

namespace fiscalon {

class Button;
class Control;

/// One field with what stands around it: a caption before it, a hint behind it. Any of the three may be missing.
struct Cell {
  Control* caption = nullptr;
  Control* field = nullptr;
  Control* hint = nullptr;
  /// Stands close behind the cell before it, such as the parts of a telephone number, and in no column of its own.
  bool isClose = false;
};

/// Cells side by side, such as the two ends of a period.
struct Row {
  std::vector<Cell> cells = {};
};

/// Rows beneath each other, with a heading or without. Groups of the same column stand beneath each other.
struct Group {
  Control* heading = nullptr;
  int column = 0;
  std::vector<Row> rows = {};
};

/// How a form is laid out, without a pixel: front ends turn it into their own layouts.
struct Layout {
  std::vector<Group> groups = {};
  std::vector<Button*> buttons = {};
};

}  // namespace fiscalon
