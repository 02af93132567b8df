#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <iterator>
#include <utility>

#include "validation/quick_rules.h"
#include "validation/stencil.h"
#include "validation/usual_form.h"

/// The quick tests of payments as screens write them, compiled for the very rules of a screen: all their lines in one
/// look, and then the numbers in them.
namespace fiscalon {

/// How the lines of a usual payment lie: a "T" record, and behind it "F" records with the rows in their order. Slots
/// that are left over hold zeros.
template <const auto& kFields, LineFrame kFrame>
struct UsualLines {
  static constexpr size_t kFreeFormats = (std::size(kFields) + kSlotsPerRecord - 1) / kSlotsPerRecord;
  static constexpr size_t kCount = 1 + kFreeFormats;
  static constexpr RecordField kKind = FieldNamed(kRecordHead, "Kind");

  static constexpr size_t Record(size_t line) { return line * kFrame.LineLength() + kFrame.quotes; }
  static constexpr size_t Slot(size_t row) {
    return Record(1 + row / kSlotsPerRecord) + row % kSlotsPerRecord * kSlotWidth;
  }

  static constexpr auto MakeStencil() {
    Stencil<kCount * kFrame.LineLength()> stencil;
    for (size_t line = 0; line < kCount; ++line) {
      const char kind = static_cast<char>(line == 0 ? RecordKind::Government : RecordKind::FreeFormat);
      stencil.Put(Record(line) - kFrame.quotes, kFrame.Front());
      stencil.Put(Record(line), kRecordMark);
      stencil.Put(Record(line) + kSequenceField.Offset(), kZeros.substr(0, kSequenceField.Width()),
                  kNines.substr(0, kSequenceField.Width()));
      stencil.Put(Record(line) + kKind.Offset(), {&kind, 1});
      stencil.Put(Record(line) + kRecordLength, kFrame.Back());
    }
    for (size_t row = 0; row < kFreeFormats * kSlotsPerRecord; ++row) {
      const char number[] = {static_cast<char>('0' + (row + 1) / 10), static_cast<char>('0' + (row + 1) % 10)};
      stencil.Put(Slot(row) + kNumberOffset, {number, sizeof number});
      if (row < std::size(kFields))
        stencil.Put(Slot(row) + kValueOffset, kFields[row].tests.Quick().lowest, kFields[row].tests.Quick().highest);
      else
        stencil.Put(Slot(row) + kValueOffset, kZeros);
    }
    return stencil;
  }
  static constexpr auto kStencil = MakeStencil();

  /// Whether all lines have one sequence number.
  static bool AreOnePayment(const char* lines) {
    const char* const first = lines + Record(0) + kSequenceField.Offset();
    for (size_t line = 1; line < kCount; ++line)
      if (std::memcmp(first, first + line * kFrame.LineLength(), kSequenceField.Width()) != 0)
        return false;
    return true;
  }
};

/// The amount that a usual payment is good for: the one that its own fields tell, where totals are read back as they
/// are written.
template <const auto& kFields, Periods kPeriods, Total kTotal, LineFrame kFrame, size_t... kRow>
inline uint64_t UsualAmount(const char* lines, const JudgingDay& day, std::index_sequence<kRow...>) {
  using Lines = UsualLines<kFields, kFrame>;
  static_assert(kTotal == Total::Ignored || !(kFields[kRow].tests.Quick().tellsPayment || ...),
                "a field or the total tells it");
  static_assert(((kFields[kRow].addend == kNoAddend || kFields[kRow].onlyForBiller.empty()) && ...),
                "it is one amount, whoever is paid");
  if (!Fits<Lines::kStencil>(lines) || !Lines::AreOnePayment(lines))
    return kNoCents;
  if (kPeriods == Periods::Tested && !IsQuickPeriod(lines + Lines::Record(0) + kPeriodOffset, day))
    return kNoCents;
  const auto value = [&](size_t row) { return lines + Lines::Slot(row) + kValueOffset; };
  Expectation expected{.day = &day};
  const auto hear = [&](const FieldRule& rule, size_t row) {
    if (rule.tests.Quick().tellsPayment)
      expected.paymentCents = NumberOfDigits(value(row));
  };
  (hear(kFields[kRow], kRow), ...);
  QuickTotal total;
  if (!(NumberPassesQuickly<kFields, kRow>(value(kRow), expected, total) && ...))
    return kNoCents;
  if (kTotal == Total::Ignored)
    return expected.paymentCents;
  return total.IsExact() ? total.Sum() : kNoCents;
}

/// Takes usual payments of the rules under that frame.
template <const auto& kFields, Periods kPeriods, Total kTotal, LineFrame kFrame>
[[gnu::flatten]] const char* TakeUsual(const char* at, const char* end, const RuleSet& rules,
                                       const JudgingDay& judgingDay, BlockEnd& blockEnd) {
  using Lines = UsualLines<kFields, kFrame>;
  constexpr size_t kLength = Lines::kStencil.Length();
  constexpr auto kRows = std::make_index_sequence<std::size(kFields)>();
  if (kTotal == Total::EqualsPayment && !QuickTotal::IsReadBackAsWritten())
    return at;
  // Both are kept at hand, since for all the compiler knows they could change with whatever is written.
  const JudgingDay day = judgingDay;
  BlockEnd block = blockEnd;
  for (; static_cast<size_t>(end - at) >= kLength; at += kLength) {
    FetchAhead<kLength>(at);
    const uint64_t cents = UsualAmount<kFields, kPeriods, kTotal, kFrame>(at, day, kRows);
    const uint32_t sequence = LoadSequence(at + Lines::Record(0));
    if (cents == kNoCents || sequence == block.sequence)
      break;
    *block.start++ = {.line = block.lineCount, .sequence = sequence, .goodFor = {&rules, cents}};
    block.sequence = sequence;
    block.lineCount += Lines::kCount;
    for (size_t line = 0; line < Lines::kCount; ++line) *block.line++ = {at + Lines::Record(line), kRecordLength};
  }
  blockEnd = block;
  return at;
}

}  // namespace fiscalon
