#pragma once

#include <algorithm>
#include <string>
#include <vector>

#include "core/forms/button.h"
#include "core/forms/form.h"
#include "core/forms/label.h"
#include "core/forms/laid_out.h"
#include "core/forms/list_control.h"
#include "core/forms/text_field.h"

namespace fiscalon {

/// What whoever has a form read aloud must be told of one of its controls. Texts are in the code page.
struct ToldControl {
  const Control* control = nullptr;
  std::string name = {};
  std::string description = {};
  /// The caption or list's head that stands for it; null for none.
  const Control* label = nullptr;
};

/// Those of a form that is up, as its layout has them. A frame without a place is nothing that anybody is told of, and
/// neither is a label without words.
inline std::vector<ToldControl> ToldControls(const Form& form) {
  std::vector<ToldControl> told;
  const auto tell = [&told](const Control* control, const LaidOutCell& cell = {}) {
    const auto* captioned = dynamic_cast<const Captioned*>(control);
    ToldControl row = {.control = control,
                       .name = cell.name.empty() && captioned != nullptr ? captioned->PlainCaption() : cell.name,
                       .description = cell.description,
                       .label = cell.caption != nullptr ? cell.caption : cell.head};
    if (control->Kind() != ControlKind::Label || !row.name.empty())
      told.push_back(std::move(row));
  };
  for (const LaidOutGroup& group : LaidOut(form)) {
    const bool isNew = std::none_of(told.begin(), told.end(), [&](const ToldControl& row) {
      return row.control == group.frame || row.control == group.heading;
    });
    if (isNew && group.frame != nullptr)
      tell(group.frame);
    if (group.heading != nullptr && group.heading->Kind() != ControlKind::Frame)
      tell(group.heading);
    for (const LaidOutRow& row : group.rows)
      for (const LaidOutCell& cell : row) {
        if (cell.caption != nullptr)
          tell(cell.caption);
        if (cell.field != nullptr)
          tell(cell.field, cell);
        if (cell.hint != nullptr)
          tell(cell.hint);
      }
  }
  for (const Button* button : form.FormLayout().buttons) tell(button);
  return told;
}

}  // namespace fiscalon
