#include "screens/quebec/qst_return.h"

#include "tests/screens/quebec/return_test.h"
#include "tests/support/told_form.h"

namespace fiscalon::qst_return_test {
namespace {

using testing::ElementsAre;

const bool kFormTold = Tell({.codes = {"16"},
                             .routine = "ShowQue_Rev_QSTForm",
                             .form = "frmQue_Rev_QST",
                             .controls = {"0 txtPeriodFrom", "1 txtPeriodTo", "2 txtSupplies", "3 txtTaxCollectible",
                                          "4 txtITRs", "5 txtInstalments", "6 txtOtherRebates",
                                          "7 txtNewHousingRebates", "8 cmdOK", "9 cmdCancel", "22 txtAmountPayable"},
                             .escape = "cmdCancel"});

// clang-format off
const std::string kRecordT =
    // head  |start   |end     |due     |filler1 |contact name                  |contact title       |filler2   |
    "PC40001T2026040120260531                Jane Doe                      Clerk                         ";
const std::string kRecordF1 =
    // head  |supplies            |tax collectible     |ITRs                |instalments         |
    "PC40001F01000000000001000000020000000000001500000300000000000008000004000000000000015000";
const std::string kRecordF2 =
    // head  |balance             |other rebates       |housing rebate      |nothing             |
    "PC40001F05000000000000050000060000000000000050000700000000000000000008000000000000000000";
const std::string kRecordF2WithRebate =
    // head  |balance             |other rebates       |housing rebate      |nothing             |
    "PC40001F05000000000000050000060000000000000050000700000000000000120008000000000000000000";
// clang-format on

class QstReturn : public ReturnTest<frmQue_Rev_QST> {
 protected:
  QstReturn() : ReturnTest("50000") { session.CompCode("001053"); }

  std::string Code() const override { return "16"; }
  // Supplies of 10,000.00 and a balance of 1,500.00 - 800.00 - 150.00 - 50.00 = 500.00.
  void FillIn(frmQue_Rev_QST& /*form*/, UserDriver& user) const override {
    Type(user, "20260401");
    Type(user, "20260531");
    Type(user, "1000000\r150000\r80000\r15000\r5000\r");
  }
  Button& OkButton(frmQue_Rev_QST& form) const override { return form.cmdOK; }

  // The two tests exclude each other: what spoils the form for the first one mends it for the second.
  std::span<const Row> Rows() const override {
    static constexpr Row kRows[] = {
        {.name = "refund of a payment",
         .spoil = [](frmQue_Rev_QST& form) { form.tax.Payable.Text("-0.01"); },
         .message = kRefund,
         .focus = "txtTaxCollectible"},
        {.name = "balance is another amount",
         .spoil = [](frmQue_Rev_QST& form) { form.tax.Payable.Text("500.01"); },
         .message = kMatch,
         .focus = "txtTaxCollectible"},
    };
    return kRows;
  }

  std::vector<std::string> Expected() const override { return {kRecordT, kRecordF1, kRecordF2}; }

