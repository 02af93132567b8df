#include "screens/quebec/qst_gst_instalment.h"

#include <gmock/gmock.h>

#include "core/forms/keys.h"
#include "tests/support/payment_test.h"
#include "tests/support/random_acts.h"
#include "tests/support/ruled_record.h"
#include "tests/support/told_form.h"

namespace fiscalon::qst_gst_instalment_test {
namespace {

using testing::ElementsAre;

const bool kFormTold = Tell({.codes = {"19"},
                             .routine = "ShowQue_Rev_QSTGSTInstForm",
                             .form = "frmQue_Rev_QSTGSTInst",
                             .controls = {"0 txtPeriodFrom", "1 txtPeriodTo", "2 txtGSTInstalment",
                                          "3 txtQSTInstalment", "4 cmdOK", "5 cmdCancel", "16 txtAmountPayable"},
                             .escape = "cmdCancel"});

constexpr const char* kMatch = "The Amount Remitted must match the Amount to be paid.";
constexpr const char* kNothing = "The Amount Remitted must be greater than zero.";

// clang-format off
const std::string kRecordT =
    // head  |start   |end     |due     |filler1 |contact name                  |contact title       |filler2   |
    "PC40001T2026040120260531                Jane Doe                      Clerk                         ";
const std::string kRecordF =
    // head  |QST                 |GST/HST             |nothing             |nothing             |
    "PC40001F01000000000000020000020000000000000300000300000000000000000004000000000000000000";
// clang-format on

class QstGstInstalmentPayment : public PaymentTest<frmQue_Rev_QSTGSTInst> {
 protected:
  QstGstInstalmentPayment() : PaymentTest("50000") { session.CompCode("001051"); }

  std::string Code() const override { return "19"; }
  // 300.00 of GST/HST and 200.00 of QST.
  void FillIn(frmQue_Rev_QSTGSTInst& /*form*/, UserDriver& user) const override {
    Type(user, "20260401");
    Type(user, "20260531");
    Type(user, "30000\r20000\r");
  }
  Button& OkButton(frmQue_Rev_QSTGSTInst& form) const override { return form.cmdOK; }

  std::span<const Row> Rows() const override {
    static constexpr Row kRows[] = {
        {.name = "total is another amount",
         .spoil = [](frmQue_Rev_QSTGSTInst& form) { form.txtAmountPayable.Text("500.01"); },
         .message = kMatch,
         .focus = "txtGSTInstalment"},
        {.name = "nothing is remitted",
         .spoil =
             [](frmQue_Rev_QSTGSTInst& form) {
               form.head.AmountPaid.Caption("$0.00");
               form.txtAmountPayable.Text("0.00");
             },
         .message = kNothing,
         .focus = "txtGSTInstalment"},
    };
    return kRows;
  }

