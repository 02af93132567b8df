#include "screens/federal/individual_tax.h"

#include <gmock/gmock.h>

#include "tests/support/payment_test.h"
#include "tests/support/random_acts.h"
#include "tests/support/ruled_record.h"
#include "tests/support/told_form.h"

namespace fiscalon::individual_tax_test {
namespace {

using testing::ElementsAre;

const bool kFormTold = Tell(
    {.codes = {"04"},
     .routine = "ShowIndividualForm",
     .form = "GOVINDIDUAL",
     .controls = {"2 PayYear", "3 PaymentAmount", "15 PayeeName", "- Command3D6", "- Command3D5", "- Command3D4"}});

constexpr const char* kAskYear = "Please enter instalment payment year.";
constexpr const char* kAskAmount = "Please enter amount of payment.";
constexpr const char* kBelowZero = "Amount of Payment cannot be less than 0.";
constexpr const char* kOtherAmount = "Amount of Payment is not equal to amount to be paid.";
constexpr const char* kZero = "Payment amount cannot be 0.";

// clang-format off
const std::string kRecordT =
    // head  |start   |end     |due     |filler1 |contact name                  |contact title       |filler2   |
    "PC40001T                                Jane Doe                      Clerk                         ";
const std::string kRecordF =
    // head  |year                |amount              |nothing             |nothing             |
    "PC40001F012026              02000000000000012345                                        ";
// clang-format on

class IndividualTaxPayment : public PaymentTest<GOVINDIDUAL> {
 protected:
  IndividualTaxPayment() : PaymentTest("12345") {}

  std::string Code() const override { return "04"; }
  void FillIn(GOVINDIDUAL& /*form*/, UserDriver& user) const override { Type(user, "2026"); }
  Button& OkButton(GOVINDIDUAL& form) const override { return form.Command3D6; }

  std::span<const Row> Rows() const override {
    static constexpr Row kRows[] = {
        {.name = "year is missing",
         .spoil = [](GOVINDIDUAL& form) { form.PayYear.Text("  "); },
         .message = kAskYear,
         .focus = "PayYear"},
        {.name = "year is short", .spoil = [](GOVINDIDUAL& form) { form.PayYear.Text(" 202 "); }, .focus = "PayYear"},
        {.name = "year is before 1900",
         .spoil = [](GOVINDIDUAL& form) { form.PayYear.Text("1899"); },
         .focus = "PayYear"},
        {.name = "amount is missing",
         .spoil = [](GOVINDIDUAL& form) { form.PaymentAmount.Text("  "); },
         .message = kAskAmount,
         .focus = "PaymentAmount"},
        {.name = "amount is below zero",
         .spoil = [](GOVINDIDUAL& form) { form.PaymentAmount.Text("-123.45"); },
         .message = kBelowZero,
         .focus = "PaymentAmount"},
        {.name = "amount is none",
         .spoil = [](GOVINDIDUAL& form) { form.PaymentAmount.Text("123.45a"); },
         .focus = "PaymentAmount"},
        {.name = "amount is another one",
         .spoil = [](GOVINDIDUAL& form) { form.PaymentAmount.Text("12346"); },
         .message = kOtherAmount,
         .focus = "PaymentAmount"},
        {.name = "amount is zero",
         .spoil =
             [](GOVINDIDUAL& form) {
               form.head.AmountPaid.Caption("0.00");
               form.PaymentAmount.Text("0");
             },
         .message = kZero,
         .focus = "PaymentAmount"},
    };
    return kRows;
  }

