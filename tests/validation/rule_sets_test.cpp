#include "validation/rule_sets.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>

#include "tests/support/bulk_payment.h"
#include "tests/support/logged_test.h"
#include "tests/support/module_test.h"
#include "validation/judge_payment.h"

namespace fiscalon {
namespace {

/// A field's value, and "valid" or the message behind its label.
struct Row {
  std::string value;
  std::string verdict;
};

class Rules : public ModuleTest {
 protected:
  static std::string Check(const BulkPayment& payment) {
    std::string reason = "before";
    const bool valid = PaymentJudge().Judge(
        {.screenCode = payment.screen, .billerCode = payment.biller, .cents = std::atoll(payment.amount.c_str())},
        payment.Views(), reason);
    EXPECT_EQ(valid, reason.empty());
    return valid ? "valid" : reason;
  }

  static std::string Agency(const std::string& number, const std::string& value) {
    return Check(AgencyPayment(With(GoodAgencyFields(), number, value)));
  }

  /// A payment of Revenue Quebec whose total is right whatever the value: `amount` is in cents.
  static std::string Quebec(const std::string& number, const std::string& value, const std::string& amount = "12345",
                            const std::string& biller = "001052") {
    BulkPayment payment = QuebecPayment(With(GoodQuebecFields(), number, value));
    payment.biller = biller;
    payment.amount = amount;
    return Check(payment);
  }

