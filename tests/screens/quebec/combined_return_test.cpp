#include "screens/quebec/combined_return.h"

#include "tests/screens/quebec/return_test.h"
#include "tests/support/told_form.h"

namespace fiscalon::combined_return_test {
namespace {

using testing::ElementsAre;

const bool kFormTold = Tell({.codes = {"18"},
                             .routine = "ShowQue_Rev_QSTGSTReturnForm",
                             .form = "frmQue_Rev_QSTGSTComb",
                             .controls = {"0 txtGSTAccountNumber",
                                          "1 txtGSTPeriodFrom",
                                          "2 txtGSTPeriodTo",
                                          "3 txtQSTPeriodFrom",
                                          "4 txtQSTPeriodTo",
                                          "5 txtGSTCollectible",
                                          "6 txtGSTITCs",
                                          "7 txtGSTInstalment",
                                          "8 txtOtherGSTHSTRebates",
                                          "9 txtNewHousingRebate",
                                          "10 txtQSTCollectible",
                                          "11 txtQSTITRs",
                                          "12 txtQSTInstalment",
                                          "13 txtOtherQSTRebates",
                                          "14 txtSupplies",
                                          "15 cmdOK",
                                          "16 cmdCancel",
                                          "29 txtGSTPayable",
                                          "34 txtQSTPayable",
                                          "39 txtAmountPayable"},
                             .escape = "cmdCancel"});

constexpr const char* kAccount =
    "The GST Account Number must be a valid CRA Business Number in the form 999999999RT9999.";

/// The account number and both periods.
void FillInHead(UserDriver& user) {
  Type(user, "123456782RT0001");
  Type(user, "20260101");
  Type(user, "20260331");
  Type(user, "20260201");
  Type(user, "20260430");
}

// clang-format off
const std::string kRecordT =
    // head  |QST from|QST to  |due     |filler1 |contact name                  |contact title       |filler2   |
    "PC40001T2026020120260430                Jane Doe                      Clerk                         ";
const std::string kRecordF1 =
    // head  |supplies            |QST collectible     |QST ITRs            |QST instalment      |
    "PC40001F01000000000001200000020000000000001020000300000000000002500004000000000000010000";
const std::string kRecordF2 =
    // head  |QST balance         |GST collectible     |GST ITCs            |GST instalment      |
    "PC40001F05000000000000060000060000000000000900000700000000000003000008000000000000015000";
const std::string kRecordF3 =
    // head  |GST balance         |GST account number  |GST from            |GST to              |
    "PC40001F0900000000000004000010123456782RT0001   1120260101          1220260331          ";
const std::string kRecordF4 =
    // head  |other QST rebates   |other GST rebates   |housing rebate      |nothing             |
    "PC40001F13000000000000007000140000000000000050001500000000000000250016000000000000000000";
// clang-format on

class CombinedReturn : public ReturnTest<frmQue_Rev_QSTGSTComb> {
 protected:
  CombinedReturn() : ReturnTest("100000") { session.CompCode("001055"); }

  std::string Code() const override { return "18"; }
  // GST/HST of 900.00 - 300.00 - 150.00 - 50.00 = 400.00, QST of 1,020.00 - 250.00 - 100.00 - 70.00 = 600.00.
  void FillIn(frmQue_Rev_QSTGSTComb& /*form*/, UserDriver& user) const override {
    FillInHead(user);
    Type(user, "90000\r30000\r15000\r5000\r2500\r");
    Type(user, "102000\r25000\r10000\r7000\r1200000\r");
  }
  Button& OkButton(frmQue_Rev_QSTGSTComb& form) const override { return form.cmdOK; }

  // The two tests exclude each other: what spoils the form for the first one mends it for the second.
  std::span<const Row> Rows() const override {
    static constexpr Row kRows[] = {
        {.name = "refund of a payment",
         .spoil = [](frmQue_Rev_QSTGSTComb& form) { form.txtAmountPayable.Text("-0.01"); },
         .message = kRefund,
         .focus = "txtGSTCollectible"},
        {.name = "total is another amount",
         .spoil = [](frmQue_Rev_QSTGSTComb& form) { form.txtAmountPayable.Text("1000.01"); },
         .message = kMatch,
         .focus = "txtGSTCollectible"},
    };
    return kRows;
  }

