#include "screens/quebec/gst_return.h"

#include "tests/screens/quebec/return_test.h"
#include "tests/support/told_form.h"

namespace fiscalon::gst_return_test {
namespace {

using testing::ElementsAre;

const bool kFormTold =
    Tell({.codes = {"28"},
          .routine = "ShowQue_Rev_GSTForm",
          .form = "frmQue_Rev_GST",
          .controls = {"0 txtPeriodFrom", "1 txtPeriodTo", "2 txtSupplies", "3 txtTaxCollectible", "4 txtITRs",
                       "5 txtInstalments", "6 txtOtherRebates", "7 txtNewHousingRebates", "8 txtExemptSupplies",
                       "9 txtAssociatesTaxableSales", "10 txtPensionPlanRebate", "11 cmdOK", "12 cmdCancel",
                       "25 txtAmountPayable"},
          .escape = "cmdCancel"});

constexpr const char* kExempt =
    "The Exempt supplies, zero-rated exports, and other sales (91) must be less than or equal to Supplies (sales "
    "figure) (101).";

// clang-format off
const std::string kRecordT =
    // head  |start   |end     |due     |filler1 |contact name                  |contact title       |filler2   |
    "PC40001T2026040120260531                Jane Doe                      Clerk                         ";
const std::string kRecordF1 =
    // head  |supplies            |tax collectible     |ITCs                |instalments         |
    "PC40001F01000000000001000000020000000000001500000300000000000008000004000000000000015000";
const std::string kRecordF2 =
    // head  |balance             |other rebates       |housing rebate      |pension rebate      |
    "PC40001F05000000000000050000060000000000000050000700000000000000120008000000000000001800";
const std::string kRecordF3 =
    // head  |exempt supplies     |associates' sales   |no slot             |no slot             |
    "PC40001F0900000000000025000010000000000000400000                                        ";
// clang-format on

class GstReturn : public ReturnTest<frmQue_Rev_GST> {
 protected:
  GstReturn() : ReturnTest("50000") {}

  std::string Code() const override { return "28"; }
  // Supplies of 10,000.00, a balance of 1,500.00 - 800.00 - 150.00 - 50.00 = 500.00, and what is only reported.
  void FillIn(frmQue_Rev_GST& /*form*/, UserDriver& user) const override {
    Type(user, "20260401");
    Type(user, "20260531");
    Type(user, "1000000\r150000\r80000\r15000\r5000\r1200\r250000\r400000\r1800\r");
  }
  Button& OkButton(frmQue_Rev_GST& form) const override { return form.cmdOK; }

  // The first two tests exclude each other: what spoils the form for the first one mends it for the second.
  std::span<const Row> Rows() const override {
    static constexpr Row kRows[] = {
        {.name = "refund of a payment",
         .spoil = [](frmQue_Rev_GST& form) { form.tax.Payable.Text("-0.01"); },
         .message = kRefund,
         .focus = "txtTaxCollectible"},
        {.name = "balance is another amount",
         .spoil = [](frmQue_Rev_GST& form) { form.tax.Payable.Text("500.01"); },
         .message = kMatch,
         .focus = "txtTaxCollectible"},
        {.name = "exempt supplies exceed the supplies",
         .spoil = [](frmQue_Rev_GST& form) { form.txtExemptSupplies.Text("10000.01"); },
         .message = kExempt,
         .focus = "txtExemptSupplies"},
    };
    return kRows;
  }

