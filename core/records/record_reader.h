#pragma once

#include <array>
#include <string_view>

#include "core/records/pc4_records.h"
#include "core/records/record_composer.h"
#include "core/records/record_layout.h"

/// Takes "T" and "F" records apart. Where a record ends before a field, the field is shorter or empty; all
/// fields keep their blanks.
namespace fiscalon {

using GovernmentFieldViews = BasicGovernmentFields<std::string_view>;
using FreeFormatSlotView = BasicFreeFormatSlot<std::string_view>;

/// The record's kind: what stands in column 8. NUL for a record of fewer than 8 characters.
constexpr RecordKind KindOf(std::string_view record) {
  const std::string_view kind = TextIn(record, FieldNamed(kRecordHead, "Kind"));
  return kind.empty() ? RecordKind{} : static_cast<RecordKind>(kind.front());
}

/// The fields as views into the record.
constexpr GovernmentFieldViews CutGovernmentFormat(std::string_view record) {
  return {.periodStartDate = TextIn(record, FieldNamed(kGovernmentLayout, "PeriodStartDate")),
          .periodEndDate = TextIn(record, FieldNamed(kGovernmentLayout, "PeriodEndDate")),
          .periodDueDate = TextIn(record, FieldNamed(kGovernmentLayout, "PeriodDueDate")),
          .filler1 = TextIn(record, FieldNamed(kGovernmentLayout, "Filler1")),
          .contactName = TextIn(record, FieldNamed(kGovernmentLayout, "ContactName")),
          .contactTitle = TextIn(record, FieldNamed(kGovernmentLayout, "ContactTitle")),
          .filler2 = TextIn(record, FieldNamed(kGovernmentLayout, "Filler2"))};
}

/// The field of that name in each of the slots.
consteval std::array<RecordField, kSlotsPerRecord> FieldOfSlots(std::string_view name) {
  std::array<RecordField, kSlotsPerRecord> fields{};
  for (size_t slot = 0; slot < fields.size(); ++slot) fields[slot] = FieldNamed(kFreeFormatLayout, name, slot);
  return fields;
}

inline constexpr auto kSlotNumbers = FieldOfSlots("FieldNum");
inline constexpr auto kSlotValues = FieldOfSlots("FieldValue");

/// The four slots as views into the record.
constexpr std::array<FreeFormatSlotView, kSlotsPerRecord> CutFreeFormat(std::string_view record) {
  std::array<FreeFormatSlotView, kSlotsPerRecord> slots{};
  for (size_t slot = 0; slot < slots.size(); ++slot)
    slots[slot] = {TextIn(record, kSlotNumbers[slot]), TextIn(record, kSlotValues[slot])};
  return slots;
}

/// Cuts every "T" and "F" record and appends its fields: one member for a "T", four for an "F", blank slots
/// too. Other kinds are skipped.
void CutRecords(const PC4s& records, clsPC4GovFormats& govFormats, clsPC4FreeFormats& freeFormats);

}  // namespace fiscalon