  std::vector<std::string> Expected() const override { return {kRecordT, kRecordF}; }
};

using IndividualTaxRecords = IndividualTaxPayment;
const bool kTestsAdded = AddOkPathTests<IndividualTaxPayment>("IndividualTaxOkPath") &&
                         AddRecordsTests<IndividualTaxPayment>("IndividualTaxRecords");

TEST_F(IndividualTaxRecords, AreMadeByEnterInTheAmountToo) {
  EXPECT_TRUE(Show<GOVINDIDUAL>("04", [](GOVINDIDUAL&, UserDriver& user) { Type(user, "2026\r\r"); }));
  EXPECT_THAT(Records(), ElementsAre(Ruled(kRecordT), Ruled(kRecordF)));
}

TEST_F(IndividualTaxRecords, AreMadeOfTrimmedEntries) {
  EXPECT_TRUE(Show<GOVINDIDUAL>("04", [](GOVINDIDUAL& form, UserDriver& user) {
    form.PayYear.Text(" 2026 ");
    form.PaymentAmount.Text(" 12345 ");
    user.Click(form.Command3D6);
  }));
  EXPECT_THAT(Records(), ElementsAre(Ruled(kRecordT), Ruled(kRecordF)));
}

class IndividualTax : public ScreenTest {
 protected:
  IndividualTax() {
    session.SeqNumber("0001");
    session.PaidAmount("12345");
  }
};

TEST_F(IndividualTax, FieldsFitTheirEntries) {
  const GOVINDIDUAL form;
  EXPECT_EQ(form.PayYear.MaxLength(), 4);
  EXPECT_EQ(form.PaymentAmount.MaxLength(), 12);
}

TEST_F(IndividualTax, EnterInAYearOfFiveDigitsKeepsTheFocus) {
  Show<GOVINDIDUAL>("04", [](GOVINDIDUAL& form, UserDriver& user) {
    form.PayYear.Text("20261");
    Type(user, "\r");
    EXPECT_EQ(user.FocusName(), "PayYear");
    EXPECT_EQ(form.PayYear.Text(), "20261");
  });
}

TEST_F(IndividualTax, BlanksAroundAYearDoNotMakeItLonger) {
  Show<GOVINDIDUAL>("04", [](GOVINDIDUAL& form, UserDriver& user) {
    form.PayYear.Text(" 2026 ");
    Type(user, "\r");
    EXPECT_EQ(user.FocusName(), "PaymentAmount");
    EXPECT_EQ(form.PayYear.Text(), "2026");
  });
}

// The shown amount is what an entry is compared with, not the host's.
TEST_F(IndividualTax, AmountIsComparedWithTheOneOnTheScreen) {
  EXPECT_TRUE(Show<GOVINDIDUAL>("04", [](GOVINDIDUAL& form, UserDriver& user) {
    Type(user, "2026\r");
    form.head.AmountPaid.Caption("678.90");
    Type(user, "67890\r");
  }));
  ASSERT_EQ(Records().size(), 2U);
  // head  |year                |amount              |
  EXPECT_EQ(Records()[1], Ruled("PC40001F012026              02000000000000067890"));
}

class IndividualTaxRandomly : public RandomActsTest<GOVINDIDUAL> {
 protected:
  /// Keys and OK let failures out: an amount beyond all amounts.
  bool MayFail(const RuntimeError& error) const override { return error.Number() == 6; }

  void ExpectRecordsOf(const std::string& seqNumber, const RandomPayment& payment) override {
    const std::vector<std::string> records = Records();
    ASSERT_EQ(records.size(), 2U);
    EXPECT_EQ(records[0],
              Ruled("PC4" + seqNumber + "T" + std::string(32, ' ') + "Jane Doe" + std::string(22, ' ') + "Clerk"));
    ASSERT_EQ(records[1].size(), 160U);
    const std::string year = records[1].substr(10, 4);
    EXPECT_EQ(records[1], Ruled("PC4" + seqNumber + "F01" + year + std::string(14, ' ') + "02" + payment.field));
    EXPECT_TRUE(year >= "1900" && year <= "9999") << year;
  }
};

TEST_F(IndividualTaxRandomly, NoActsLeadToACrashOrABadRecord) {
  const std::vector<RandomPayment> payments = {{"12345", "000000000000012345"}, {"12345", "000000000000012345"},
                                               {"5", "000000000000000005"},     {"0", "no record"},
                                               {"-12345", "no record"},         {"1E30", "no record"}};
  const RandomUser random(20260615, {"2026", "2026", "1900", "1899", "999", "12345", "12345", "123.45", "0", "5", "-5",
                                     "1E20", "999999999999"});
  Play("04", random, payments);
}

}  // namespace
}  // namespace fiscalon::individual_tax_test
