// The short cut by which nearly all good payments are judged: how many it takes, and that it takes none that is bad.

#include <gtest/gtest.h>

#include <sstream>

#include "tests/support/bulk_payment.h"
#include "tests/support/module_test.h"
#include "validation/generate_batch.h"
#include "validation/payment_rows.h"
#include "validation/quick_rules.h"
#include "validation/quick_tests.h"
#include "validation/record_block.h"
#include "validation/rule_sets.h"

namespace fiscalon {
namespace {

constexpr Date kThisDay = {.year = 2026, .month = 6, .day = 15};

class ShortCut : public ModuleTest {
 protected:
  Expectation Expecting(uint64_t cents) const {
    return {
        .paymentAmount = static_cast<double>(cents) / 100, .paymentCents = cents, .billerCode = "001052", .day = &day_};
  }

  static std::string Digits(uint64_t number) {
    const std::string digits = std::to_string(number);
    return std::string(18 - digits.size(), '0') + digits;
  }

  /// Whether it takes the payment. One that it takes must be good.
  static bool Takes(const RuleSet& rules, const BulkPayment& payment, const Expectation& expected) {
    const bool taken = PassesQuickly(rules, payment.Views(), expected);
    if (taken) {
      EXPECT_TRUE(FaultsOfRecords(rules, payment.Views(), expected).empty()) << payment.records.front() << "\n"
                                                                             << payment.records.back();
    }
    return taken;
  }

  bool TakesAgency(const std::string& number, const std::string& value, uint64_t cents = 12345) const {
    return Takes(kAgencyRules, AgencyPayment(With(GoodAgencyFields(), number, value)), Expecting(cents));
  }
  bool TakesQuebec(const std::string& number, const std::string& value, uint64_t cents = 12345) const {
    return Takes(kQuebecRules, QuebecPayment(With(GoodQuebecFields(), number, value)), Expecting(cents));
  }
  static bool TakesCount(uint64_t count) { return kQuickCount(Digits(count).c_str(), {}) != kNoDigits; }
  bool TakesPeriod(const std::string& period) const {
    return Takes(kQuebecRules, QuebecPayment(GoodQuebecFields(), {period}), Expecting(12345));
  }