  std::vector<std::string> Expected() const override { return {kRecordT, kRecordF1, kRecordF2, kRecordF3, kRecordF4}; }
};

const bool kTestsAdded =
    AddOkPathTests<CombinedReturn>("CombinedReturnOkPath") && AddRecordsTests<CombinedReturn>("CombinedReturnRecords");

TEST_F(CombinedReturn, TellsTheFormOfDatesAtTheFirstPeriodAlone) {
  const frmQue_Rev_QSTGSTComb form;
  EXPECT_TRUE(form.gstPeriod.FromHint && form.gstPeriod.ToHint);
  EXPECT_FALSE(form.qstPeriod.FromHint || form.qstPeriod.ToHint);
}

TEST_F(CombinedReturn, RefusesAnEmptyTotalAsIfItWereARefund) {
  ExpectRefusal([](frmQue_Rev_QSTGSTComb& form) { form.txtAmountPayable.Text(""); }, kRefund, "txtGSTCollectible");
}

TEST_F(CombinedReturn, AcceptsTheTotalAsTheLastCheckLeftIt) {
  EXPECT_TRUE(EnterAndPressOk([](frmQue_Rev_QSTGSTComb& form) { form.gst.Credits.Text("9.99"); }));
  EXPECT_EQ(Records()[2].substr(48, 20), "07000000000000000999");
  EXPECT_EQ(Records()[3].substr(8, 20), "09000000000000040000");
}

// Account number and periods have no test on OK: bad ones go out as they stand.
TEST_F(CombinedReturn, AcceptsAHeadThatIsNoneAnyMore) {
  EXPECT_TRUE(EnterAndPressOk([](frmQue_Rev_QSTGSTComb& form) {
    form.txtGSTAccountNumber.Text("12");
    form.gstPeriod.From.Text("2024");
    form.gstPeriod.To.Text("2025");
    form.qstPeriod.From.Text("2027");
    form.qstPeriod.To.Text("2026");
  }));
  EXPECT_EQ(Records()[0].substr(8, 16), "2027    2026    ");
  EXPECT_EQ(Records()[3].substr(28, 60), "1012                112024              122025              ");
}

// A balance that is beyond money stays as it was; the other one and the total are calculated all the same.
TEST_F(CombinedReturn, CalculatesWhatCanBeCalculated) {
  Show<frmQue_Rev_QSTGSTComb>("18", [&](frmQue_Rev_QSTGSTComb& form, UserDriver& user) {
    FillIn(form, user);
    form.gst.Collectible.Text("9999999999999999");
    form.qst.Collectible.Text("1021.00");
    user.PressMouse(form.txtSupplies);
    user.PressMouse(form.cmdOK);
    EXPECT_EQ(form.gst.Payable.Text(), "400.00");
    EXPECT_EQ(form.qst.Payable.Text(), "601.00");
    EXPECT_EQ(form.txtAmountPayable.Text(), "1001.00");
  });
}

TEST_F(CombinedReturn, RecordsAreTheSameForEveryBiller) {
  for (const char* code : {"001053", "001051", ""}) {
    session.CompCode(code);
    EXPECT_TRUE(EnterAndPressOk());
    EXPECT_THAT(Records(),
                ElementsAre(Ruled(kRecordT), Ruled(kRecordF1), Ruled(kRecordF2), Ruled(kRecordF3), Ruled(kRecordF4)))
        << code;
  }
}

TEST_F(CombinedReturn, RecordsHoldRefundsAsAMinusAnd17Digits) {
  session.PaidAmount("0");
  EXPECT_TRUE(Show<frmQue_Rev_QSTGSTComb>("18", [](frmQue_Rev_QSTGSTComb& form, UserDriver& user) {
    FillInHead(user);
    Type(user, "\r5000\r\r\r\r\r1234\r");
    user.Click(form.cmdOK);
  }));
  EXPECT_EQ(Records()[2],
            // head  |QST balance         |GST collectible     |GST ITCs            |GST instalment      |
            Ruled("PC40001F05-00000000000001234060000000000000000000700000000000000500008000000000000000000"));
  EXPECT_EQ(Records()[3],
            // head  |GST balance         |GST account number  |GST from            |GST to              |
            Ruled("PC40001F09-0000000000000500010123456782RT0001   1120260101          1220260331          "));
}

TEST_F(CombinedReturn, FieldsFitTheirEntries) {
  const frmQue_Rev_QSTGSTComb form;
  EXPECT_EQ(form.txtGSTAccountNumber.MaxLength(), 15);
  EXPECT_EQ(form.txtGSTAccountNumber.Designed().alignment, Alignment::Left);
  ExpectDates(form, {"txtGSTPeriodFrom", "txtGSTPeriodTo", "txtQSTPeriodFrom", "txtQSTPeriodTo"});
  ExpectAmounts(form,
                {"txtGSTCollectible", "txtGSTITCs", "txtGSTInstalment", "txtOtherGSTHSTRebates", "txtNewHousingRebate",
                 "txtQSTCollectible", "txtQSTITRs", "txtQSTInstalment", "txtOtherQSTRebates", "txtSupplies"});
  for (const char* total : {"txtGSTPayable", "txtQSTPayable", "txtAmountPayable"}) ExpectTotal(form, total);
}

TEST_F(CombinedReturn, TheAccountNumbersKeyFilterPassesDigitsAndLettersAsCapitals) {
  Show<frmQue_Rev_QSTGSTComb>("18", [](frmQue_Rev_QSTGSTComb& form, UserDriver& user) {
    TextField& account = form.txtGSTAccountNumber;
    for (int code = ' '; code < 256; ++code) {
      const auto character = static_cast<char>(code);
      const bool digit = character >= '0' && character <= '9';
      const bool capital = character >= 'A' && character <= 'Z';
      const bool small = character >= 'a' && character <= 'z';
      std::string expected;
      if (digit || capital)
        expected = character;
      else if (small)
        expected = static_cast<char>(character - 'a' + 'A');
      account.Text("");
      user.Type(character);
      EXPECT_EQ(account.Text(), expected) << code;
      EXPECT_EQ(user.FocusName(), "txtGSTAccountNumber") << code;
    }
  });
}

TEST_F(CombinedReturn, AccountNumbersAreTestedByTheirCheckDigit) {
  const auto isRefused = [&](const std::string& number) {
    bool refused = false;
    Show<frmQue_Rev_QSTGSTComb>("18", [&](frmQue_Rev_QSTGSTComb&, UserDriver& user) {
      Type(user, number + "RT0001");
      const std::vector<BoxRequest> boxes = TakeBoxes();
      refused = boxes.size() == 1;
      EXPECT_EQ(user.FocusName(), refused ? "txtGSTAccountNumber" : "txtGSTPeriodFrom") << number;
      for (const BoxRequest& box : boxes) EXPECT_EQ(box.text, kAccount) << number;
    });
    return refused;
  };
  // Digits at odd places count as they stand.
  EXPECT_FALSE(isRefused("100000009"));
  EXPECT_FALSE(isRefused("005000005"));
  EXPECT_FALSE(isRefused("000070300"));
  EXPECT_TRUE(isRefused("100000008"));
  // Digits at even places are doubled, and both digits of the product count: 9 gives 18, 1 + 8.
  EXPECT_FALSE(isRefused("190000000"));
  EXPECT_FALSE(isRefused("000500009"));
  EXPECT_FALSE(isRefused("000001008"));
  EXPECT_FALSE(isRefused("000000075"));
  EXPECT_TRUE(isRefused("190000001"));
  EXPECT_TRUE(isRefused("010000000"));
}

TEST_F(CombinedReturn, AmountsAreRefusedByTheCaptionsAsTheyStand) {
  ExpectAmountsToBeRefusedByTheirCaptions({"GSTCollectible", "GSTITCs", "GSTInstalment", "OtherGSTHSTRebates",
                                           "NewHousingRebate", "QSTCollectible", "QSTITRs", "QSTInstalment",
                                           "OtherQSTRebates", "Supplies"});
}

TEST_F(CombinedReturn, OnlyEnterByItselfMovesOn) {
  ExpectOnlyEnterByItselfToMoveOn("txtGSTCollectible", "txtGSTITCs");
}

TEST_F(CombinedReturn, FullFieldsKeepTheFocusWhereTheNextIsDisabled) {
  Show<frmQue_Rev_QSTGSTComb>("18", [](frmQue_Rev_QSTGSTComb& form, UserDriver& user) {
    ExpectToStay(form, user, "txtGSTAccountNumber", "123456782RT0001", "txtGSTPeriodFrom");
    ExpectToStay(form, user, "txtGSTPeriodFrom", "20260101", "txtGSTPeriodTo");
    ExpectToStay(form, user, "txtGSTPeriodTo", "20260331", "txtQSTPeriodFrom");
    ExpectToStay(form, user, "txtQSTPeriodFrom", "20260201", "txtQSTPeriodTo");
    ExpectToStay(form, user, "txtQSTPeriodTo", "20260430", "txtGSTCollectible");
    const std::vector<const char*> chain = {"txtGSTCollectible",
                                            "txtGSTITCs",
                                            "txtGSTInstalment",
                                            "txtOtherGSTHSTRebates",
                                            "txtNewHousingRebate",
                                            "txtQSTCollectible",
                                            "txtQSTITRs",
                                            "txtQSTInstalment",
                                            "txtOtherQSTRebates",
                                            "txtSupplies",
                                            "cmdOK"};
    for (size_t i = 0; i + 1 < chain.size(); ++i) ExpectToStay(form, user, chain[i], "00000000.001", chain[i + 1]);
  });
}

class CombinedReturnRandomly : public RandomReturnTest<frmQue_Rev_QSTGSTComb> {
 protected:
  void ExpectRecordsOf(const std::string& seqNumber, const RandomPayment& payment) override {
    const std::vector<std::string> records =
        CheckedRecords(seqNumber, {"01020304", "05060708", "09101112", "13141516"});
    ExpectToSuit(CentsIn(records[2], 0) + CentsIn(records[3], 0), payment);
    EXPECT_EQ(CentsIn(records[4], 3), 0);
  }
};

TEST_F(CombinedReturnRandomly, NoActsLeadToACrashOrABadRecord) {
  const RandomUser random(20260615, {"123456782RT000120260101202603312026020120260430", "123456782RT0001", "20260101",
                                     "20260430", "20270615", "123.45", "123.45", "5", "-5", "123456789012", "0"});
  Play("18", random, kPayments);
}

}  // namespace
}  // namespace fiscalon::combined_return_test
