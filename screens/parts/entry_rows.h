#pragma once

#include <span>
#include <string_view>
#include <type_traits>

#include "core/resume_next.h"
#include "screens/parts/refusal.h"

/// The tests of an entry field as rows of data, in the order in which they are made:
///
///     constexpr AmountRow kTotalOnOk[] = {{amount::IsZero, "Payment enclosed cannot be 0."},
///                                         {amount::IsNoAmount},
///                                         {amount::ShowInCents}};
///
/// What only reads or rewrites the field is a row too, one that is never met. Rows with a text that is known at run
/// time alone are made for the one time that they are gone through.
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

/// The message of a row: a text of the catalogue, or a wording that outlives the row.
class RowMessage {
 public:
  constexpr RowMessage() = default;
  constexpr RowMessage(const char* text) : text_(text) {}
  constexpr RowMessage(std::string_view text) : text_(text) {}
  constexpr RowMessage(const Wording& composed) : composed_(&composed) {}

  Wording Words() const { return composed_ == nullptr ? Wording(text_) : *composed_; }

 private:
  std::string_view text_ = {};
  const Wording* composed_ = nullptr;
};

/// `Entry` is the field under test with what has been read of it: a `TestedAmount`, a `TestedDate`.
template <class Entry>
struct EntryRow {
  /// The test is a routine, never a null pointer: a row without one does not compile.
  constexpr EntryRow(bool (&test)(Entry& entry), RowMessage text = {}, Reaction whereMet = Reaction::Focus,
                     MessageStyle box = MessageStyle::Critical)
      : isMet(test), message(text), reaction(whereMet), style(box) {}

  bool (*isMet)(Entry& entry);
  RowMessage message;
  Reaction reaction;
  MessageStyle style;
};

template <class Entry>
bool React(Entry& entry, const EntryRow<Entry>& row) {
  if (row.reaction == Reaction::Stops || row.reaction == Reaction::Passes)
    return row.reaction == Reaction::Passes;
  if (row.reaction == Reaction::Selects)
    entry.Field().SelectAll();
  if (const Wording message = row.message.Words(); !message.IsEmpty())
    Complain(entry.Field(), message, row.style);
  if (row.reaction == Reaction::Empties)
    entry.Field().Text("");
  Attempt(entry.Policy(), [&] { entry.Field().SetFocus(); });
  return false;
}

/// Goes through the rows until one is met. Whether the field passes: none is met, or one that passes it.
template <class Entry>
bool PassesRows(Entry entry, std::span<const EntryRow<std::type_identity_t<Entry>>> rows) {
  for (const EntryRow<Entry>& row : rows)
    if (row.isMet(entry))
      return React(entry, row);
  return true;
}

}  // namespace fiscalon