  std::vector<std::string> Expected() const override { return {kRecordT, kRecordF1, kRecordF2, kRecordF3}; }
};

const bool kTestsAdded = AddOkPathTests<GstReturn>("GstReturnOkPath") && AddRecordsTests<GstReturn>("GstReturnRecords");

TEST_F(GstReturn, RefusesAnEmptyBalanceAsIfItWereARefund) {
  ExpectRefusal([](frmQue_Rev_GST& form) { form.tax.Payable.Text(""); }, kRefund, "txtTaxCollectible");
}

TEST_F(GstReturn, AcceptsTheBalanceAsTheLastCheckLeftIt) {
  EXPECT_TRUE(EnterAndPressOk([](frmQue_Rev_GST& form) { form.tax.Credits.Text("9.99"); }));
  EXPECT_EQ(Records()[1].substr(48, 20), "03000000000000000999");
  EXPECT_EQ(Records()[2].substr(8, 20), "05000000000000050000");
}

TEST_F(GstReturn, ComparesExemptSuppliesAsTheyStand) {
  EXPECT_TRUE(EnterAndPressOk([](frmQue_Rev_GST& form) { form.txtExemptSupplies.Text("10000.00"); }));
  EXPECT_EQ(Records()[3].substr(8, 20), "09000000000001000000");
}

TEST_F(GstReturn, RefusesExemptSuppliesByTheCaptionsAsTheyStand) {
  ExpectRefusal(
      [](frmQue_Rev_GST& form) {
        form.lblExemptSupplies.Caption("Untaxed");
        form.lblSupplies.Caption("Sales");
        form.txtExemptSupplies.Text("10000.01");
      },
      "The Untaxed must be less than or equal to Sales.", "txtExemptSupplies");
}

// What can't be compared counts as too much.
TEST_F(GstReturn, RefusesExemptSuppliesBeyondMoney) {
  ExpectRefusal([](frmQue_Rev_GST& form) { form.txtSupplies.Text("9999999999999999"); }, kExempt, "txtExemptSupplies");
}

// With nothing to be paid an empty balance, like a refund, ends the tests.
TEST_F(GstReturn, DoesNotCompareExemptSuppliesBehindAnEmptyBalance) {
  session.PaidAmount("0");
  EXPECT_TRUE(EnterAndPressOk([](frmQue_Rev_GST& form) {
    form.tax.Payable.Text("");
    form.txtExemptSupplies.Text("10000.01");
  }));
  EXPECT_EQ(Records()[2].substr(8, 20), "05000000000000000000");
}

// The period has no test on OK: a bad one goes out as it stands.
TEST_F(GstReturn, AcceptsAPeriodThatIsNoneAnyMore) {
  EXPECT_TRUE(EnterAndPressOk([](frmQue_Rev_GST& form) {
    form.period.From.Text("2027");
    form.period.To.Text("2026");
  }));
  EXPECT_EQ(Records()[0].substr(8, 16), "2027    2026    ");
}

TEST_F(GstReturn, RecordsAreTheSameForEveryBiller) {
  for (const char* code : {"001053", "001055", "999999", ""}) {
    session.CompCode(code);
    EXPECT_TRUE(EnterAndPressOk());
    EXPECT_THAT(Records(), ElementsAre(Ruled(kRecordT), Ruled(kRecordF1), Ruled(kRecordF2), Ruled(kRecordF3))) << code;
  }
}

TEST_F(GstReturn, RecordsHoldARefundAsAMinusAnd17Digits) {
  session.PaidAmount("0");
  EXPECT_TRUE(Show<frmQue_Rev_GST>("28", [](frmQue_Rev_GST& form, UserDriver& user) {
    Type(user, "20260401");
    Type(user, "20260531");
    Type(user, "\r\r1234\r");
    user.Click(form.cmdOK);
  }));
  EXPECT_THAT(
      Records(),
      ElementsAre(Ruled(kRecordT),
                  // head  |supplies            |tax collectible     |ITCs                |instalments         |
                  Ruled("PC40001F01000000000000000000020000000000000000000300000000000000123404000000000000000000"),
                  // head  |balance             |other rebates       |housing rebate      |pension rebate      |
                  Ruled("PC40001F05-00000000000001234060000000000000000000700000000000000000008000000000000000000"),
                  // head  |exempt supplies     |associates' sales   |no slot             |no slot             |
                  Ruled("PC40001F0900000000000000000010000000000000000000")));
}

TEST_F(GstReturn, FieldsFitTheirEntries) {
  const frmQue_Rev_GST form;
  ExpectDates(form, {"txtPeriodFrom", "txtPeriodTo"});
  ExpectAmounts(
      form, {"txtSupplies", "txtTaxCollectible", "txtITRs", "txtInstalments", "txtOtherRebates", "txtNewHousingRebates",
             "txtExemptSupplies", "txtAssociatesTaxableSales", "txtPensionPlanRebate"});
  ExpectTotal(form, "txtAmountPayable");
}

TEST_F(GstReturn, NoCodeLoadsTheForm) {
  frmQue_Rev_GST form;
  for (const char* code : {"001055", "001053", ""}) {
    form.CompCode(code);
    EXPECT_FALSE(form.IsLoaded()) << code;
    EXPECT_EQ(form.CompCode(), code);
  }
}

TEST_F(GstReturn, AmountsAreRefusedByTheCaptionsAsTheyStand) {
  ExpectAmountsToBeRefusedByTheirCaptions({"Supplies", "TaxCollectible", "ITRs", "Instalments", "OtherRebates",
                                           "NewHousingRebates", "ExemptSupplies", "AssociatesTaxableSales",
                                           "PensionPlanRebate"});
}

TEST_F(GstReturn, OnlyEnterByItselfMovesOn) {
  ExpectOnlyEnterByItselfToMoveOn("txtSupplies", "txtTaxCollectible");
}

TEST_F(GstReturn, FullFieldsKeepTheFocusWhereTheNextIsDisabled) {
  Show<frmQue_Rev_GST>("28", [](frmQue_Rev_GST& form, UserDriver& user) {
    ExpectToStay(form, user, "txtPeriodFrom", "20260401", "txtPeriodTo");
    ExpectToStay(form, user, "txtPeriodTo", "20260531", "txtSupplies");
    ExpectToStay(form, user, "txtSupplies", "00000000.001", "txtTaxCollectible");
    ExpectToStay(form, user, "txtTaxCollectible", "00000000.001", "txtITRs");
    ExpectToStay(form, user, "txtITRs", "00000000.001", "txtInstalments");
    ExpectToStay(form, user, "txtInstalments", "00000000.001", "txtOtherRebates");
    ExpectToStay(form, user, "txtOtherRebates", "00000000.001", "txtNewHousingRebates");
    ExpectToStay(form, user, "txtNewHousingRebates", "00000000.001", "txtExemptSupplies");
    ExpectToStay(form, user, "txtExemptSupplies", "00000000.001", "txtAssociatesTaxableSales");
    ExpectToStay(form, user, "txtAssociatesTaxableSales", "00000000.001", "txtPensionPlanRebate");
    ExpectToStay(form, user, "txtPensionPlanRebate", "00000000.001", "cmdOK");
  });
}

TEST_F(GstReturn, OtherRebatesMoveOnToOkWhereTheHousingRebateIsHidden) {
  Show<frmQue_Rev_GST>("28", [](frmQue_Rev_GST& form, UserDriver& user) {
    Type(user, "20260401");
    Type(user, "20260531");
    form.txtNewHousingRebates.Visible(false);
    user.PressMouse(form.tax.Rebates);
    Type(user, "00000000.001");
    EXPECT_EQ(user.FocusName(), "cmdOK");
  });
}

class GstReturnRandomly : public RandomReturnTest<frmQue_Rev_GST> {
 protected:
  void ExpectRecordsOf(const std::string& seqNumber, const RandomPayment& payment) override {
    const std::vector<std::string> records = CheckedRecords(seqNumber, {"01020304", "05060708", "0910    "});
    const long long balance = CentsIn(records[2], 0);
    ExpectToSuit(balance, payment);
    EXPECT_EQ(records[3].substr(48), std::string(112, ' '));
    if (payment.cents != "0") {
      EXPECT_LE(CentsIn(records[3], 0), CentsIn(records[1], 0));
    }
  }
};

TEST_F(GstReturnRandomly, NoActsLeadToACrashOrABadRecord) {
  const RandomUser random(20260615, {"2026040120260531", "20260401", "20260531", "20270615", "123.45", "123.45", "5",
                                     "-5", "123456789012", "0"});
  Play("28", random, kPayments);
}

}  // namespace
}  // namespace fiscalon::gst_return_test
