// Payments that are found good while a block is cut: how many are found, and that it changes no verdict and no line.

#include "validation/usual_form.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <sstream>
#include <utility>

#include "core/platform/runtime_error.h"
#include "core/records/record_line.h"
#include "tests/support/bulk_payment.h"
#include "tests/support/module_test.h"
#include "validation/generate_batch.h"
#include "validation/payment_rows.h"
#include "validation/record_block.h"

namespace fiscalon {
namespace {

constexpr Date kThatDay = {.year = 2026, .month = 6, .day = 15};
constexpr LineFrame kAllFrames[] = {{0, 1}, {0, 2}, {1, 1}, {1, 2}};

std::string Framed(const LineFrame& frame, const std::vector<std::string>& records) {
  std::string lines;
  // (GCC 12 takes a view of no quote or one for longer than the quote.)
  for (const std::string& record : records)
    lines.append(frame.quotes, kRecordQuote).append(record).append(frame.Back());
  return lines;
}

std::string Framed(const LineFrame& frame, std::string_view lines) {
  std::vector<std::string> records;
  for (const RecordLine& line : RecordLinesOf(lines)) records.emplace_back(line.record);
  return Framed(frame, records);
}

/// A good payment under another sequence number.
std::vector<std::string> Numbered(const BulkPayment& payment, const std::string& seq) {
  std::vector<std::string> records = payment.records;
  for (std::string& record : records) record.replace(3, 4, seq);
  return records;
}

/// Characters beside those that tests tell apart, and at both ends; all there are where FISCALON_LONG is set.
std::string TellingCharacters() {
  if (std::getenv("FISCALON_LONG") == nullptr)
    return std::string("\0\t\n\r\x1F !\"/012567:AFGSTU~\x7F\x80\xFF", 26);
  std::string all;
  for (int byte = 0; byte < 256; ++byte) all += static_cast<char>(byte);
  return all;
}

/// What may stand in each column of a screen's usual records: "=" what does, "." any character but those for control,
/// and "#" a digit that is a part of what the tests look at.
struct Columns {
  BulkPayment payment;
  std::vector<std::string> records;
};

std::string Times(size_t count, char c) {
  return std::string(count, c);
}

Columns AgencyColumns() {
  const std::string amount = "==" + Times(18, '#');
  const std::string date = "==" + Times(8, '#') + Times(10, '=');
  const std::string dollars = "==" + Times(8, '=') + Times(8, '#') + "==";
  return {AgencyPayment(GoodAgencyFields()),
          {Times(8, '=') + Times(152, '.'), Times(8, '=') + amount + date + dollars + amount + Times(72, '.')}};
}

Columns QuebecColumns() {
  const std::string amount = "==" + Times(18, '#');
  const std::string type = "==" + Times(17, '=') + "#";
  const std::string unused = Times(20, '=');
  return {QuebecPayment(GoodQuebecFields()),
          {Times(8, '=') + Times(16, '.') + Times(6, '#') + "==" + Times(128, '.'),
           Times(8, '=') + amount + amount + amount + amount + Times(72, '.'),
           Times(8, '=') + type + amount + unused + unused + Times(72, '.')}};
}

TEST(LineFrame, TellsWhatStandsAroundARecord) {
  const struct {
    LineFrame frame;
    size_t length;
    std::string_view front, back;
  } rows[] = {
      {{0, 1}, 161, "", "\n"}, {{0, 2}, 162, "", "\r\n"}, {{1, 1}, 163, "\"", "\"\n"}, {{}, 164, "\"", "\"\r\n"}};
  size_t index = 0;
  for (const auto& [frame, length, front, back] : rows) {
    EXPECT_EQ(frame.LineLength(), length);
    EXPECT_EQ(frame.Front(), front);
    EXPECT_EQ(frame.Back(), back);
    EXPECT_EQ(frame.Index(), index++);
  }
}

class UsualPayment : public ModuleTest {
 protected:
  /// Cuts with and without looking at the payments, which must come to the same, and returns how many were found good.
  /// Each of them must be.
  size_t FoundIn(std::string_view bytes) {
    plain_.Cut(bytes);
    block_.Cut(bytes, day_);
    ExpectSameCut();
    size_t found = 0;
    for (size_t i = 0; i < block_.PaymentCount(); ++i) found += IsFound(i) ? 1 : 0;
    return found;
  }

