#include "validation/batch_part.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "validation/judge_payment.h"
#include "validation/payment_rows.h"
#include "validation/record_block.h"
#include "validation/rule_sets.h"

namespace fiscalon {

namespace {

/// How many bytes of records are looked at to find a place again.
constexpr size_t kSampleBytes = size_t{16} << 10;
/// In how many places a sample may be found before it tells nothing.
constexpr size_t kMostPlaces = 4096;

/// Payments of one screen are about equally long, so lengths are told apart by screen: each that has rules, and all
/// others.
constexpr size_t kScreens = RuleSets().size() + 1;
using PerScreen = std::array<double, kScreens>;

size_t ScreenIndex(std::string_view screen) {
  return static_cast<size_t>(std::ranges::find(RuleSets(), RulesOf(screen)) - RuleSets().begin());
}

/// Reads rows one after the other, whatever is wrong with them.
class Rows {
 public:
  explicit Rows(std::string_view list) : size_(list.size()) { reader_.Read(list); }

  bool AtEnd() const { return reader_.Rest().empty(); }
  /// How many bytes have been read.
  size_t Offset() const { return size_ - reader_.Rest().size(); }

  /// The row holds until the next call. A row that can't be read is empty, as far as it can't.
  const PaymentRow& Next() {
    if (!reader_.NextQuickly(row_)) {
      // What the reader kept of earlier rows is not needed any more.
      reader_.Read(reader_.Rest());
      reader_.Next(row_);
    }
    return row_;
  }

 private:
  size_t size_;
  RowReader reader_;
  PaymentRow row_;
};

/// Where a sample of payments may stand in the list.
struct Place {
  size_t offset = 0;
  /// The rows before it, by screen.
  PerScreen rowsBefore = {};
};

class Cutter {
 public:
  Cutter(ByteSource& payments, ByteSource& records, BatchListener& listener)
      : payments_(payments),
        records_(records),
        list_(WholeOf(payments)),
        lines_(WholeOf(records)),
        lineSource_(ByteSource::Of(lines_, records.Name())),
        listener_(listener) {
    const auto source = ByteSource::Of(list_, payments.Name());
    RowFeed(*source).TakeHeader();
    firstRow_ = std::min(list_.find('\n'), list_.size() - 1) + 1;
  }

  BatchStretches Cut(const BatchPart& part) {
    const auto [listFrom, linesFrom] = CutBehind(part.number - 1, part.of);
    const auto [listTo, linesTo] = CutBehind(part.number, part.of);
    return {ByteSource::Stretch(payments_, list_.substr(0, listFrom),
                                list_.substr(listFrom, std::max(listFrom, listTo) - listFrom)),
            ByteSource::Stretch(records_, lines_.substr(0, linesFrom), lines_.substr(linesFrom, linesTo - linesFrom))};
  }

 private:
  struct BatchCut {
    size_t list = 0;
    size_t lines = 0;
  };

  static std::string_view WholeOf(ByteSource& source) {
    const std::string_view bytes = source.Peek(1);
    if (!source.Stays() && !bytes.empty())
      throw BatchError(source.Name(), "parts are cut out of files, and this is a pipe or a device");
    return bytes;
  }

  BatchCut CutBehind(uint64_t part, uint64_t of) {
    if (part == 0)
      return {};
    const auto wanted = static_cast<size_t>(lines_.size() / of * part + lines_.size() % of * part / of);
    const size_t start = RecordFeed(*lineSource_).EndOfPayment(wanted);
    return {start == lines_.size() ? list_.size() : RowOf(start), start};
  }

  /// Where the row of the payment stands whose records start there.
  size_t RowOf(size_t start) {
    const std::string_view bytes = SampleAt(start);
    RecordBlock sample;
    sample.Cut(bytes);
    std::vector<Place> places = PlacesOf(sample, start + bytes.size() == lines_.size());
    if (places.size() == 1)
      return places.front().offset;
    const Place* const place = Likeliest(places, sample, bytes, start);
    return place != nullptr ? place->offset : RowBehind(PaymentsBefore(start));
  }

  /// The payments that begin in the next few thousand bytes.
  std::string_view SampleAt(size_t start) const {
    const size_t end = std::min(start + kSampleBytes, lines_.size());
    return lines_.substr(start, RecordFeed(*lineSource_).EndOfPayment(end) - start);
  }

  /// All places where the sequence numbers of a sample stand in the list; none where there are too many.
  std::vector<Place> PlacesOf(const RecordBlock& sample, bool isLast) {
    std::vector<Place> places;
    PerScreen rows = {};
    Rows list(list_.substr(firstRow_));
    while (!list.AtEnd()) {
      const size_t offset = firstRow_ + list.Offset();
      const PaymentRow& row = list.Next();
      if (sample.IsSequence(0, row.seq) && IsSampleAt(offset, sample, isLast)) {
        if (places.size() == kMostPlaces)
          return {};
        places.push_back({offset, rows});
      }
      ++rows[ScreenIndex(row.screen)];
    }
    rowsInAll_ = rows;
    return places;
  }

  bool IsSampleAt(size_t offset, const RecordBlock& sample, bool isLast) const {
    Rows rows(list_.substr(offset));
    for (size_t i = 0; i < sample.PaymentCount(); ++i) {
      if (rows.AtEnd() || !sample.IsSequence(i, rows.Next().seq))
        return false;
    }
    return !isLast || rows.AtEnd();
  }

