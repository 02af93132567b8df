#include "core/records/placed_fields.h"

#include <utility>

#include "core/records/field_values.h"
#include "core/records/record_reader.h"
#include "core/values/text.h"

namespace fiscalon {
namespace {

constexpr std::string_view kNoFieldNumber = "00";

bool IsUsedFieldNumber(std::string_view text) {
  return AreDigits(text) && text != kNoFieldNumber;
}

/// Finds the numbers whose minus signs account for the columns that a record has too many. A digit more or less can
/// belong to a number or to what stands behind it, so all places are tried until the rest falls into its columns.
class LongNumbers {
 public:
  LongNumbers(std::string_view record, std::span<const RecordField> layout) : record_(record), layout_(layout) {}

  bool Find() { return PlaceFrom(0, 0, ""); }
  PlacedFields Take() { return std::move(placed_); }

 private:
  /// No number has more digits than a free-format value has columns.
  static constexpr size_t kLongest = kValueWidth + 1;

  int Excess() const { return static_cast<int>(record_.size()) - layout_.back().to; }

  /// Places the row and all behind it, of which the first stands `shift` columns further right than in the table.
  bool PlaceFrom(size_t row, int shift, std::string_view lastNumber) {
    if (row == layout_.size())
      return shift == Excess();
    const RecordField field = layout_[row].Moved(shift);
    const std::string_view text = TextIn(record_, field);
    placed_.fields.push_back(field);
    const bool isNumber = field.name == "FieldNum" && IsUsedFieldNumber(text);
    if (IsInPlace(field, text, lastNumber) && PlaceFrom(row + 1, shift, isNumber ? text : lastNumber))
      return true;
    for (int longer = 1; shift + longer <= Excess() && field.Width() + static_cast<size_t>(longer) <= kLongest;
         ++longer) {
      RecordField number = field;
      number.to += longer;
      if (!IsLongNumber(number, longer))
        continue;
      placed_.fields.back() = number;
      placed_.overruns.push_back({Overrun::Kind::LongNumber, number, longer});
      if (PlaceFrom(row + 1, shift + longer, lastNumber))
        return true;
      placed_.overruns.pop_back();
    }
    placed_.fields.pop_back();
    return false;
  }

  /// Whether a text looks as if it stood in its own columns.
  static bool IsInPlace(const RecordField& field, std::string_view text, std::string_view lastNumber) {
    if (field.fill == Fill::Blank)
      return AreBlanks(text);
    if (field.name == "FieldNum")
      return AreBlanks(text) || text == kNoFieldNumber || (IsUsedFieldNumber(text) && text > lastNumber);
    if (field.name == "InvoiceDate")
      return AreBlanks(text) || AreDigits(TrimRight(text));
    if (field.name == "InvoiceAmount")
      return AreBlanks(text) || ((text.front() == ' ' || text.front() == '-') && AreDigits(text.substr(1)));
    return true;
  }

  /// Zeros stand in front of a number only as far as its columns go.
  bool IsLongNumber(const RecordField& number, int longer) const {
    const std::string_view text = TextIn(record_, number);
    if (number.fill != Fill::Given || number.name == "FieldNum" || !text.starts_with('-'))
      return false;
    const std::string_view digits = text.substr(1);
    return AreDigits(digits) && (longer == 1 || digits.front() != '0');
  }

  std::string_view record_;
  std::span<const RecordField> layout_;
  PlacedFields placed_;
};

/// The amount of joined details, the first row behind the slots.
constexpr const RecordField& JoinedAmount(size_t slots) {
  return kJoinedLayouts[slots - 1][RowBehindSlots(slots)];
}

/// How many slots stand in front of the body of a "G" record; 0 where there is none. Slots are numbered from 01 and the
/// cents of an amount never fill their columns, so two zeros where a slot's number would stand begin the body.
size_t SlotsBeforeDetails(std::string_view record) {
  if (KindOf(record) != RecordKind::FreeFormat || record.size() != kJoinedLength)
    return 0;
  for (size_t slots = 1; slots <= kJoinedLayouts.size(); ++slots) {
    if (!IsUsedFieldNumber(TextIn(record, kSlotNumbers[slots - 1])))
      return 0;
    const std::string_view text = TextIn(record, JoinedAmount(slots));
    if (text.starts_with(kNoFieldNumber) && AreDigits(text))
      return slots;
  }
  return 0;
}

PlacedFields JoinedFields(size_t slots) {
  const JoinedLayout& layout = kJoinedLayouts[slots - 1];
  const int from = JoinedAmount(slots).from;
  const int columns = static_cast<int>(kJoinedLength - kRecordLength);
  return {.fields = {layout.begin(), layout.end()},
          .overruns = {{.kind = Overrun::Kind::JoinedDetails,
                        .place = {.from = from, .to = from + columns - 1},
                        .shift = columns,
                        .slotCount = slots}}};
}

}  // namespace

PlacedFields PlaceFields(std::string_view record) {
  const std::span<const RecordField> layout = LayoutOf(KindOf(record));
  if (!layout.empty() && record.size() > kRecordLength) {
    if (const size_t slots = SlotsBeforeDetails(record); slots != 0)
      return JoinedFields(slots);
    if (LongNumbers numbers(record, layout); numbers.Find())
      return numbers.Take();
  }
  return {.fields = {layout.begin(), layout.end()}};
}

}  // namespace fiscalon