  /// The same for a block that has met no line yet, and so expects those that screens write.
  size_t FoundAtOnce(std::string_view bytes) {
    plain_ = RecordBlock();
    block_ = RecordBlock();
    return FoundIn(bytes);
  }

  bool IsFound(size_t payment) const {
    const auto& [rules, cents] = block_.FoundGood(payment);
    if (rules == nullptr)
      return false;
    // Whatever biller the row has.
    for (const char* biller : {"", "001052"}) {
      const Expectation expected{.paymentCents = cents, .billerCode = biller, .day = &day_};
      EXPECT_TRUE(PassEveryTest(*rules, block_.Records(payment), expected)) << block_.Records(payment).back();
    }
    for (const char c : block_.Sequence(payment)) EXPECT_TRUE(c >= '0' && c <= '9');
    return true;
  }

  /// What may stand in each character of lines whose columns are known; what is around them stays.
  static std::string Allowed(const LineFrame& frame, const std::vector<std::string>& records) {
    std::string allowed;
    for (const std::string& record : records)
      allowed += Times(frame.quotes, '=') + record + Times(frame.quotes + frame.end, '=');
    return allowed;
  }

  /// The amount that lines are found good for behind one that tells their frame. None where they are not all of one
  /// payment, or not found good.
  uint64_t AmountFound(const RuleSet& rules, const LineFrame& frame, const std::string& lines) const {
    const std::string bytes = Framed(frame, {Numbered(AgencyPayment({}), "0000")}) + lines;
    // A new one, since one that has met many others looks for usual payments less often.
    RecordBlock block;
    block.Cut(bytes, day_);
    return block.PaymentCount() == 2 && block.FoundGood(1).rules == &rules ? block.FoundGood(1).cents : kNoCents;
  }

  /// The amount that the records of lines are good for, test by test: what their own fields make. None where they are
  /// not good, or where the amount is beyond what is added without any loss.
  uint64_t AmountOf(const RuleSet& rules, const LineFrame& frame, const std::string& lines) const {
    std::vector<std::string_view> records;
    for (size_t at = frame.quotes; at < lines.size(); at += frame.LineLength())
      records.push_back(std::string_view(lines).substr(at, kRecordLength));
    const auto value = [&](size_t field) {
      return std::stoull(std::string(records[1 + field / 4].substr(8 + field % 4 * 20 + 2, 18)));
    };
    const bool isAgency = rules.screenCode == "03";
    const uint64_t cents = isAgency ? value(0) : value(0) + value(1) + value(2) + value(3) + value(5);
    if (!isAgency && cents > 1'000'000'000'000)
      return kNoCents;
    try {
      return PassEveryTest(rules, records, {.paymentCents = cents, .billerCode = "001052", .day = &day_}) ? cents
                                                                                                          : kNoCents;
    } catch (const RuntimeError&) {
      return kNoCents;
    }
  }

  void ExpectSameCut() const {
    ASSERT_EQ(block_.PaymentCount(), plain_.PaymentCount());
    ASSERT_EQ(block_.LineCount(), plain_.LineCount());
    ASSERT_EQ(block_.Problems().size(), plain_.Problems().size());
    for (size_t i = 0; i < plain_.Problems().size(); ++i) {
      EXPECT_EQ(block_.Problems()[i].line, plain_.Problems()[i].line);
      EXPECT_EQ(block_.Problems()[i].reason, plain_.Problems()[i].reason);
    }
    for (size_t i = 0; i < plain_.PaymentCount(); ++i) {
      ASSERT_EQ(block_.Sequence(i), plain_.Sequence(i));
      ASSERT_EQ(block_.FirstLine(i), plain_.FirstLine(i));
      ASSERT_EQ(block_.Records(i).size(), plain_.Records(i).size());
      for (size_t line = 0; line < plain_.Records(i).size(); ++line)
        ASSERT_EQ(block_.Records(i)[line].data(), plain_.Records(i)[line].data());
    }
  }