  /// The place that both witnesses name; null where they don't agree.
  const Place* Likeliest(const std::vector<Place>& places, const RecordBlock& sample, std::string_view bytes,
                         size_t start) {
    const Place* best = nullptr;
    size_t bestGood = 0;
    size_t nextGood = 0;
    for (const Place& place : places) {
      const size_t good = GoodPayments(place, sample);
      nextGood = std::max(nextGood, std::min(good, bestGood));
      if (good > bestGood)
        best = &place;
      bestGood = std::max(bestGood, good);
    }
    constexpr size_t kClearly = 4;
    if (best == nullptr || bestGood * 2 <= sample.PaymentCount() || nextGood * kClearly >= bestGood)
      return nullptr;
    const PerScreen lengths = LengthsOfPayments(*best, sample, bytes);
    const auto distance = [&](const Place& place) {
      double before = 0;
      for (size_t screen = 0; screen < kScreens; ++screen) before += place.rowsBefore[screen] * lengths[screen];
      return std::abs(before - static_cast<double>(start));
    };
    const auto nearest = std::min_element(places.begin(), places.end(),
                                          [&](const Place& a, const Place& b) { return distance(a) < distance(b); });
    return &*nearest == best ? best : nullptr;
  }

  /// How many payments of a sample are good by the rows of that place.
  size_t GoodPayments(const Place& place, const RecordBlock& sample) const {
    Rows rows(list_.substr(place.offset));
    std::string reason;
    size_t good = 0;
    for (size_t i = 0; i < sample.PaymentCount(); ++i) {
      const PaymentRow& row = rows.Next();
      good += judge_.Judge({row.screen, row.biller, row.cents}, sample.Records(i), reason) ? 1 : 0;
    }
    return good;
  }

  /// How many bytes the records of a payment take, by screen: as in this sample and in the one at the start of the
  /// file. Screens that stand in neither share what the others leave of the file.
  PerScreen LengthsOfPayments(const Place& place, const RecordBlock& sample, std::string_view bytes) {
    PerScreen seen = {};
    PerScreen lengths = {};
    const auto add = [&](size_t offset, const RecordBlock& block, std::string_view of) {
      Rows rows(list_.substr(offset));
      for (size_t i = 0; i < block.PaymentCount() && !rows.AtEnd(); ++i) {
        const size_t screen = ScreenIndex(rows.Next().screen);
        ++seen[screen];
        lengths[screen] += static_cast<double>(block.LinesOf(i, of).size());
      }
    };
    add(place.offset, sample, bytes);
    const std::string_view start = SampleAt(0);
    RecordBlock first;
    first.Cut(start);
    add(firstRow_, first, start);
    auto left = static_cast<double>(lines_.size());
    double rowsLeft = 0;
    for (size_t screen = 0; screen < kScreens; ++screen) {
      lengths[screen] = seen[screen] > 0 ? lengths[screen] / seen[screen] : 0;
      left -= lengths[screen] * rowsInAll_[screen];
      rowsLeft += seen[screen] > 0 ? 0 : rowsInAll_[screen];
    }
    for (size_t screen = 0; screen < kScreens; ++screen) {
      if (seen[screen] == 0 && rowsLeft > 0)
        lengths[screen] = std::max(left, 0.0) / rowsLeft;
    }
    return lengths;
  }

  /// Counts the payments whose records stand before that, on from where it was counted before.
  uint64_t PaymentsBefore(size_t end) {
    const auto source =
        ByteSource::Stretch(records_, lines_.substr(0, countedTo_), lines_.substr(countedTo_, end - countedTo_));
    RecordFeed feed(*source);
    RecordBlock block;
    std::string storage;
    try {
      for (std::string_view bytes = feed.Next(storage); !bytes.empty(); bytes = feed.Next(storage)) {
        block.Cut(source->Load(bytes, storage));
        counted_ += block.PaymentCount();
        linesCounted_ += block.LineCount();
        listener_.OnProgress({});
      }
    } catch (const BatchError& error) {
      BatchProblem problem = error.Problems().front();
      problem.line += problem.line == 0 ? 0 : linesCounted_;
      throw BatchError({problem});
    }
    countedTo_ = end;
    return counted_;
  }

  /// Where the row stands that has so many before it, or the list ends.
  size_t RowBehind(uint64_t rows) const {
    size_t offset = firstRow_;
    for (; rows > 0 && offset < list_.size(); --rows) offset = std::min(list_.find('\n', offset), list_.size() - 1) + 1;
    return offset;
  }

  const ByteSource& payments_;
  const ByteSource& records_;
  const std::string_view list_;
  const std::string_view lines_;
  const std::unique_ptr<ByteSource> lineSource_;
  BatchListener& listener_;
  const PaymentJudge judge_;
  size_t firstRow_ = 0;
  PerScreen rowsInAll_ = {};
  size_t countedTo_ = 0;
  uint64_t counted_ = 0;
  uint64_t linesCounted_ = 0;
};

}  // namespace

BatchStretches CutPart(ByteSource& payments, ByteSource& records, const BatchPart& part, BatchListener& listener) {
  return Cutter(payments, records, listener).Cut(part);
}

}  // namespace fiscalon
