#include "validation/record_block.h"

#include <algorithm>
#include <array>
#include <cstring>

#include "core/records/record_line.h"
#include "validation/batch_error.h"
#include "validation/stencil.h"

namespace fiscalon {

namespace {

/// Small enough that a block is still in the cache when it is judged; large enough that what is done once for each
/// block takes no time.
constexpr size_t kBlockBytes = size_t{1} << 20;
constexpr size_t kLargestPayment = size_t{16} << 20;

constexpr size_t kMostPatience = 256;

/// The smallest character of a record: one pass for line ends and NULs, which no good record holds. Written
/// so that compilers make it a few wide instructions.
unsigned char SmallestOf(const char* record) {
  unsigned char smallest = 0xFF;
  for (size_t i = 0; i < kRecordLength; ++i) smallest = std::min(smallest, static_cast<unsigned char>(record[i]));
  return smallest;
}

/// Whether a record, which is as long as one at least with its frame, has the start of one and that frame.
template <LineFrame kFrame>
bool IsFramed(const char* record) {
  // As few comparisons as possible: each is a word of the file against one that is known.
  constexpr std::string_view kStart = "\"PC4";
  static_assert(kStart.substr(1) == kRecordMark && kStart[0] == kRecordQuote);
  return std::memcmp(record - kFrame.quotes, kStart.data() + 1 - kFrame.quotes, kRecordMark.size() + kFrame.quotes) ==
             0 &&
         std::memcmp(record + kRecordLength, kFrame.Back().data(), kFrame.Back().size()) == 0;
}

}  // namespace

std::string_view SequenceOf(std::string_view line) {
  if (line.starts_with(kRecordQuote))
    line.remove_prefix(1);
  return HasRecordHead(line) ? TextIn(line, kSequenceField) : std::string_view{};
}

/// A line that is no record belongs to the payment that it stands in, or else to the first one.
inline void RecordBlock::AddLine(std::string_view line) {
  if (lineCount_ == lines_.size()) {
    lines_.resize(2 * lines_.size());
    starts_.resize(lines_.size() + 1);
  }
  lines_[lineCount_++] = line;
  // Whatever was found of the payment was found of what is but a part of it.
  if (paymentCount_ != 0)
    starts_[paymentCount_ - 1].goodFor.rules = nullptr;
}

inline void RecordBlock::AddRecord(std::string_view line, uint32_t sequence) {
  if (paymentCount_ == 0 || sequence != starts_[paymentCount_ - 1].sequence) {
    starts_[paymentCount_] = {.line = paymentCount_ == 0 ? 0 : static_cast<uint32_t>(lineCount_), .sequence = sequence};
    ++paymentCount_;
  }
  AddLine(line);
}

BlockEnd RecordBlock::End() {
  return {.line = lines_.data() + lineCount_,
          .start = starts_.data() + paymentCount_,
          .lineCount = static_cast<uint32_t>(lineCount_),
          .sequence = paymentCount_ == 0 ? kNoSequence : starts_[paymentCount_ - 1].sequence};
}

void RecordBlock::SetEnd(const BlockEnd& end) {
  lineCount_ = static_cast<size_t>(end.line - lines_.data());
  paymentCount_ = static_cast<size_t>(end.start - starts_.data());
}

/// Takes lines as long as each has that frame and nothing is wrong with it, and leaves any other to `TakeAnyLine`.
/// Where usual payments are looked for, it takes a few, since the next may be one again. What is changed with each line
/// is kept at hand, since for all the compiler knows the members could change with any of them.
template <LineFrame kFrame>
const char* RecordBlock::TakeAlike(const char* at, const char* end) {
  constexpr size_t kLength = kFrame.LineLength();
  const char* const first = at;
  size_t payments = day_ == nullptr ? SIZE_MAX : patience_;
  BlockEnd block = End();
  for (; static_cast<size_t>(end - at) >= kLength; at += kLength) {
    FetchAhead<kLength>(at);
    const char* const record = at + kFrame.quotes;
    if (!IsFramed<kFrame>(record) || SmallestOf(record) < ' ')
      break;
    const uint32_t own = LoadSequence(record);
    if (own != block.sequence) {
      if (at != first && --payments == 0)
        break;
      *block.start++ = {.line = block.sequence == kNoSequence ? 0 : block.lineCount, .sequence = own};
      block.sequence = own;
    }
    block.start[-1].goodFor.rules = nullptr;
    *block.line++ = {record, kRecordLength};
    ++block.lineCount;
  }
  SetEnd(block);
  return at;
}

/// Takes lines that are framed as the one before.
const char* RecordBlock::TakeLines(const char* at, const char* end) {
  MakeRoom(static_cast<size_t>(end - at));
  if (frame_.quotes == 1)
    return frame_.end == 2 ? TakeAlike<LineFrame{1, 2}>(at, end) : TakeAlike<LineFrame{1, 1}>(at, end);
  return frame_.end == 2 ? TakeAlike<LineFrame{0, 2}>(at, end) : TakeAlike<LineFrame{0, 1}>(at, end);
}

/// Takes payments in the usual form of those rules.
const char* RecordBlock::TakeUsual(const RuleSet& rules, const char* at, const char* end) {
  BlockEnd block = End();
  at = rules.usual[frame_.Index()](at, end, rules, *day_, block);
  SetEnd(block);
  return at;
}

/// Takes payments in the usual form of any rules, framed as the line before.
const char* RecordBlock::TakeUsual(const char* at, const char* end) {
  // Lines before the first record belong to the first payment.
  const bool isOpen = paymentCount_ == 0 && lineCount_ != 0;
  if (day_ == nullptr || isOpen)
    return at;
  MakeRoom(static_cast<size_t>(end - at));
  const char* behind = TakeUsual(*usual_, at, end);
  for (const RuleSet* const rules : RuleSets()) {
    if (behind != at)
      break;
    usual_ = rules;
    behind = TakeUsual(*rules, at, end);
  }
  // A file that has none is not searched for them at every payment.
  patience_ = behind != at ? 0 : std::clamp<size_t>(2 * patience_, 1, kMostPatience);
  return behind;
}

const char* RecordBlock::TakeAnyLine(const char* at, const char* end) {
  std::string_view rest(at, static_cast<size_t>(end - at));
  const RecordLine line = TakeRecordLine(rest);
  frame_ = {.quotes = line.opensWithQuote ? size_t{1} : 0, .end = line.end == LineEnd::CrLf ? size_t{2} : 1};
  std::string problem = WrongWith(line);
  if (problem.empty() && line.record.size() != kRecordLength)
    problem = "a line of " + std::to_string(line.record.size()) + " characters; a record has " +
              std::to_string(kRecordLength);
  if (!problem.empty())
    problems_.push_back({lineCount_, std::move(problem)});
  if (HasRecordHead(line.record))
    AddRecord(line.record, LoadSequence(line.record.data()));
  else
    AddLine(line.record);
  return end - rest.size();
}

/// Makes room for as many lines of a record's length as so many bytes can hold.
void RecordBlock::MakeRoom(size_t bytes) {
  const size_t lines = lineCount_ + bytes / kRecordLength + 1;
  if (lines_.size() < lines) {
    lines_.resize(lines);
    starts_.resize(lines + 1);
  }
}

void RecordBlock::Cut(std::string_view bytes) {
  lineCount_ = 0;
  paymentCount_ = 0;
  problems_.clear();
  MakeRoom(bytes.size());
  const char* at = bytes.data();
  const char* const end = at + bytes.size();
  while (at != end) {
    const char* const before = at;
    at = TakeUsual(at, end);
    if (at == before)
      at = TakeLines(at, end);
    if (at == before)
      at = TakeAnyLine(at, end);
  }
  starts_[paymentCount_].line = static_cast<uint32_t>(lineCount_);
}

void RecordBlock::Cut(std::string_view bytes, const JudgingDay& day) {
  day_ = &day;
  Cut(bytes);
  day_ = nullptr;
}

std::string_view RecordBlock::LinesOf(size_t payment, std::string_view bytes) const {
  const auto start = [&](size_t which) -> size_t {
    if (which == 0)
      return 0;
    if (which == paymentCount_)
      return bytes.size();
    // A payment begins with a record, in quotes or bare.
    const auto at = static_cast<size_t>(lines_[starts_[which].line].data() - bytes.data());
    return at - (bytes[at - 1] == kRecordQuote ? 1 : 0);
  };
  return bytes.substr(start(payment), start(payment + 1) - start(payment));
}

std::string_view RecordFeed::Next(std::string& storage) {
  std::string_view bytes = source_.Peek(kBlockBytes + 1);
  if (bytes.size() > kBlockBytes) {
    const size_t size = EndOfPayment(kBlockBytes);
    bytes = source_.Peek(size).substr(0, size);
  }
  if (!source_.Stays()) {
    storage = bytes;
    bytes = storage;
  }
  source_.Skip(bytes.size());
  return bytes;
}

/// What is wrong at the line that starts there.
void RecordFeed::Fail(size_t start, std::string reason) {
  const std::string_view before = source_.Peek(start).substr(0, start);
  const auto lines = static_cast<uint64_t>(std::count(before.begin(), before.end(), '\n'));
  throw BatchError({BatchProblem{source_.Name(), lines + 1, std::move(reason)}});
}

size_t RecordFeed::EndOfPayment(size_t from) {
  // Most payments end within a few lines.
  for (size_t wanted = kRecordLength * 8;; wanted *= 2) {
    const std::string_view rest = source_.Peek(from + wanted);
    const std::string_view shown = rest.substr(std::min(from, rest.size()), wanted);
    const std::string_view bytes = source_.Load(shown, storage_);
    if (const std::optional<size_t> end = EndOfPayment(from, bytes, shown.size() < wanted))
      return from + *end;
  }
}

/// Where the payment ends in the bytes that stand at that offset, of which the first line may be a rest; nothing where
/// more of them must be looked at.
std::optional<size_t> RecordFeed::EndOfPayment(size_t offset, std::string_view bytes, bool isAll) {
  std::string_view sequence;
  bool isRest = true;
  for (size_t start = 0, end = 0;; start = end, isRest = false) {
    const size_t lineEnd = bytes.find('\n', start);
    if (std::min(lineEnd, bytes.size()) - start > kLargestPayment)
      Fail(offset + start, "a line of more than 16 MiB");
    if (lineEnd == bytes.npos && !isAll)
      return std::nullopt;
    end = lineEnd == bytes.npos ? bytes.size() : lineEnd + 1;
    if (!isRest) {
      const std::string_view next = SequenceOf(bytes.substr(start, end - start));
      if (start == bytes.size() || (!sequence.empty() && !next.empty() && next != sequence))
        return start;
      if (sequence.empty())
        sequence = next;
    }
    if (end > kLargestPayment)
      Fail(offset + end, sequence.empty() ? "no record in 16 MiB before this line"
                                          : "the records of payment " + Quoted(sequence) + " take more than 16 MiB");
  }
}

}  // namespace fiscalon