  JudgingDay day_ = JudgingDayOf(kThatDay);
  RecordBlock plain_;
  RecordBlock block_;
};

TEST_F(UsualPayment, IsFoundInEveryPaymentOfAGoodBatch) {
  for (const RuleSet* const rules : RuleSets()) {
    constexpr size_t kPayments = 1000;
    std::ostringstream list, lines, planted;
    GenerateBatch({.payments = kPayments, .screen = std::string(rules->screenCode), .today = kThatDay}, list, lines,
                  planted);
    const std::string rows = list.str();
    for (const LineFrame& frame : kAllFrames) {
      // The frame is known from the line before.
      const std::string bytes = Framed(frame, Numbered(AgencyPayment({}), "0000")) + Framed(frame, lines.str());
      EXPECT_EQ(FoundIn(bytes), kPayments) << rules->screenCode;
      RowReader reader;
      reader.Read(std::string_view(rows).substr(kPaymentsHeader.size() + 1));
      for (size_t i = 1; i <= kPayments; ++i) {
        PaymentRow row;
        ASSERT_EQ(reader.Next(row), "");
        ASSERT_EQ(block_.FoundGood(i).rules, rules);
        ASSERT_EQ(block_.FoundGood(i).cents, static_cast<uint64_t>(row.cents));
      }
    }
  }
}

TEST_F(UsualPayment, IsFoundInNothingThatATestRefuses) {
  // Each character of each line becomes another one, between two payments that are good.
  const std::string others = TellingCharacters();
  const auto printable =
      static_cast<size_t>(std::ranges::count_if(others, [](char c) { return static_cast<unsigned char>(c) >= ' '; }));
  const auto spoil = [&](const BulkPayment& payment, const LineFrame& frame) {
    const std::string front = Framed(frame, Numbered(payment, "0001"));
    std::string bytes = front + Framed(frame, Numbered(payment, "0002")) + Framed(frame, Numbered(payment, "0003"));
    size_t found = 0;
    for (size_t at = front.size(); at < 2 * front.size(); ++at) {
      const char kept = bytes[at];
      for (const char other : others) {
        bytes[at] = other;
        found += FoundIn(bytes) == 3 ? 1 : 0;
        if (HasFatalFailure())
          return found;
      }
      bytes[at] = kept;
    }
    return found;
  };
  for (const LineFrame& frame : {LineFrame{1, 2}, LineFrame{0, 1}}) {
    // Any character but those for control in the 152 columns behind a "T" record's head, and in those behind slots.
    EXPECT_GT(spoil(AgencyPayment(GoodAgencyFields()), frame), printable * (152 + 72));
    EXPECT_GT(spoil(QuebecPayment(GoodQuebecFields()), frame), printable * (144 + 2 * 72));
  }
}

TEST_F(UsualPayment, HasJustTheColumnsThatScreensWrite) {
  for (const Columns& columns : {AgencyColumns(), QuebecColumns()}) {
    const RuleSet& rules = *RulesOf(columns.payment.screen);
    for (const LineFrame& frame : kAllFrames) {
      const std::string allowed = Allowed(frame, columns.records);
      std::string lines = Framed(frame, columns.payment.records);
      ASSERT_EQ(allowed.size(), lines.size());
      ASSERT_EQ(AmountFound(rules, frame, lines), 12345u);
      for (size_t at = 0; at < lines.size(); ++at) {
        const char kept = lines[at];
        for (const char other : TellingCharacters()) {
          lines[at] = other;
          const bool mayStand =
              other == kept || (allowed[at] == '.' ? static_cast<unsigned char>(other) >= ' '
                                                   : allowed[at] == '#' && other >= '0' && other <= '9');
          const uint64_t amount = mayStand ? AmountOf(rules, frame, lines) : kNoCents;
          EXPECT_EQ(AmountFound(rules, frame, lines), amount)
              << "screen " << rules.screenCode << ", character " << at << " as " << static_cast<int>(other);
        }
        lines[at] = kept;
      }
    }
  }
}

TEST_F(UsualPayment, IsAllOfThePayment) {
  const LineFrame frame;
  const BulkPayment good = AgencyPayment(GoodAgencyFields());
  const std::string one = Framed(frame, Numbered(good, "0001"));
  const std::string two = Framed(frame, Numbered(good, "0002"));
  EXPECT_EQ(FoundAtOnce(one + two), 2u);
  // One more record of the same number, as it may be of any kind; in another frame; as no record at all.
  EXPECT_EQ(FoundAtOnce(one + one + two), 1u);
  EXPECT_EQ(FoundAtOnce(one + two.substr(0, 164).replace(4, 4, "0001") + two), 1u);
  EXPECT_EQ(FoundAtOnce(one + Framed({0, 1}, Numbered(good, "0001"))), 0u);
  EXPECT_EQ(FoundAtOnce(one + "hello\r\n"), 0u);
  EXPECT_EQ(FoundAtOnce("hello\r\n" + one), 0u);
  // Lines of two numbers are two payments.
  EXPECT_EQ(FoundAtOnce(one.substr(0, 164) + two.substr(164)), 0u);
  // Cut off.
  for (size_t size = 1; size < one.size(); ++size) EXPECT_LE(FoundAtOnce(two + one.substr(0, size)), 1u) << size;
}

TEST_F(UsualPayment, IsNamedByDigits) {
  const BulkPayment good = AgencyPayment(GoodAgencyFields());
  EXPECT_EQ(FoundIn(Framed({}, Numbered(good, "9999"))), 1u);
  for (const char* seq : {"1,03", "A001", "    ", "\"001"}) EXPECT_EQ(FoundIn(Framed({}, Numbered(good, seq))), 0u);
}

TEST_F(UsualPayment, IsFoundUnderOtherRulesThanTheOneBefore) {
  const std::string agency = Framed({}, Numbered(AgencyPayment(GoodAgencyFields()), "0001"));
  const std::string quebec = Framed({}, Numbered(QuebecPayment(GoodQuebecFields()), "0002"));
  EXPECT_EQ(FoundIn(agency + quebec + agency + agency + quebec), 3u);
  EXPECT_EQ(block_.FoundGood(0).rules, &kAgencyRules);
  EXPECT_EQ(block_.FoundGood(1).rules, &kQuebecRules);
  EXPECT_EQ(block_.FoundGood(1).cents, 12345u);
}

TEST_F(UsualPayment, IsFoundAgainBehindManyOthers) {
  // Behind its fields a "T" record is no less right, but not as screens write it.
  const BulkPayment usual = AgencyPayment(GoodAgencyFields());
  BulkPayment other = usual;
  std::swap(other.records[0], other.records[1]);
  std::string bytes;
  for (int i = 0; i < 1000; ++i) bytes += Framed({}, Numbered(other, i % 2 == 0 ? "0001" : "0002"));
  EXPECT_EQ(FoundIn(bytes), 0u);
  for (int i = 0; i < 1000; ++i) bytes += Framed({}, Numbered(usual, i % 2 == 0 ? "0001" : "0002"));
  EXPECT_GE(FoundIn(bytes), 700u);
}

TEST_F(UsualPayment, IsNotFoundWhereTotalsAreWrittenWithAComma) {
  SetLocale(FrenchCanada());
  EXPECT_EQ(FoundIn(Framed({}, Numbered(QuebecPayment(GoodQuebecFields()), "0001"))), 0u);
  EXPECT_EQ(FoundIn(Framed({}, Numbered(AgencyPayment(GoodAgencyFields()), "0001"))), 1u);
}

TEST_F(UsualPayment, IsOfTheDay) {
  const std::string lines = Framed({}, Numbered(AgencyPayment(GoodAgencyFields()), "0001"));
  day_ = JudgingDayOf({.year = 2030, .month = 6, .day = 15});
  EXPECT_EQ(FoundIn(lines), 0u);
}

}  // namespace
}  // namespace fiscalon