  std::vector<std::string> Expected() const override { return {kRecordT, kRecordF}; }
};

using QstGstInstalmentOkPath = QstGstInstalmentPayment;
using QstGstInstalmentRecords = QstGstInstalmentPayment;
const bool kTestsAdded = AddOkPathTests<QstGstInstalmentPayment>("QstGstInstalmentOkPath") &&
                         AddRecordsTests<QstGstInstalmentPayment>("QstGstInstalmentRecords");

TEST_F(QstGstInstalmentOkPath, RefusesAnEmptyTotalEvenWhereNothingIsPaid) {
  session.PaidAmount("0");
  EXPECT_FALSE(Show<frmQue_Rev_QSTGSTInst>("19", [&](frmQue_Rev_QSTGSTInst& form, UserDriver& user) {
    FillIn(form, user);
    form.txtAmountPayable.Text("");
    user.Click(form.cmdOK);
    const std::vector<BoxRequest> boxes = TakeBoxes();
    ASSERT_EQ(boxes.size(), 1U);
    EXPECT_EQ(boxes[0].text, kMatch);
    EXPECT_EQ(user.FocusName(), "txtGSTInstalment");
  }));
}

TEST_F(QstGstInstalmentOkPath, AcceptsTheTotalAsItStands) {
  EXPECT_TRUE(EnterAndPressOk([](frmQue_Rev_QSTGSTInst& form) { form.txtQSTInstalment.Text("9.99"); }));
  EXPECT_EQ(Records()[1].substr(8, 40), "0100000000000000099902000000000000030000");
}

// The period has no test on OK: a bad one goes out as it stands.
TEST_F(QstGstInstalmentOkPath, AcceptsAPeriodThatIsNoneAnyMore) {
  EXPECT_TRUE(EnterAndPressOk([](frmQue_Rev_QSTGSTInst& form) {
    form.period.From.Text("2027");
    form.period.To.Text("2026");
  }));
  EXPECT_EQ(Records()[0].substr(8, 16), "2027    2026    ");
}

TEST_F(QstGstInstalmentRecords, AreTheSameForEveryBiller) {
  for (const char* code : {"001053", "001055", ""}) {
    session.CompCode(code);
    EXPECT_TRUE(EnterAndPressOk());
    EXPECT_THAT(Records(), ElementsAre(Ruled(kRecordT), Ruled(kRecordF))) << code;
  }
}

TEST_F(QstGstInstalmentRecords, HoldTheAmountsAndNotTheTypedTotal) {
  EXPECT_TRUE(Show<frmQue_Rev_QSTGSTInst>("19", [](frmQue_Rev_QSTGSTInst& form, UserDriver& user) {
    Type(user, "20260401");
    Type(user, "20260531");
    Type(user, "456\r-123");
    // Cancel lets an amount below zero stand.
    user.PressMouse(form.cmdCancel);
    form.txtAmountPayable.Text("500");
    user.Click(form.cmdOK);
  }));
  EXPECT_EQ(Records()[1],
            // head  |QST                 |GST/HST             |nothing             |nothing             |
            Ruled("PC40001F01-00000000000000123020000000000000004560300000000000000000004000000000000000000"));
}

class QstGstInstalment : public ScreenTest {
 protected:
  QstGstInstalment() { session.PaidAmount("50000"); }
};

TEST_F(QstGstInstalment, FieldsFitTheirEntries) {
  const frmQue_Rev_QSTGSTInst form;
  for (const TextField* date : {&form.period.From, &form.period.To}) {
    EXPECT_EQ(date->MaxLength(), 8) << date->Name();
    EXPECT_EQ(date->Designed().alignment, Alignment::Left) << date->Name();
  }
  for (const TextField* amount : std::initializer_list<const TextField*>{&form.txtGSTInstalment, &form.txtQSTInstalment,
                                                                         &form.txtAmountPayable}) {
    EXPECT_EQ(amount->MaxLength(), 12) << amount->Name();
    EXPECT_EQ(amount->Designed().alignment, Alignment::Right) << amount->Name();
  }
}

// The mouse alone reaches the total, and may type over it.
TEST_F(QstGstInstalment, TheTotalIsNoTabStopButNotLocked) {
  const frmQue_Rev_QSTGSTInst form;
  EXPECT_FALSE(form.txtAmountPayable.Designed().tabStop);
  EXPECT_FALSE(form.txtAmountPayable.Designed().locked);
}

TEST_F(QstGstInstalment, AmountsAreRefusedByTheCaptionAsItStands) {
  Show<frmQue_Rev_QSTGSTInst>("19", [&](frmQue_Rev_QSTGSTInst& form, UserDriver& user) {
    Type(user, "20260401");
    Type(user, "20260531");
    form.lblGSTInstalment.Caption("GST");
    Type(user, "-1");
    user.PressMouse(form.cmdOK);
    const std::vector<BoxRequest> boxes = TakeBoxes();
    ASSERT_EQ(boxes.size(), 1U);
    EXPECT_EQ(boxes[0].text, "GST cannot be negative.");
    EXPECT_EQ(boxes[0].style, MessageStyle::Plain);
  });
}

TEST_F(QstGstInstalment, OnlyEnterByItselfMovesOn) {
  Show<frmQue_Rev_QSTGSTInst>("19", [](frmQue_Rev_QSTGSTInst&, UserDriver& user) {
    Type(user, "20260401");
    Type(user, "20260531");
    for (const int shift : {shift_state::kShift, shift_state::kControl, shift_state::kAlt}) {
      user.PressKey({.keyCode = key::kEnter, .shift = shift, .character = key::kEnter});
      EXPECT_EQ(user.FocusName(), "txtGSTInstalment") << shift;
    }
    user.PressKey({.keyCode = key::kEnter, .character = key::kEnter});
    EXPECT_EQ(user.FocusName(), "txtQSTInstalment");
  });
}

TEST_F(QstGstInstalment, FullFieldsKeepTheFocusWhereTheNextIsDisabled) {
  Show<frmQue_Rev_QSTGSTInst>("19", [](frmQue_Rev_QSTGSTInst& form, UserDriver& user) {
    const auto expectToStay = [&](Control& full, const char* text, Control& next) {
      next.Enabled(false);
      user.PressMouse(full);
      Type(user, text);
      EXPECT_EQ(user.FocusName(), full.Name());
      next.Enabled(true);
    };
    expectToStay(form.period.From, "20260401", form.period.To);
    expectToStay(form.period.To, "20260531", form.txtGSTInstalment);
    expectToStay(form.txtGSTInstalment, "00000000.001", form.txtQSTInstalment);
    expectToStay(form.txtQSTInstalment, "00000000.001", form.cmdOK);
  });
}

class QstGstInstalmentRandomly : public RandomActsTest<frmQue_Rev_QSTGSTInst> {
 protected:
  // The total may be typed over, so the amounts need not add up to the payment; and over Cancel any digits are a
  // period.
  void ExpectRecordsOf(const std::string& seqNumber, const RandomPayment& /*payment*/) override {
    const std::vector<std::string> records = Records();
    ASSERT_EQ(records.size(), 2U);
    for (const std::string& record : records) ASSERT_EQ(record.size(), 160U);
    const std::string period = records[0].substr(8, 16);
    EXPECT_EQ(period.find_first_not_of("0123456789 "), std::string::npos) << period;
    EXPECT_EQ(records[0], Ruled("PC4" + seqNumber + "T" + period + std::string(16, ' ') + "Jane Doe" +
                                std::string(22, ' ') + "Clerk"));
    const auto amount = [&](size_t slot) {
      const std::string value = records[1].substr(10 + 20 * slot, 18);
      EXPECT_EQ(value.find_first_not_of("0123456789", value[0] == '-' ? 1 : 0), std::string::npos) << value;
      return value;
    };
    EXPECT_EQ(records[1], Ruled("PC4" + seqNumber + "F01" + amount(0) + "02" + amount(1) + "03" + std::string(18, '0') +
                                "04" + std::string(18, '0')));
  }
};

TEST_F(QstGstInstalmentRandomly, NoActsLeadToACrashOrABadRecord) {
  // The same texts are dates and amounts, so that acts come past all checks often enough.
  const std::vector<RandomPayment> payments = {{.cents = "20260531"}, {.cents = "20260531"}, {.cents = "20260531"},
                                               {.cents = "20260401"}, {.cents = "20260401"}, {.cents = "20260401"},
                                               {.cents = "0"},        {.cents = "-5"},       {.cents = "1E30"}};
  const RandomUser random(20260615,
                          {"202604.01", "202604.01", "20260401", "202605.31", "202605.31", "202605.31", "0", "-5"});
  Play("19", random, payments);
}

}  // namespace
}  // namespace fiscalon::qst_gst_instalment_test
