// Payments for trials: the numbers they are drawn by, the good ones of each screen, and what each defect makes of one.

#include "validation/trial_payments.h"

#include <gtest/gtest.h>

#include <sstream>

#include "core/records/record_composer.h"
#include "tests/support/ruled_record.h"
#include "validation/generate_batch.h"
#include "validation/rule_sets.h"

namespace fiscalon {
namespace {

constexpr Date kDrawnOn = {.year = 2026, .month = 6, .day = 15};

/// The slots of a payment, as "01=000000000000012345", a blank between them.
std::string Slots(const Draft& payment) {
  std::string told;
  for (const FreeFormatSlot& slot : payment.slots)
    told += (told.empty() ? "" : " ") + slot.fieldNum + "=" + slot.fieldValue;
  return told;
}

TEST(Dice, RollTheNumbersOfTheirSeed) {
  // Those that the generator's authors give for this seed.
  Dice dice(1234567);
  for (const uint64_t number : {6457827717110365317u, 3203168211198807973u, 9817491932198370423u, 4593380528125082431u})
    EXPECT_EQ(dice.Roll(), number);
}

TEST(Dice, TakeAChanceBelowTheRate) {
  // A seed whose first roll is half of all there are, and one whose first roll is nothing.
  constexpr uint64_t kHalf = 0x2FEDF1EFCE1D5545;
  constexpr uint64_t kNothing = 0x61C8864680B583EB;
  ASSERT_EQ(Dice(kHalf).Roll(), uint64_t{1} << 63);
  ASSERT_EQ(Dice(kNothing).Roll(), 0u);
  EXPECT_FALSE(Dice(kHalf).Chance(0.5));
  EXPECT_TRUE(Dice(kHalf).Chance(0.5000001));
  EXPECT_FALSE(Dice(kNothing).Chance(0));
  EXPECT_TRUE(Dice(kNothing).Chance(0.0000001));
}

TEST(Digits, FillAValueWithZerosInFront) {
  EXPECT_EQ(Digits(7), "000000000000000007");
  EXPECT_EQ(Digits(123'456'789'012'345'678), "123456789012345678");
  EXPECT_EQ(Digits(18'446'744'073'709'551'615u), "18446744073709551615");
}

TEST(TrialPayments, OfTheAgencyAreDrawnFieldByField) {
  Dice dice(1);
  const Draft payment = kAgencyRules.trial->goodPayment(dice, kDrawnOn);
  EXPECT_EQ(payment.biller, "");
  EXPECT_EQ(payment.period, "");
  EXPECT_TRUE(payment.hasPeriodRecord);
  EXPECT_EQ(payment.cents, 822'466u);
  // The 235th day of the year, counted from 1; 2,890,591 dollars.
  EXPECT_EQ(Slots(payment), "01=000000000000822466 02=20260823 03=000000000289059100 04=000000000000000236");
}

TEST(TrialPayments, OfRevenueQuebecAreDrawnFieldByField) {
  Dice dice(1);
  const Draft payment = kQuebecRules.trial->goodPayment(dice, kDrawnOn);
  EXPECT_EQ(payment.biller, "001052");
  EXPECT_EQ(payment.period, "202606");
  EXPECT_TRUE(payment.hasPeriodRecord);
  EXPECT_EQ(payment.cents, 6'428'520u + 2'890'591 + 1'780'236 + 6'968'762 + 3'867'046);
  EXPECT_EQ(Slots(payment),
            "01=000000000006428520 02=000000000002890591 03=000000000001780236 04=000000000006968762 "
            "05=000000000000000003 06=000000000003867046 07=000000000000000000 08=000000000000000000");
}

TEST(TrialPayments, HoldAmountsFromOneCentAndDatesFromNewYear) {
  // Their first roll is nothing: the least of what is drawn first.
  constexpr uint64_t kNothing = 0x61C8864680B583EB;
  Dice agency(kNothing), quebec(kNothing);
  EXPECT_EQ(kAgencyRules.trial->goodPayment(agency, kDrawnOn).cents, 1u);
  EXPECT_EQ(kQuebecRules.trial->goodPayment(quebec, kDrawnOn).period, "202606");
}

/// A payment whose values show which of their characters went.
Draft Unspoilt() {
  return {.biller = "001052",
          .cents = 500,
          .period = "202605",
          .slots = {{"01", "123456789012345678"},
                    {"02", "20260531"},
                    {"03", "345678901234567890"},
                    {"04", "456789012345678901"},
                    {"05", "567890123456789012"},
                    {"06", "678901234567890123"},
                    {"07", "000000000000000000"}}};
}

/// What a defect makes of that payment: all that differs.
std::string Spoilt(const Defect& defect) {
  const Draft before = Unspoilt();
  Draft payment = before;
  defect.Plant(payment);
  EXPECT_EQ(defect.field == 0, defect.spoilPayment != nullptr) << defect.name;
  std::string told;
  if (payment.biller != before.biller)
    told += "biller " + payment.biller;
  if (payment.cents != before.cents)
    told += "cents " + std::to_string(payment.cents);
  if (payment.period != before.period)
    told += "period " + payment.period;
  if (!payment.hasPeriodRecord)
    told += "no period";
  for (size_t i = 0; i < payment.slots.size(); ++i) {
    const FreeFormatSlot& slot = payment.slots[i];
    if (i >= before.slots.size() || slot.fieldNum != before.slots[i].fieldNum ||
        slot.fieldValue != before.slots[i].fieldValue)
      told += slot.fieldNum + "=" + slot.fieldValue;
  }
  return payment.slots.empty() ? told + "no fields" : told;
}

struct Spoiling {
  std::string name;
  std::string difference;

  friend bool operator==(const Spoiling&, const Spoiling&) = default;
  friend std::ostream& operator<<(std::ostream& out, const Spoiling& row) {
    return out << row.name << ": " << row.difference;
  }
};

std::vector<Spoiling> SpoilingsOf(const RuleSet& rules) {
  std::vector<Spoiling> rows;
  for (const Defect& defect : rules.trial->defects) rows.push_back({std::string(defect.name), Spoilt(defect)});
  return rows;
}

TEST(TrialPayments, OfTheAgencyAreSpoiltInThisWay) {
  const std::vector<Spoiling> rows = {
      {"01 blank", "01="},
      {"01 short", "01=23456789012345678"},
      {"01 letter", "01=23456789012345678X"},
      {"01 negative", "01=-23456789012345678"},
      {"01 trailing sign", "01=23456789012345678-"},
      {"01 one cent more", "01=123456789012345679"},
      {"02 blank", "02="},
      {"02 short", "02=2026053"},
      {"02 month 13", "02=20261331"},
      {"02 long ago", "02=19990531"},
      {"02 letters", "02=2026AB31"},
      {"03 blank", "03="},
      {"03 short", "03=45678901234567890"},
      {"03 letter", "03=45678901234567890X"},
      {"03 negative", "03=-45678901234567890"},
      {"03 cents", "03=345678901234567891"},
      {"03 too large", "03=000000002147483700"},
      {"04 blank", "04="},
      {"04 short", "04=56789012345678901"},
      {"04 letter", "04=56789012345678901X"},
      {"04 zero", "04=000000000000000000"},
      {"04 trailing sign", "04=56789012345678901-"},
      {"unused field", "09=1"},
      {"no fields", "no fields"},
  };
  EXPECT_EQ(SpoilingsOf(kAgencyRules), rows);
}

TEST(TrialPayments, OfRevenueQuebecAreSpoiltInThisWay) {
  const std::vector<Spoiling> rows = {
      {"01 short", "01=23456789012345678"},
      {"01 blank", "01="},
      {"01 negative", "01=-23456789012345678"},
      {"02 letter", "02=0260531X"},
      {"02 trailing sign", "02=0260531-"},
      {"03 short", "03=45678901234567890"},
      {"04 letter", "04=56789012345678901X"},
      {"05 blank", "05="},
      {"05 zero", "05=000000000000000000"},
      {"05 seven", "05=000000000000000007"},
      {"06 trailing sign", "06=78901234567890123-"},
      {"06 one cent more", "06=678901234567890124"},
      {"07 used", "07=000000000000000001"},
      {"other amount", "cents 501"},
      {"old period", "period 199001"},
      {"short period", "period 20260"},
      {"no period", "no period"},
      {"no fields", "no fields"},
  };
  EXPECT_EQ(SpoilingsOf(kQuebecRules), rows);
}

/// The three files of a batch.
struct Written {
  explicit Written(const BatchPlan& plan) {
    std::ostringstream listed, recorded, told;
    GenerateBatch(plan, listed, recorded, told);
    list = listed.str();
    records = recorded.str();
    planted = told.str();
  }

  std::string list;
  std::string records;
  std::string planted;
};

TEST(GenerateBatch, WritesPaymentsTheirRecordsAndWhatIsWrongWithThem) {
  // The rolls behind the two payments' own say which defects they get.
  const Written batch({.payments = 2, .badRate = 1, .seed = 1, .today = kDrawnOn});
  EXPECT_EQ(batch.list,
            "seq,screen,biller,amount\n"
            "0001,03,,822466\n"
            "0002,03,,43867046\n");
  EXPECT_EQ(batch.planted,
            "row,seq,defect,reason\n"
            "1,0001,02 month 13,Field 02 End of Remitting Period is invalid\n"
            "2,0002,unused field,Field 09 is not required\n");
  EXPECT_EQ(batch.records, QuotedLine(Ruled("PC40001T")) +
                               QuotedLine(Ruled("PC40001F"
                                                "01000000000000822466"
                                                "0220261323          "
                                                "03000000000289059100"
                                                "04000000000000000236")) +
                               QuotedLine(Ruled("PC40002T")) +
                               QuotedLine(Ruled("PC40002F"
                                                "01000000000043867046"
                                                "0220260409          "
                                                "03000000001235652100"
                                                "04000000000000001951")) +
                               QuotedLine(Ruled("PC40002F091")));
}

TEST(GenerateBatch, BeginsItsNumbersAgainBehindTheLastOfFourDigits) {
  const Written batch({.payments = 10'000, .today = kDrawnOn});
  std::istringstream lines(batch.list);
  std::string line;
  for (int row = 0; row <= 9999; ++row) std::getline(lines, line);
  EXPECT_EQ(line.substr(0, 5), "9999,");
  std::getline(lines, line);
  EXPECT_EQ(line.substr(0, 5), "0001,");
}

TEST(GenerateBatch, HasNoPaymentAndNoDefectUnlessItIsAskedFor) {
  EXPECT_EQ(Written({.today = kDrawnOn}).list, "seq,screen,biller,amount\n");
  const Written usual({.payments = 500, .today = kDrawnOn});
  EXPECT_EQ(usual.planted, "row,seq,defect,reason\n");
  EXPECT_EQ(usual.list, Written({.payments = 500, .screen = "03", .badRate = 0, .seed = 1, .today = kDrawnOn}).list);
}

}  // namespace
}  // namespace fiscalon
