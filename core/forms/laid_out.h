#pragma once

#include <set>
#include <string>
#include <vector>

#include "core/forms/form.h"

/// A form's layout as front ends show it, with what follows from it.
namespace fiscalon {

/// One field with what stands around it. Any of the controls may be missing.
struct LaidOutCell {
  Control* caption = nullptr;  ///< before the field
  Control* field = nullptr;    ///< what the user fills in or reads
  Control* hint = nullptr;     ///< behind the field
  /// Above a list: the caption alone in its row that heads the list's columns.
  Control* head = nullptr;
  /// Stands close behind the cell before it; never the first of a row.
  bool isClose = false;
  /// Caption and field stand out, such as those of a total.
  bool standsOut = false;
  /// What a program that reads the form aloud calls the field: the caption before it, the last one in its row, the
  /// heading of its group, or a list's head; where that would be the name of several fields, with what tells them
  /// apart: the first caption of the row, the heading or the hint, or else a number. Empty where the field has a
  /// caption of its own.
  std::string name = {};
  /// What such a program says beside, unless the name does: the hint, a list's head, or what stands before a field that
  /// has a caption of its own.
  std::string description = {};
};

/// Cells side by side.
using LaidOutRow = std::vector<LaidOutCell>;

/// Rows beneath each other. A heading that is no frame stands out.
struct LaidOutGroup {
  Control* heading = nullptr;  ///< a label or a frame; null for none
  /// The frame that the group stands in: its heading, or that of its heading or fields; null for none.
  const Frame* frame = nullptr;
  int column = 0;                     ///< counted from 0, from left to right
  std::vector<LaidOutRow> rows = {};  ///< from top to bottom
};

/// The groups of a form, with captions as they read now, in the language of the form. Controls that the layout forgets
/// stand in a group at the end. Throws `FormMisuse` for a frame within a frame.
std::vector<LaidOutGroup> LaidOut(const Form& form);

/// The controls that stand out: headings, and the fields of captions that do, such as totals.
std::set<const Control*> StandingOut(const Form& form);

/// What a program that reads the form aloud says of a field.
struct ToldField {
  const Control* field = nullptr;  ///< which one
  std::string name = {};           ///< as in `LaidOutCell`
  std::string description = {};    ///< the same; of the entry that keeps the focus in silence, the status
};
/// Those that a form has, in the order of its layout.
std::vector<ToldField> ToldFields(const Form& form);

/// What a form that is up says without a box, for a status line: which entry keeps the focus in silence. Empty mostly.
std::string StatusOf(const Form& form);

}  // namespace fiscalon