  static std::string Labelled(const std::string& label, const std::string& verdict) {
    return verdict == "valid" ? verdict : label + verdict;
  }
};

using AgencyRules = Rules;
using QuebecRules = Rules;

TEST_F(AgencyRules, AmountOfPayment) {
  const Row rows[] = {
      {"000000000000012345", "valid"},
      {"", " cannot be blank"},
      {"12345", " is invalid"},
      {" 00000000000012345", " is invalid"},
      {"00000000000001234X", " is invalid"},
      {"999999999999999999", " is invalid"},
      {"-00000000000012345", " cannot be less than 0"},
      {"00000000000012345-", " is invalid"},
      {"+00000000000012345", " is invalid"},
      {"000000000012345.00", " is invalid"},
      {"(0000000000012345)", " is invalid"},
      {"000000000000012346", " is not equal to amount to be paid"},
      {"922337203685477.58", "Error 6 - Overflow"},
  };
  for (const Row& row : rows) {
    const std::string label = row.verdict.front() == 'E' ? "" : "Field 01 Amount of Payment";
    EXPECT_EQ(Agency("01", row.value), Labelled(label, row.verdict)) << row.value;
  }
}

TEST_F(AgencyRules, EndOfRemittingPeriod) {
  const Row rows[] = {
      {"20260531", "valid"},        {"20240101", "valid"},       {"20281231", "valid"},
      {"20240229", "valid"},        {"", " cannot be blank"},    {"2026053", " is invalid"},
      {"202605311", " is invalid"}, {"20260229", " is invalid"}, {"20231231", " is invalid"},
      {"20290101", " is invalid"},  {"20261301", " is invalid"}, {"20260500", " is invalid"},
  };
  for (const Row& row : rows)
    EXPECT_EQ(Agency("02", row.value), Labelled("Field 02 End of Remitting Period", row.verdict)) << row.value;
}

TEST_F(AgencyRules, APeriodThatIsNoNumberIsTheOnlyReason) {
  Fields fields = With(GoodAgencyFields(), "01", "");
  EXPECT_EQ(Check(AgencyPayment(With(fields, "02", "2026AB31"))), "Error 13 - Type mismatch");
}

TEST_F(AgencyRules, GrossPayroll) {
  const Row rows[] = {
      {"000000000000500000", "valid"},
      {"000000000000000000", "valid"},
      {"", " cannot be blank"},
      {"500000", " is invalid"},
      {"00000000000050000X", " is invalid"},
      {"-00000000000500000", " cannot be less than 0"},
      {"000000000000012345", " cannot have decimal value or invalid"},
      {"00000000000500000-", " cannot have decimal value or invalid"},
      {"000000000005000.00", " cannot have decimal value or invalid"},
  };
  for (const Row& row : rows)
    EXPECT_EQ(Agency("03", row.value), Labelled("Field 03 Gross Payroll in Remitting Period", row.verdict))
        << row.value;
}

TEST_F(AgencyRules, NumberOfEmployees) {
  const Row rows[] = {
      {"000000000000000012", "valid"},
      {"000000000000000001", "valid"},
      {"", " cannot be blank"},
      {"12", " is invalid"},
      {"000000000000000000", " is invalid"},
      {"-00000000000000012", " is invalid"},
      {"0000000000000012.0", " is invalid"},
      {"00000000000000001X", " is invalid"},
  };
  for (const Row& row : rows)
    EXPECT_EQ(Agency("04", row.value), Labelled("Field 04 Number of Employees", row.verdict)) << row.value;
}

TEST_F(AgencyRules, ANumberThatTheScreenLacksMustBeBlankOrZero) {
  for (const char* value : {"", "000000000000000000", "0", "-0", "0.00", "$0.00", "  0"})
    EXPECT_EQ(Agency("05", value), "valid") << value;
  for (const char* value : {"1", "000000000000000001", "abc", "-", "0.001"})
    EXPECT_EQ(Agency("05", value), "Field 05 is not required") << value;
  EXPECT_EQ(Agency("00", "1"), "Field 00 is not required");
  EXPECT_EQ(Agency("1", "1"), "Field 1  is not required");
  EXPECT_EQ(Agency("", "1"), "Field    is not required");
}

TEST_F(AgencyRules, AllFailuresStandInTheOrderOfTheSlots) {
  EXPECT_EQ(Check(AgencyPayment({{"04", ""}, {"03", "1"}, {"01", "000000000000012346"}, {"09", "x"}})),
            "Field 04 Number of Employees cannot be blank, "
            "Field 03 Gross Payroll in Remitting Period is invalid, "
            "Field 01 Amount of Payment is not equal to amount to be paid, "
            "Field 09 is not required");
}

TEST_F(AgencyRules, NoFieldNeedsToBePresent) {
  EXPECT_EQ(Check(AgencyPayment({{"01", "000000000000012345"}, {"02", "20260531"}})), "valid");
  EXPECT_EQ(Check(AgencyPayment({{"01", "000000000000012345"}, {"01", "1"}})), "Field 01 Amount of Payment is invalid");
}

TEST_F(AgencyRules, WithoutAFreeFormatRecordTheRecordIsMissing) {
  EXPECT_EQ(Check(AgencyPayment({})), "Record for required fields is missing");
  EXPECT_EQ(Check({}), "Record for required fields is missing");
}

TEST_F(AgencyRules, AShortRecordHasShortAndEmptyFields) {
  BulkPayment payment;
  payment.records = {"PC40001F01"};
  EXPECT_EQ(Check(payment), "Field 01 Amount of Payment cannot be blank");
  payment.records = {"PC40001F01000000000000012345022026"};
  EXPECT_EQ(Check(payment), "Field 02 End of Remitting Period is invalid");
  payment.records = {"PC40001F"};
  EXPECT_EQ(Check(payment), "valid");
}

TEST_F(AgencyRules, TheNumericTestFollowsTheUsersLocale) {
  EXPECT_EQ(Agency("05", "0,0"), "valid");
  SetLocale(FrenchCanada());
  EXPECT_EQ(Agency("05", "0,0"), "valid");
  EXPECT_EQ(Agency("05", "0.0"), "Field 05 is not required");
  EXPECT_EQ(Agency("01", "000000000000012345"), "valid");
}

TEST_F(QuebecRules, EachAmount) {
  const std::pair<std::string, std::string> fields[] = {
      {"01", "Field 01 Income tax withheld and compensation tax"},
      {"02", "Field 02 QPP contributions"},
      {"03", "Field 03 Contribution to the health services fund"},
      {"04", "Field 04 QPIP premiums"},
      {"06", "Field 06 CSST payments"},
  };
  const int cents[] = {100, 200, 300, 400, 11345};
  for (size_t i = 0; i < std::size(fields); ++i) {
    const auto& [number, label] = fields[i];
    const std::string without = std::to_string(12345 - cents[i]);
    EXPECT_EQ(Quebec(number, "", without), label + " cannot be blank");
    EXPECT_EQ(Quebec(number, "0", without), label + " is invalid");
    EXPECT_EQ(Quebec(number, "XXXXXXXXXXXXXXXXXX", without), label + " is invalid");
    EXPECT_EQ(Quebec(number, "-00000000000000001", std::to_string(12345 - cents[i] - 1)),
              label + " cannot be less than 0");
    EXPECT_EQ(Quebec(number, "00000000000000001-", std::to_string(12345 - cents[i] + 1)), label + " is invalid");
    EXPECT_EQ(Quebec(number, "000000000000000000", without), "valid");
  }
}

TEST_F(QuebecRules, RemittanceType) {
  for (int type = 1; type <= 6; ++type) EXPECT_EQ(Quebec("05", "00000000000000000" + std::to_string(type)), "valid");
  EXPECT_EQ(Quebec("05", ""), "Field 05 Remittance Type cannot be blank");
  for (const char* value : {"3", "00000000000000000X", "000000000000000000", "000000000000000007", "-00000000000000003",
                            "00000000000000003-"})
    EXPECT_EQ(Quebec("05", value), "Field 05 Remittance Type is invalid") << value;
}

TEST_F(QuebecRules, OtherBillersHaveNoRemittanceType) {
  for (const char* biller : {"001051", "", "1052"}) {
    EXPECT_EQ(Quebec("05", "000000000000000007", "12345", biller), "valid");
    EXPECT_EQ(Quebec("05", "anything", "12345", biller), "valid");
  }
}

TEST_F(QuebecRules, ANumberThatTheScreenLacksMustBeBlankOrZero) {
  EXPECT_EQ(Quebec("07", ""), "valid");
  EXPECT_EQ(Quebec("07", "1"), "Field 07 is not required");
  EXPECT_EQ(Quebec("09", "x"), "Field 09 is not required");
}

TEST_F(QuebecRules, ThePeriodLiesInTheLastFiveMonths) {
  constexpr const char* kMessage = "Remittance Period must be in the form YYYYMM and be within the last 4 months";
  for (const char* period : {"202606", "202602"})
    EXPECT_EQ(Check(QuebecPayment(GoodQuebecFields(), {period})), "valid") << period;
  for (const char* period : {"202601", "202607", "202613", "20260", "", "20260601"})
    EXPECT_EQ(Check(QuebecPayment(GoodQuebecFields(), {period})), kMessage) << period;
  EXPECT_EQ(Check(QuebecPayment(GoodQuebecFields(), {"202601", "202606", "202607"})),
            std::string(kMessage) + ", " + kMessage);
}

TEST_F(QuebecRules, APeriodThatIsNoNumberPasses) {
  EXPECT_EQ(Check(QuebecPayment(GoodQuebecFields(), {"2026AB"})), "valid");
  EXPECT_EQ(Check(QuebecPayment(GoodQuebecFields(), {"999999"})), "valid");
}

TEST_F(QuebecRules, MissingRecords) {
  EXPECT_EQ(Check(QuebecPayment(GoodQuebecFields(), {})), "Record for Remittance Period is missing");
  EXPECT_EQ(Check(QuebecPayment({})), "Records for other required fields are missing");
  EXPECT_EQ(Check(QuebecPayment({}, {})),
            "Record for Remittance Period is missing, Records for other required fields are missing");
}

TEST_F(QuebecRules, PeriodsComeFirstWhereverTheirRecordsStand) {
  BulkPayment payment = QuebecPayment(With(GoodQuebecFields(), "07", "1"), {"202601"});
  std::swap(payment.records.front(), payment.records.back());
  EXPECT_EQ(Check(payment),
            "Remittance Period must be in the form YYYYMM and be within the last 4 months, Field 07 is not required");
}

TEST_F(QuebecRules, TheAmountsMustMakeThePayment) {
  constexpr const char* kMessage = "The Amount Payable must match the Amount to be paid";
  EXPECT_EQ(Quebec("06", "000000000000011346"), kMessage);
  EXPECT_EQ(Quebec("06", "000000000000011346", "12346"), "valid");
  EXPECT_EQ(Quebec("01", "", "12345"),
            "Field 01 Income tax withheld and compensation tax cannot be blank, " + std::string(kMessage));
}

TEST_F(QuebecRules, AMissingAmountCountsAsZero) {
  Fields fields = GoodQuebecFields();
  fields[5].fieldNum = "07";
  fields[5].fieldValue = "";
  BulkPayment payment = QuebecPayment(fields);
  payment.amount = "1000";
  EXPECT_EQ(Check(payment), "valid");
}

TEST_F(QuebecRules, OfANumberThatComesTwiceTheLaterCounts) {
  Fields fields = GoodQuebecFields();
  fields[6] = {"01", "000000000000000101"};
  BulkPayment payment = QuebecPayment(fields);
  EXPECT_EQ(Check(payment), "The Amount Payable must match the Amount to be paid");
  payment.amount = "12346";
  EXPECT_EQ(Check(payment), "valid");
}

TEST_F(QuebecRules, UnderACommaTheTotalReadsBackWithoutItsCents) {
  SetLocale(FrenchCanada());
  EXPECT_EQ(Quebec("06", "000000000000011345"), "The Amount Payable must match the Amount to be paid");
  EXPECT_EQ(Quebec("06", "000000000000011345", "12300"), "valid");
}

TEST_F(QuebecRules, AValueBeyondAllFloatsIsTheOnlyReason) {
  EXPECT_EQ(Quebec("01", "1e9999999999999999"), "Error 6 - Overflow");
}

TEST_F(Rules, OtherScreensHaveNone) {
  EXPECT_EQ(Check({.screen = "04"}), "Invalid or not supported Screen Type");
  EXPECT_EQ(RulesOf("04"), nullptr);
  EXPECT_EQ(RulesOf("20")->screenCode, "20");
}

using LoggedRules = LoggedTest;

TEST_F(LoggedRules, AreHeldTestByTestWithoutALog) {
  // A period that can't be read passes, and would be an error in the log.
  const BulkPayment payment = QuebecPayment(GoodQuebecFields(), {"2026AB"});
  const JudgingDay day = JudgingDayOf({.year = 2026, .month = 6, .day = 15});
  EXPECT_TRUE(PassEveryTest(kQuebecRules, payment.Views(),
                            {.paymentCents = 12345, .billerCode = "001052", .day = &day, .logging = Logging::Errors}));
  EXPECT_FALSE(std::filesystem::exists(folder.Path("error.log")));
}

TEST(QuickTests, BelongToTheirRuleSets) {
  const JudgingDay day = JudgingDayOf({.year = 2026, .month = 6, .day = 15});
  const Expectation expected = {.paymentAmount = 123.45, .paymentCents = 12345, .billerCode = "001052", .day = &day};
  const BulkPayment agency = AgencyPayment(GoodAgencyFields());
  const BulkPayment quebec = QuebecPayment(GoodQuebecFields());
  EXPECT_TRUE(PassesQuickly(kAgencyRules, agency.Views(), expected));
  EXPECT_TRUE(PassesQuickly(kQuebecRules, quebec.Views(), expected));
  EXPECT_FALSE(PassesQuickly(kAgencyRules, quebec.Views(), expected));
  EXPECT_FALSE(PassesQuickly(kQuebecRules, agency.Views(), expected));
}

}  // namespace
}  // namespace fiscalon