  JudgingDay day_ = JudgingDayOf(kThisDay);
};

TEST_F(ShortCut, TakesEveryPaymentOfAGoodBatch) {
  for (const RuleSet* const rules : RuleSets()) {
    const std::string screen(rules->screenCode);
    constexpr size_t kPayments = 3000;
    std::ostringstream list, lines, planted;
    GenerateBatch({.payments = kPayments, .screen = screen, .today = kThisDay}, list, lines, planted);
    const std::string rowBytes = list.str();
    const std::string recordBytes = lines.str();
    RowReader rows;
    rows.Read(std::string_view(rowBytes).substr(kPaymentsHeader.size() + 1));
    RecordBlock records;
    records.Cut(recordBytes);
    ASSERT_EQ(records.PaymentCount(), kPayments);
    size_t taken = 0;
    size_t rowsTaken = 0;
    for (size_t i = 0; i < kPayments; ++i) {
      PaymentRow row;
      if (rows.NextQuickly(row))
        ++rowsTaken;
      else
        ASSERT_EQ(rows.Next(row), "");
      Expectation expected = Expecting(static_cast<uint64_t>(row.cents));
      expected.billerCode = row.biller;
      taken += PassesQuickly(*rules, records.Records(i), expected) ? 1 : 0;
    }
    EXPECT_EQ(taken, kPayments) << screen;
    // All rows but the last few, behind which there is no room to look ahead.
    EXPECT_GE(rowsTaken, kPayments - 3) << screen;
  }
}

TEST_F(ShortCut, TakesNothingThatATestRefuses) {
  // Each character of each field becomes every other one. What is taken, `Takes` holds against the tests one by one.
  size_t taken = 0;
  const auto spoil = [&](const RuleSet& rules, BulkPayment payment) {
    for (std::string& record : payment.records) {
      // Of a "T" record nothing is looked at behind the period.
      const size_t end = record[7] == 'T' ? 32 : 90;
      for (size_t at = 7; at < end; ++at) {
        const char kept = record[at];
        for (int byte = 0; byte < 256; ++byte) {
          record[at] = static_cast<char>(byte);
          taken += Takes(rules, payment, Expecting(12345)) ? 1 : 0;
        }
        record[at] = kept;
      }
    }
  };
  spoil(kAgencyRules, AgencyPayment(GoodAgencyFields()));
  spoil(kQuebecRules, QuebecPayment(GoodQuebecFields()));
  // Each of the places with what belongs there.
  EXPECT_GT(taken, 2u * 25 + 3 * 83);
}

TEST_F(ShortCut, TakesAmountsUpToTheLargestNumber) {
  constexpr uint64_t kLargest = 922'337'203'685'477;
  EXPECT_TRUE(TakesAgency("01", Digits(kLargest), kLargest));
  EXPECT_FALSE(TakesAgency("01", Digits(kLargest + 1), kLargest + 1));
  EXPECT_FALSE(TakesAgency("01", Digits(12346)));
  EXPECT_TRUE(TakesCount(kLargest));
  EXPECT_FALSE(TakesCount(kLargest + 1));
}

TEST_F(ShortCut, TakesCountsFromOneAndTypesFromOneToSix) {
  EXPECT_TRUE(TakesCount(1));
  EXPECT_FALSE(TakesCount(0));
  for (uint64_t type = 0; type <= 7; ++type) EXPECT_EQ(TakesQuebec("05", Digits(type)), type >= 1 && type <= 6) << type;
  EXPECT_FALSE(TakesQuebec("05", Digits(10)));
}

TEST_F(ShortCut, TakesWholeDollarsThatFitTheirTest) {
  EXPECT_TRUE(TakesAgency("03", Digits(0)));
  EXPECT_TRUE(TakesAgency("03", Digits(2'147'483'600)));
  EXPECT_FALSE(TakesAgency("03", Digits(10'000'000'000)));
  EXPECT_FALSE(TakesAgency("03", Digits(110)));
  EXPECT_FALSE(TakesAgency("03", Digits(2'147'483'700)));
  EXPECT_FALSE(TakesAgency("03", Digits(150)));
  EXPECT_FALSE(TakesAgency("03", Digits(201)));
}

TEST_F(ShortCut, TakesDatesOfTheYearsAround) {
  for (const char* date : {"20260131", "20260228", "20240229", "20280229", "20261231", "20260430"})
    EXPECT_TRUE(TakesAgency("02", date)) << date;
  for (const char* date : {"20260132", "20260229", "20260431", "20260001", "20261301", "20260100", "2026013",
                           "202601311", "20260 31", "20231231", "20290101"})
    EXPECT_FALSE(TakesAgency("02", date)) << date;
}

TEST_F(ShortCut, TakesThePeriodsOfTheLastFiveMonths) {
  for (const char* period : {"202602", "202603", "202604", "202605", "202606"})
    EXPECT_TRUE(TakesPeriod(period)) << period;
  for (const char* period : {"202601", "202607", "202600", "202613", "20260", "2026060", "2026 6", ""})
    EXPECT_FALSE(TakesPeriod(period)) << period;
}

TEST_F(ShortCut, TakesPeriodsAcrossTheTurnOfTheYear) {
  day_ = JudgingDayOf({.year = 2027, .month = 2, .day = 1});
  for (const char* period : {"202610", "202611", "202612", "202701", "202702"}) {
    const BulkPayment payment = QuebecPayment(GoodQuebecFields(), {period});
    EXPECT_TRUE(PassesQuickly(kQuebecRules, payment.Views(), Expecting(12345))) << period;
  }
  for (const char* period : {"202609", "202703", "202600", "202613", "202713"}) {
    const BulkPayment payment = QuebecPayment(GoodQuebecFields(), {period});
    EXPECT_FALSE(PassesQuickly(kQuebecRules, payment.Views(), Expecting(12345))) << period;
  }
}

TEST_F(ShortCut, TakesAFieldThatIsNotRequiredBlankOrZero) {
  EXPECT_TRUE(TakesQuebec("07", ""));
  EXPECT_TRUE(TakesQuebec("07", Digits(0)));
  EXPECT_FALSE(TakesQuebec("07", "0"));
  EXPECT_FALSE(TakesQuebec("07", Digits(1)));
  EXPECT_FALSE(TakesQuebec("07", "00000000000000000 "));
  EXPECT_FALSE(TakesQuebec("07", "100000000000000000"));
}

TEST_F(ShortCut, TakesTotalsUpToTenBillionDollars) {
  // The other fields make 10 dollars.
  constexpr uint64_t kOthers = 1000;
  constexpr uint64_t kLargest = 1'000'000'000'000;
  EXPECT_TRUE(TakesQuebec("06", Digits(kLargest - kOthers), kLargest));
  EXPECT_FALSE(TakesQuebec("06", Digits(kLargest - kOthers + 1), kLargest + 1));
  EXPECT_FALSE(TakesQuebec("06", Digits(11346)));
}

TEST_F(ShortCut, TakesFieldsInAnyOrder) {
  BulkPayment payment = AgencyPayment({{"04", Digits(12)}, {"01", Digits(12345)}, {"09", ""}, {"03", Digits(200)}});
  EXPECT_TRUE(Takes(kAgencyRules, payment, Expecting(12345)));
  EXPECT_FALSE(Takes(kAgencyRules, payment, Expecting(12346)));
  payment = AgencyPayment({{"01", Digits(12345)}, {"02", "20260531"}, {"03", Digits(200)}, {"05", Digits(12)}});
  EXPECT_FALSE(Takes(kAgencyRules, payment, Expecting(12345)));
  // A third "F" record begins as the first one does.
  Fields fields = GoodQuebecFields();
  for (const FreeFormatSlot& field : {fields[0], fields[1], fields[2], fields[3]}) fields.push_back(field);
  EXPECT_TRUE(Takes(kQuebecRules, QuebecPayment(fields), Expecting(12345)));
  fields[8].fieldValue = Digits(101);
  EXPECT_TRUE(Takes(kQuebecRules, QuebecPayment(fields), Expecting(12346)));
  EXPECT_FALSE(Takes(kQuebecRules, QuebecPayment(fields), Expecting(12345)));
}

TEST(HasNumberOf, LooksWhereTheNumberOfASlotStands) {
  // The mark, a sequence number and the kind, and then the number of the first slot.
  EXPECT_TRUE(HasNumberOf<0>("PC40001F01"));
  EXPECT_TRUE(HasNumberOf<8>("PC40001F09"));
  EXPECT_FALSE(HasNumberOf<0>("PC40001F02"));
  EXPECT_FALSE(HasNumberOf<0>("PC40001F11"));
  EXPECT_FALSE(HasNumberOf<0>("01        "));
}

TEST_F(ShortCut, TakesNoTotalUnderAComma) {
  SetLocale(FrenchCanada());
  EXPECT_FALSE(TakesQuebec("06", Digits(11345)));
  EXPECT_TRUE(TakesAgency("01", Digits(12345)));
}

TEST_F(ShortCut, TakesNoPaymentWithoutItsRecords) {
  EXPECT_FALSE(Takes(kAgencyRules, {}, Expecting(12345)));
  EXPECT_FALSE(Takes(kAgencyRules, AgencyPayment({}), Expecting(12345)));
  EXPECT_FALSE(Takes(kQuebecRules, QuebecPayment({}), Expecting(0)));
  EXPECT_FALSE(Takes(kQuebecRules, QuebecPayment(GoodQuebecFields(), {}), Expecting(12345)));
  BulkPayment cut = AgencyPayment(GoodAgencyFields());
  cut.records.back().resize(87);
  EXPECT_FALSE(Takes(kAgencyRules, cut, Expecting(12345)));
  // The last slot ends in column 88.
  cut.records.back().resize(88, '2');
  EXPECT_TRUE(Takes(kAgencyRules, cut, Expecting(12345)));
}

TEST_F(ShortCut, LooksAtRemittanceTypesOfTheirBillerAlone) {
  Expectation expected = Expecting(12345);
  const BulkPayment payment = QuebecPayment(With(GoodQuebecFields(), "05", Digits(7)));
  EXPECT_FALSE(Takes(kQuebecRules, payment, expected));
  expected.billerCode = "001051";
  EXPECT_TRUE(Takes(kQuebecRules, payment, expected));
}

}  // namespace
}  // namespace fiscalon
