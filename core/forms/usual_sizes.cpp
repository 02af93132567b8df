#include "core/forms/usual_sizes.h"

#include <algorithm>

namespace fiscalon {
namespace {

enum class Shape { Line, Lines, Mark, Rows };

Shape ShapeOf(const Control& control) {
  switch (control.Kind()) {
    case ControlKind::TextField:
      return static_cast<const TextField&>(control).IsMultiLine() ? Shape::Lines : Shape::Line;
    case ControlKind::CheckBox:
    case ControlKind::OptionButton:
      return Shape::Mark;
    case ControlKind::ListBox:
      return Shape::Rows;
    case ControlKind::Label:
    case ControlKind::Frame:
    case ControlKind::Button:
    case ControlKind::DropDownList:
      break;
  }
  return Shape::Line;
}

}  // namespace

int CharactersOf(const TextField& field) {
  constexpr int kMost = 44;
  if (field.MaxLength() == FieldDesign::kNoLimit || field.IsMultiLine())
    return kCharactersOfText;
  const FieldDesign& design = field.Designed();
  const int least = design.alignment == Alignment::Right || design.locked ? kCharactersOfAmount : 0;
  return std::clamp(field.MaxLength() + 1, least, kMost);
}

bool GrowsWide(const Control& control) {
  return ShapeOf(control) == Shape::Rows;
}

bool IsTall(const Control& control) {
  return ShapeOf(control) == Shape::Rows || ShapeOf(control) == Shape::Lines;
}

bool BeginsAtLeft(const Control& control) {
  return ShapeOf(control) == Shape::Rows || ShapeOf(control) == Shape::Mark;
}

}  // namespace fiscalon