  bool EnterWithHousingRebateAndPressOk() {
    return EnterAndPressOk([](frmQue_Rev_QST& form) { form.txtNewHousingRebates.Text("12.00"); });
  }
};

const bool kTestsAdded = AddOkPathTests<QstReturn>("QstReturnOkPath") && AddRecordsTests<QstReturn>("QstReturnRecords");

TEST_F(QstReturn, RefusesAnEmptyBalanceAsIfItWereARefund) {
  ExpectRefusal([](frmQue_Rev_QST& form) { form.tax.Payable.Text(""); }, kRefund, "txtTaxCollectible");
}

TEST_F(QstReturn, AcceptsTheBalanceAsTheLastCheckLeftIt) {
  EXPECT_TRUE(EnterAndPressOk([](frmQue_Rev_QST& form) { form.tax.Credits.Text("9.99"); }));
  EXPECT_EQ(Records()[1].substr(48, 20), "03000000000000000999");
  EXPECT_EQ(Records()[2].substr(8, 20), "05000000000000050000");
}

// The period has no test on OK: a bad one goes out as it stands.
TEST_F(QstReturn, AcceptsAPeriodThatIsNoneAnyMore) {
  EXPECT_TRUE(EnterAndPressOk([](frmQue_Rev_QST& form) {
    form.period.From.Text("2027");
    form.period.To.Text("2026");
  }));
  EXPECT_EQ(Records()[0].substr(8, 16), "2027    2026    ");
}

TEST_F(QstReturn, RecordsHoldTheHousingRebateOfTheGstBiller) {
  session.CompCode("001055");
  EXPECT_TRUE(EnterWithHousingRebateAndPressOk());
  EXPECT_THAT(Records(), ElementsAre(Ruled(kRecordT), Ruled(kRecordF1), Ruled(kRecordF2WithRebate)));
}

TEST_F(QstReturn, RecordsHoldNoHousingRebateOfTheQstBillerWhateverTheHiddenFieldHolds) {
  EXPECT_TRUE(EnterWithHousingRebateAndPressOk());
  EXPECT_EQ(Records()[2], Ruled(kRecordF2));
}

TEST_F(QstReturn, RecordsHoldWhatTheHiddenFieldHoldsForAnyOtherBiller) {
  session.CompCode("999999");
  EXPECT_TRUE(EnterWithHousingRebateAndPressOk());
  EXPECT_EQ(Records()[2], Ruled(kRecordF2WithRebate));
}

TEST_F(QstReturn, RecordsHoldARefundAsAMinusAnd17Digits) {
  session.PaidAmount("0");
  EXPECT_TRUE(Show<frmQue_Rev_QST>("16", [](frmQue_Rev_QST& form, UserDriver& user) {
    Type(user, "20260401");
    Type(user, "20260531");
    Type(user, "\r\r1234\r");
    user.Click(form.cmdOK);
  }));
  EXPECT_THAT(
      Records(),
      ElementsAre(Ruled(kRecordT),
                  // head  |supplies            |tax collectible     |ITRs                |instalments         |
                  Ruled("PC40001F01000000000000000000020000000000000000000300000000000000123404000000000000000000"),
                  // head  |balance             |other rebates       |housing rebate      |nothing             |
                  Ruled("PC40001F05-00000000000001234060000000000000000000700000000000000000008000000000000000000")));
}

TEST_F(QstReturn, FieldsFitTheirEntries) {
  const frmQue_Rev_QST form;
  ExpectDates(form, {"txtPeriodFrom", "txtPeriodTo"});
  ExpectAmounts(form, {"txtSupplies", "txtTaxCollectible", "txtITRs", "txtInstalments", "txtOtherRebates",
                       "txtNewHousingRebates"});
  ExpectTotal(form, "txtAmountPayable");
}

TEST_F(QstReturn, TheGstBillersCodeLoadsTheForm) {
  frmQue_Rev_QST form;
  form.PaidAmount("500");
  form.PaidDate("06152026");
  EXPECT_FALSE(form.IsLoaded());
  form.CompCode("001055");
  EXPECT_TRUE(form.IsLoaded());
  EXPECT_EQ(form.CompCode(), "001055");
  EXPECT_EQ(form.Caption(), "Quebec GST/HST Remittance");
  EXPECT_EQ(form.head.AmountPaid.Caption(), "$500.00");
  EXPECT_EQ(form.head.PayDate.Caption(), "15/06/2026");
  EXPECT_TRUE(form.lblNewHousingRebates.Visible());
}

TEST_F(QstReturn, WhatIsSetBehindTheGstBillersCodeIsNotShown) {
  frmQue_Rev_QST form;
  form.CompCode("001055");
  form.PaidAmount("500");
  form.PaidDate("06152026");
  EXPECT_EQ(form.head.AmountPaid.Caption(), "");
  EXPECT_EQ(form.head.PayDate.Caption(), "//");
}

TEST_F(QstReturn, OtherCodesDoNotLoadTheForm) {
  frmQue_Rev_QST form;
  for (const char* code : {"001053", "001051", "", "1055", "001055 "}) {
    form.CompCode(code);
    EXPECT_FALSE(form.IsLoaded()) << code;
    EXPECT_EQ(form.CompCode(), code);
  }
}

TEST_F(QstReturn, CaptionsAreRewrittenWhereTheyAreAndInAllPlaces) {
  frmQue_Rev_QST form;
  LabelOf(form, "lblSupplies").Caption("201 and 201");
  LabelOf(form, "lblTaxCollectible").Caption("205 QST qst QST 205 101");
  LabelOf(form, "lblITRs").Caption("ITR itr ITR 208");
  LabelOf(form, "lblInstalments").Caption("QST 210 210");
  LabelOf(form, "lblAmountPayable").Caption("QSTQST 213");
  LabelOf(form, "lblOtherRebates").Caption("211 QST 211");
  LabelOf(form, "lblNewHousingRebates").Caption("QST ITR 201");
  form.CompCode("001055");
  EXPECT_EQ(LabelOf(form, "lblSupplies").Caption(), "101 and 101");
  EXPECT_EQ(LabelOf(form, "lblTaxCollectible").Caption(), "105 GST/HST qst GST/HST 105 101");
  EXPECT_EQ(LabelOf(form, "lblITRs").Caption(), "ITC itr ITC 108");
  EXPECT_EQ(LabelOf(form, "lblInstalments").Caption(), "GST/HST 110 110");
  EXPECT_EQ(LabelOf(form, "lblAmountPayable").Caption(), "GST/HSTGST/HST 113");
  EXPECT_EQ(LabelOf(form, "lblOtherRebates").Caption(), "111 GST/HST 111");
  EXPECT_EQ(LabelOf(form, "lblNewHousingRebates").Caption(), "QST ITR 201");
}

TEST_F(QstReturn, CaptionsStayRewrittenUntilTheFormUnloads) {
  frmQue_Rev_QST form;
  form.CompCode("001055");
  form.CompCode("001055");
  form.CompCode("001053");
  EXPECT_EQ(form.Caption(), "Quebec GST/HST Remittance");
  EXPECT_EQ(form.tax.CreditsCaption.Caption(), "ITCs and adjustments (108)");
  form.Unload();
  EXPECT_EQ(form.Caption(), "Quebec Sales Tax Remittance");
  EXPECT_EQ(form.tax.CreditsCaption.Caption(), "ITRs and adjustments (208)");
}

TEST_F(QstReturn, AmountsAreRefusedByTheCaptionsAsTheyStand) {
  session.CompCode("001055");
  ExpectAmountsToBeRefusedByTheirCaptions(
      {"Supplies", "TaxCollectible", "ITRs", "Instalments", "OtherRebates", "NewHousingRebates"});
}

TEST_F(QstReturn, OnlyEnterByItselfMovesOn) {
  ExpectOnlyEnterByItselfToMoveOn("txtSupplies", "txtTaxCollectible");
}

TEST_F(QstReturn, FullFieldsKeepTheFocusWhereTheNextIsDisabled) {
  Show<frmQue_Rev_QST>("16", [](frmQue_Rev_QST& form, UserDriver& user) {
    ExpectToStay(form, user, "txtPeriodFrom", "20260401", "txtPeriodTo");
    ExpectToStay(form, user, "txtPeriodTo", "20260531", "txtSupplies");
    ExpectToStay(form, user, "txtSupplies", "00000000.001", "txtTaxCollectible");
    ExpectToStay(form, user, "txtTaxCollectible", "00000000.001", "txtITRs");
    ExpectToStay(form, user, "txtITRs", "00000000.001", "txtInstalments");
    ExpectToStay(form, user, "txtInstalments", "00000000.001", "txtOtherRebates");
    ExpectToStay(form, user, "txtOtherRebates", "00000000.001", "cmdOK");
  });
}

class QstReturnRandomly : public RandomReturnTest<frmQue_Rev_QST> {
 protected:
  void BeforeLaunch(RandomUser& random) override {
    static const std::vector<std::string> kBillers = {"001053", "001055", "999999"};
    session.CompCode(random.OneOf(kBillers));
  }

  void ExpectRecordsOf(const std::string& seqNumber, const RandomPayment& payment) override {
    const std::vector<std::string> records = CheckedRecords(seqNumber, {"01020304", "05060708"});
    ExpectToSuit(CentsIn(records[2], 0), payment);
    EXPECT_EQ(CentsIn(records[2], 3), 0);
    // The records of an earlier launch are another biller's.
    if (session.SeqNumber() == seqNumber && session.CompCode() != "001055") {
      EXPECT_EQ(CentsIn(records[2], 2), 0);
    }
  }
};

TEST_F(QstReturnRandomly, NoActsLeadToACrashOrABadRecord) {
  const RandomUser random(20260615, {"2026040120260531", "20260401", "20260531", "20270615", "123.45", "123.45", "5",
                                     "-5", "123456789012", "0"});
  Play("16", random, kPayments);
}

}  // namespace
}  // namespace fiscalon::qst_return_test
