#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "validation/byte_source.h"
#include "validation/rule_sets.h"
#include "validation/usual_form.h"

namespace fiscalon {

/// The sequence number of a record, quoted or bare; empty for a line that is no record.
std::string_view SequenceOf(std::string_view line);

/// Something wrong with a line of a block, the block's first line being 0.
struct LineProblem {
  size_t line = 0;
  std::string reason = {};
};

/// A stretch of a record file that holds whole payments, taken apart into lines and payments. A payment is a
/// run of lines with one sequence number. A block can be filled again and again without an allocation.
class RecordBlock {
 public:
  /// Takes the bytes apart. Lines are records of exactly 160 characters, in quotes or bare, with CR LF or LF;
  /// the last one may lack its end. A line that is none is a problem, and stays in its place, so that the
  /// payments behind it can still be told apart.
  void Cut(std::string_view bytes);

  /// The same for payments that are about to be judged as of that day: those that are written as screens do and good
  /// for some amount are found on the way.
  void Cut(std::string_view bytes, const JudgingDay& day);

  size_t PaymentCount() const { return paymentCount_; }
  size_t LineCount() const { return lineCount_; }
  std::span<const std::string_view> Records(size_t payment) const {
    return {lines_.data() + starts_[payment].line, starts_[payment + 1].line - starts_[payment].line};
  }
  /// The line that a payment begins with, the block's first line being 0.
  size_t FirstLine(size_t payment) const { return starts_[payment].line; }
  std::string_view Sequence(size_t payment) const {
    return {reinterpret_cast<const char*>(&starts_[payment].sequence), sizeof(uint32_t)};
  }
  bool IsSequence(size_t payment, std::string_view seq) const {
    return seq.size() == sizeof(uint32_t) && std::memcmp(seq.data(), &starts_[payment].sequence, sizeof(uint32_t)) == 0;
  }
  /// What a payment was found to be good for.
  const GoodFor& FoundGood(size_t payment) const { return starts_[payment].goodFor; }
  /// The payment's lines with all that stands around its records, out of the bytes that were cut.
  std::string_view LinesOf(size_t payment, std::string_view bytes) const;
  const std::vector<LineProblem>& Problems() const { return problems_; }

 private:
  void MakeRoom(size_t bytes);
  const char* TakeUsual(const char* at, const char* end);
  const char* TakeUsual(const RuleSet& rules, const char* at, const char* end);
  BlockEnd End();
  void SetEnd(const BlockEnd& end);
  const char* TakeLines(const char* at, const char* end);
  template <LineFrame kFrame>
  const char* TakeAlike(const char* at, const char* end);
  const char* TakeAnyLine(const char* at, const char* end);
  void AddLine(std::string_view line);
  void AddRecord(std::string_view line, uint32_t sequence);

  // Both hold room for more than there is, so that a block of good lines is filled without a check.
  std::vector<std::string_view> lines_;
  size_t lineCount_ = 0;
  std::vector<PaymentStart> starts_ = std::vector<PaymentStart>(1);
  size_t paymentCount_ = 0;
  LineFrame frame_;
  /// The day as of which payments are judged, if they are.
  const JudgingDay* day_ = nullptr;
  /// Whose usual payment was found last.
  const RuleSet* usual_ = RuleSets().front();
  /// How many payments are taken line by line before a usual one is looked for again.
  size_t patience_ = 0;
  std::vector<LineProblem> problems_;
};

/// Hands out the blocks of a record file, in order.
class RecordFeed {
 public:
  explicit RecordFeed(ByteSource& source) : source_(source) {}

  /// The next bytes that hold whole payments, about 1 MiB; empty at the end. `storage` holds them where
  /// the source does not keep them. Throws `BatchError` for a payment of more than 16 MiB,
  /// with the line counted from the first of these bytes.
  std::string_view Next(std::string& storage);

  /// Where a payment ends, at or behind an offset from what was handed out last: before the first record whose sequence
  /// number differs from that of the record before it, or at the end of the file. An offset within a line counts as the
  /// next line's. Throws as `Next`.
  size_t EndOfPayment(size_t from);

 private:
  std::optional<size_t> EndOfPayment(size_t offset, std::string_view bytes, bool isAll);
  [[noreturn]] void Fail(size_t start, std::string reason);

  ByteSource& source_;
  std::string storage_;
};

}  // namespace fiscalon
