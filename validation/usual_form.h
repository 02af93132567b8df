#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

#include "core/records/record_line.h"
#include "validation/expectation.h"

/// Payments as screens write them, as nearly all of a batch are: looked at as a whole, where their lines lie, before it
/// is known what their rows say.
namespace fiscalon {

/// What stands around the 160 characters of a line.
struct LineFrame {
  /// The quotes on each side.
  size_t quotes = 1;
  /// The characters of the line end.
  size_t end = 2;

  constexpr size_t LineLength() const { return quotes + kRecordLength + quotes + end; }
  constexpr std::string_view Front() const { return {&kRecordQuote, quotes}; }
  constexpr std::string_view Back() const {
    constexpr std::string_view kBacks[] = {"\n", "\r\n", "\"\n", "\"\r\n"};
    return kBacks[Index()];
  }
  constexpr size_t Index() const { return quotes * 2 + end - 1; }
};

inline constexpr RecordField kSequenceField = FieldNamed(kRecordHead, "SeqNumber");
/// No four characters.
inline constexpr uint64_t kNoSequence = UINT64_MAX;

/// The four characters of a record's sequence number as they lie in memory.
inline uint32_t LoadSequence(const char* record) {
  uint32_t sequence = 0;
  static_assert(kSequenceField.Width() == sizeof sequence);
  std::memcpy(&sequence, record + kSequenceField.Offset(), sizeof sequence);
  return sequence;
}

struct RuleSet;

/// What a payment was found to be good for, whatever else its row says. Its sequence number is digits then.
struct GoodFor {
  /// Null where nothing was found.
  const RuleSet* rules = nullptr;
  uint64_t cents = kNoCents;
};

/// Where a payment begins in a block, the four characters of its sequence number as they lie in memory, and by which
/// rules it is good for which amount, if that is known.
struct PaymentStart {
  uint32_t line = 0;
  uint32_t sequence = 0;
  GoodFor goodFor = {};
};

/// Where the next line and the next payment of a block go, for which there is room.
struct BlockEnd {
  std::string_view* line = nullptr;
  PaymentStart* start = nullptr;
  uint32_t lineCount = 0;
  /// That of the last payment, `kNoSequence` where there is none yet.
  uint64_t sequence = kNoSequence;
};

/// Takes payments into a block as long as each stands there in the usual form, good for some amount. Gives where the
/// last ends. The next one ends the one before: lines of the same number would be of the same payment.
using TakeUsualPayments = const char* (*)(const char* at, const char* end, const RuleSet& rules, const JudgingDay& day,
                                          BlockEnd& blockEnd);

/// One for each frame, by `LineFrame::Index`.
using UsualForms = std::array<TakeUsualPayments, 4>;

}  // namespace fiscalon
