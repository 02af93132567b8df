#pragma once

#include <string>
#include <vector>

#include "core/module_state.h"
#include "core/resume_next.h"
#include "screens/parts/refusal.h"

/// The tests of an entry field as rows of data, in the order in which they are made:
///
///     {amount::IsZero, "Payment enclosed cannot be 0."},
///     {amount::IsNoAmount},
///     {amount::ShowInCents}
///
/// What only reads or rewrites the field is a row too, one that is never met.
namespace fiscalon {

/// What follows where the test of a row is met.
enum class Reaction {
  /// Refused: a box if the row has a message, and the focus goes to the field.
  Focus,
  /// Refused; the field is emptied behind the box.
  Empties,
  /// Refused; the whole text is selected before the box.
  Selects,
  /// Refused, and nothing more: the focus stays where it is.
  Stops,
  /// Passed: the rows that follow do not count.
  Passes
};

/// `Entry` is the field under test with what has been read of it: a `TestedAmount`, a `TestedDate`.
template <class Entry>
struct EntryRow {
  bool (*isMet)(Entry& entry) = nullptr;
  std::string message = {};
  Reaction reaction = Reaction::Focus;
  MessageStyle style = MessageStyle::Critical;
};

template <class Entry>
bool React(Entry& entry, const EntryRow<Entry>& row) {
  if (row.reaction == Reaction::Stops || row.reaction == Reaction::Passes)
    return row.reaction == Reaction::Passes;
  if (row.reaction == Reaction::Selects)
    entry.Field().SelectAll();
  if (!row.message.empty())
    ShowMessage(row.message, row.style);
  if (row.reaction == Reaction::Empties)
    entry.Field().Text("");
  Attempt(entry.Policy(), [&] { entry.Field().SetFocus(); });
  return false;
}

/// Goes through the rows until one is met. Whether the field passes: none is met, or one that passes it.
template <class Entry>
bool PassesRows(Entry entry, const std::vector<EntryRow<Entry>>& rows) {
  for (const EntryRow<Entry>& row : rows)
    if (row.isMet(entry))
      return React(entry, row);
  return true;
}

}  // namespace fiscalon
