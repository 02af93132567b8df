#pragma once

#include <array>
#include <cstring>
#include <iterator>
#include <utility>

#include "core/records/record_reader.h"
#include "validation/payment_total.h"
#include "validation/quick_tests.h"
#include "validation/rule_sets.h"

/// The quick tests of whole payments, compiled for the very rules of a screen.
namespace fiscalon {

inline constexpr FieldRule kUnusedField = {.tests = {QuickUnused, {kUnused}}};

constexpr size_t IndexOf(const char* number) {
  return number[0] == '0' ? static_cast<size_t>(static_cast<unsigned char>(number[1])) - '1' : SIZE_MAX;
}

/// The slots of an "F" record: where the first ones stand, how far apart they are, and where the last ends.
inline constexpr size_t kNumberOffset = FieldNamed(kFreeFormatLayout, "FieldNum").Offset();
inline constexpr size_t kValueOffset = FieldNamed(kFreeFormatLayout, "FieldValue").Offset();
inline constexpr size_t kSlotWidth = FieldNamed(kFreeFormatLayout, "FieldNum", 1).Offset() - kNumberOffset;
inline constexpr size_t kSlotsEnd = kNumberOffset + kSlotsPerRecord * kSlotWidth;
inline constexpr size_t kPeriodOffset = FieldNamed(kGovernmentLayout, "PeriodDueDate").Offset();

template <const auto& kFields, size_t kAt>
inline constexpr const FieldRule& kRuleAt = kAt < std::size(kFields) ? kFields[kAt] : kUnusedField;

/// The second half of the quick test of a rule that is known when this is compiled, for a value that has its shape.
template <const auto& kFields, size_t kAt>
inline bool NumberPassesQuickly(const char* value, const Expectation& expected, QuickTotal& total) {
  constexpr const FieldRule& kRule = kRuleAt<kFields, kAt>;
  const uint64_t number = kRule.tests.Quick().number(value, expected);
  if constexpr (kRule.addend != kNoAddend)
    total.Keep(kRule.addend, number);
  return number != kNoDigits;
}

/// The quick test of a rule that is known when this is compiled.
template <const auto& kFields, size_t kAt>
inline bool FieldPassesQuickly(const char* value, const Expectation& expected, QuickTotal& total) {
  constexpr const FieldRule& kRule = kRuleAt<kFields, kAt>;
  if constexpr (!kRule.onlyForBiller.empty()) {
    if (kRule.onlyForBiller != expected.billerCode)
      return true;
  }
  return kRule.tests.Quick().HasShape(value) && NumberPassesQuickly<kFields, kAt>(value, expected, total);
}

/// The quick test of the rule of a field's number. A rule that is looked up in the table while the program runs costs a
/// call through a pointer for each field. So the row is sought by a comparison for each row, and each leads to the test
/// of its own row, put in place. `||` ends the search at the first row that fits; the comma lets that row's verdict out
/// of it without a part in the search.
template <const auto& kFields, size_t... kRow>
inline bool SlotPassesQuickly(size_t row, const char* value, const Expectation& expected, QuickTotal& total,
                              std::index_sequence<kRow...>) {
  bool passes = false;
  const bool found =
      ((row == kRow && (passes = FieldPassesQuickly<kFields, kRow>(value, expected, total), true)) || ...);
  return found ? passes : FieldPassesQuickly<kFields, std::size(kFields)>(value, expected, total);
}

/// The quick tests of an "F" record whose numbers stand in any order.
template <const auto& kFields>
bool AnySlotsPassQuickly(const char* record, const Expectation& expected, QuickTotal& total) {
  const char* const last = record + kSlotsPerRecord * kSlotWidth;
  for (const char* slot = record; slot != last; slot += kSlotWidth) {
    if (!SlotPassesQuickly<kFields>(IndexOf(slot + kNumberOffset), slot + kValueOffset, expected, total,
                                    std::make_index_sequence<std::size(kFields)>()))
      return false;
  }
  return true;
}

/// Whether a slot has the number of a row, from 0, as screens number their fields.
template <size_t kRow>
inline bool HasNumberOf(const char* slot) {
  static_assert(kRow < 9);
  constexpr char kNumber[] = {'0', static_cast<char>('1' + kRow)};
  return std::memcmp(slot + kNumberOffset, kNumber, sizeof kNumber) == 0;
}

/// The quick tests of an "F" record, which nearly always holds the rows from `kFirst` on, in their order. Then nothing
/// is sought: each slot goes to the test of its row.
template <const auto& kFields, size_t kFirst, size_t... kSlot>
inline bool SlotsPassQuickly(const char* record, const Expectation& expected, QuickTotal& total,
                             std::index_sequence<kSlot...>) {
  if ((HasNumberOf<kFirst + kSlot>(record + kSlot * kSlotWidth) && ...))
    return (FieldPassesQuickly<kFields, kFirst + kSlot>(record + kSlot * kSlotWidth + kValueOffset, expected, total) &&
            ...);
  return AnySlotsPassQuickly<kFields>(record, expected, total);
}

/// Whether a payment passes by quick tests alone. False says nothing.
template <const auto& kFields, Periods kPeriods, Total kTotal>
bool RecordsPassQuickly(std::span<const std::string_view> records, const Expectation& expected) {
  if (kTotal == Total::EqualsPayment && expected.logging == Logging::Entries)
    return false;
  QuickTotal total;
  size_t periods = 0;
  size_t fields = 0;
  for (const std::string_view record : records) {
    if (record.size() < kSlotsEnd)
      return false;
    const RecordKind kind = KindOf(record);
    if (kind == RecordKind::Government) {
      ++periods;
      if (kPeriods == Periods::Tested && !IsQuickPeriod(record.data() + kPeriodOffset, *expected.day))
        return false;
    } else if (kind == RecordKind::FreeFormat) {
      constexpr auto kSlots = std::make_index_sequence<kSlotsPerRecord>();
      const bool passes = fields++ == 0
                              ? SlotsPassQuickly<kFields, 0>(record.data(), expected, total, kSlots)
                              : SlotsPassQuickly<kFields, kSlotsPerRecord>(record.data(), expected, total, kSlots);
      if (!passes)
        return false;
    }
  }
  return fields > 0 && (kPeriods == Periods::Ignored || periods > 0) &&
         (kTotal == Total::Ignored || total.Equals(expected));
}

}  // namespace fiscalon
