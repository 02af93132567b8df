#include "screens/federal/corporate_income.h"

#include <gmock/gmock.h>

#include "tests/support/payment_test.h"
#include "tests/support/random_acts.h"
#include "tests/support/ruled_record.h"
#include "tests/support/told_form.h"

namespace fiscalon::corporate_income_test {
namespace {

using testing::ElementsAre;

const bool kFormTold =
    Tell({.codes = {"02"},
          .routine = "ShowCorpIncomeForm",
          .form = "GOVCORPINCOME",
          .controls = {"0 optRC99", "1 optRC100", "3 ArrearsPayment", "4 InstalmentPayment", "5 EndDate",
                       "6 Command3D6", "7 Command3D5", "8 Command3D4", "19 PayeeName"}});

constexpr const char* kNoInstalment = "Instalment Payment cannot be 0.";
constexpr const char* kNothingOwing = "Amounts Owing Payment cannot be 0.";
constexpr const char* kAskDate = "Please enter the date for the end of fiscal period.";
constexpr const char* kBadDate = "Invalid date value.";
constexpr const char* kOtherYear =
    "The year for 'Remittance Period Ending' entered does not correspond to the current year.\r\n"
    "Are you sure you want to use it?";

void FillInInstalment(GOVCORPINCOME& form, UserDriver& user) {
  user.Click(form.optRC100);
  Type(user, "20260531");
}

// clang-format off
const std::string kRecordT =
    // head  |start   |end     |due     |filler1 |contact name                  |contact title       |filler2   |
    "PC40001T                                Jane Doe                      Clerk                         ";
const std::string kAmountOwingF =
    // head  |amount owing        |nothing             |nothing             |nothing             |
    "PC40001F03000000000000012345                                                            ";
const std::string kInstalmentF =
    // head  |instalment          |end of period       |nothing             |nothing             |
    "PC40001F010000000000000123450220260531                                                  ";
// clang-format on

// The tests of OK that refuse numbers below 0 are not among the rows: a text with a minus sign is no amount, so that
// the silent test before them meets it first.
class CorporateInstalment : public PaymentTest<GOVCORPINCOME> {
 protected:
  CorporateInstalment() : PaymentTest("12345") { yesOrNo = MessageAnswer::No; }

  std::string Code() const override { return "02"; }
  void FillIn(GOVCORPINCOME& form, UserDriver& user) const override { FillInInstalment(form, user); }
  Button& OkButton(GOVCORPINCOME& form) const override { return form.Command3D6; }

  std::span<const Row> Rows() const override {
    static constexpr Row kRows[] = {
        {.name = "amount is none",
         .spoil = [](GOVCORPINCOME& form) { form.InstalmentPayment.Text("-123.45"); },
         .focus = "InstalmentPayment"},
        {.name = "amount is zero",
         .spoil = [](GOVCORPINCOME& form) { form.InstalmentPayment.Text("0"); },
         .message = kNoInstalment,
         .focus = "InstalmentPayment"},
        {.name = "date is missing",
         .spoil = [](GOVCORPINCOME& form) { form.EndDate.Text("  "); },
         .message = kAskDate,
         .focus = "EndDate"},
        {.name = "date is short",
         .spoil = [](GOVCORPINCOME& form) { form.EndDate.Text(" 2026053"); },
         .focus = "EndDate"},
        {.name = "date is none",
         .spoil = [](GOVCORPINCOME& form) { form.EndDate.Text("20260431"); },
         .message = kBadDate,
         .focus = "EndDate"},
        {.name = "date is of another year",
         .spoil = [](GOVCORPINCOME& form) { form.EndDate.Text("20250531"); },
         .message = kOtherYear,
         .focus = "EndDate",
         .style = MessageStyle::Exclamation,
         .title = "Date Warning"},
    };
    return kRows;
  }

  std::vector<std::string> Expected() const override { return {kRecordT, kInstalmentF}; }
};

using CorporateInstalmentRecords = CorporateInstalment;
const bool kInstalmentTestsAdded = AddOkPathTests<CorporateInstalment>("CorporateInstalmentOkPath") &&
                                   AddRecordsTests<CorporateInstalment>("CorporateInstalmentRecords");

class CorporateAmountOwing : public PaymentTest<GOVCORPINCOME> {
 protected:
  CorporateAmountOwing() : PaymentTest("12345") {}

  std::string Code() const override { return "02"; }
  // The form opens with the whole amount owing.
  void FillIn(GOVCORPINCOME& /*form*/, UserDriver& /*user*/) const override {}
  Button& OkButton(GOVCORPINCOME& form) const override { return form.Command3D6; }

  std::span<const Row> Rows() const override {
    static constexpr Row kRows[] = {
        {.name = "amount is none",
         .spoil = [](GOVCORPINCOME& form) { form.ArrearsPayment.Text("-123.45"); },
         .focus = "ArrearsPayment"},
        {.name = "amount is zero",
         .spoil = [](GOVCORPINCOME& form) { form.ArrearsPayment.Text("0"); },
         .message = kNothingOwing,
         .focus = "ArrearsPayment"},
    };
    return kRows;
  }

  std::vector<std::string> Expected() const override { return {kRecordT, kAmountOwingF}; }
};

using CorporateAmountOwingRecords = CorporateAmountOwing;
const bool kAmountOwingTestsAdded = AddOkPathTests<CorporateAmountOwing>("CorporateAmountOwingOkPath") &&
                                    AddRecordsTests<CorporateAmountOwing>("CorporateAmountOwingRecords");

TEST_F(CorporateInstalmentRecords, AreMadeOfTrimmedEntries) {
  EXPECT_TRUE(EnterAndPressOk([](GOVCORPINCOME& form) {
    form.InstalmentPayment.Text(" 123.45 ");
    form.EndDate.Text(" 20260531 ");
  }));
  EXPECT_THAT(Records(), ElementsAre(Ruled(kRecordT), Ruled(kInstalmentF)));
}

TEST_F(CorporateInstalmentRecords, TakeAnAmountWithoutAPointForCents) {
  EXPECT_TRUE(EnterAndPressOk([](GOVCORPINCOME& form) { form.InstalmentPayment.Text("12345"); }));
  EXPECT_THAT(Records(), ElementsAre(Ruled(kRecordT), Ruled(kInstalmentF)));
}

TEST_F(CorporateAmountOwingRecords, TakeAnAmountWithoutAPointForCents) {
  EXPECT_TRUE(EnterAndPressOk([](GOVCORPINCOME& form) { form.ArrearsPayment.Text(" 12345 "); }));
  EXPECT_THAT(Records(), ElementsAre(Ruled(kRecordT), Ruled(kAmountOwingF)));
}

// OK compares neither amount with the payment.
TEST_F(CorporateAmountOwingRecords, HoldTheFieldsAmountWhateverIsToBePaid) {
  EXPECT_TRUE(EnterAndPressOk([](GOVCORPINCOME& form) { form.ArrearsPayment.Text("999.99"); }));
  // head  |amount owing        |
  EXPECT_EQ(Records()[1], Ruled("PC40001F03000000000000099999"));
}

class CorporateIncome : public ScreenTest {
 protected:
  CorporateIncome() { session.PaidAmount("12345"); }

  void ExpectOneCriticalBox(const std::string& text) {
    const std::vector<BoxRequest> boxes = TakeBoxes();
    ASSERT_EQ(boxes.size(), 1U);
    EXPECT_EQ(boxes[0].text, text);
    EXPECT_EQ(boxes[0].style, MessageStyle::Critical);
    EXPECT_EQ(boxes[0].title, "");
  }
};

TEST_F(CorporateIncome, FieldsFitTheirEntries) {
  const GOVCORPINCOME form;
  EXPECT_EQ(form.ArrearsPayment.MaxLength(), 10);
  EXPECT_EQ(form.InstalmentPayment.MaxLength(), 10);
  EXPECT_EQ(form.EndDate.MaxLength(), 8);
  EXPECT_TRUE(form.ArrearsPayment.Designed().locked);
  EXPECT_TRUE(form.InstalmentPayment.Designed().locked);
}

TEST_F(CorporateIncome, FullDateKeepsTheFocusWhereOkIsDisabled) {
  Show<GOVCORPINCOME>("02", [](GOVCORPINCOME& form, UserDriver& user) {
    form.Command3D6.Enabled(false);
    FillInInstalment(form, user);
    EXPECT_EQ(user.FocusName(), "EndDate");
  });
}

// The user can't change the amounts. What their keys do with other texts is reached by code alone.
TEST_F(CorporateIncome, EnterInAnEmptyAmountOwingMakesItZeroAndStays) {
  Show<GOVCORPINCOME>("02", [](GOVCORPINCOME& form, UserDriver& user) {
    user.PressMouse(form.ArrearsPayment);
    form.ArrearsPayment.Text("  ");
    Type(user, "\r");
    EXPECT_EQ(form.ArrearsPayment.Text(), "0.00");
    EXPECT_EQ(user.FocusName(), "ArrearsPayment");
  });
}

TEST_F(CorporateIncome, EnterInAnEmptyInstalmentMakesItZeroAndGoesToOk) {
  Show<GOVCORPINCOME>("02", [](GOVCORPINCOME& form, UserDriver& user) {
    user.Click(form.optRC100);
    user.PressMouse(form.InstalmentPayment);
    form.InstalmentPayment.Text("  ");
    Type(user, "\r");
    EXPECT_EQ(form.InstalmentPayment.Text(), "0.00");
    EXPECT_EQ(user.FocusName(), "Command3D6");
  });
}

TEST_F(CorporateIncome, EmptyAmountsAreZerosUnderACommaLocaleToo) {
  SetLocale(FrenchCanada());
  Show<GOVCORPINCOME>("02", [](GOVCORPINCOME& form, UserDriver& user) {
    user.PressMouse(form.ArrearsPayment);
    form.ArrearsPayment.Text("");
    Type(user, "\r");
    EXPECT_EQ(form.ArrearsPayment.Text(), "0,00");
    user.Click(form.optRC100);
    user.PressMouse(form.InstalmentPayment);
    form.InstalmentPayment.Text("");
    Type(user, "\r");
    EXPECT_EQ(form.InstalmentPayment.Text(), "0,00");
  });
}

TEST_F(CorporateIncome, EnterReadsAnAmountWithoutAPointAsCents) {
  Show<GOVCORPINCOME>("02", [](GOVCORPINCOME& form, UserDriver& user) {
    user.PressMouse(form.ArrearsPayment);
    form.ArrearsPayment.Text(" 10000 ");
    Type(user, "\r");
    EXPECT_EQ(form.ArrearsPayment.Text(), "100.00");
    EXPECT_EQ(user.FocusName(), "Command3D6");
    user.Click(form.optRC100);
    user.PressMouse(form.InstalmentPayment);
    form.InstalmentPayment.Text(" 10000 ");
    Type(user, "\r");
    EXPECT_EQ(form.InstalmentPayment.Text(), "100.00");
    EXPECT_EQ(user.FocusName(), "EndDate");
  });
}

TEST_F(CorporateIncome, EnterRefusesAnAmountOwingAboveThePayment) {
  Show<GOVCORPINCOME>("02", [this](GOVCORPINCOME& form, UserDriver& user) {
    user.PressMouse(form.ArrearsPayment);
    form.ArrearsPayment.Text("12346");
    Type(user, "\r");
    ExpectOneCriticalBox("Arrears Payment cannot be greater than amount to be paid.");
    EXPECT_EQ(form.ArrearsPayment.Text(), "123.46");
    EXPECT_EQ(user.FocusName(), "ArrearsPayment");
  });
}

TEST_F(CorporateIncome, EnterRefusesAnInstalmentAboveThePayment) {
  Show<GOVCORPINCOME>("02", [this](GOVCORPINCOME& form, UserDriver& user) {
    user.Click(form.optRC100);
    user.PressMouse(form.InstalmentPayment);
    form.InstalmentPayment.Text("123.46");
    Type(user, "\r");
    ExpectOneCriticalBox("Instalment Payment cannot be greater than amount to be paid.");
    EXPECT_EQ(form.InstalmentPayment.Text(), "123.46");
    EXPECT_EQ(user.FocusName(), "InstalmentPayment");
  });
}

TEST_F(CorporateIncome, EnterSaysNothingAboutATextThatIsNoAmount) {
  Show<GOVCORPINCOME>("02", [](GOVCORPINCOME& form, UserDriver& user) {
    user.PressMouse(form.ArrearsPayment);
    form.ArrearsPayment.Text(" 1 2 ");
    Type(user, "\r");
    EXPECT_EQ(form.ArrearsPayment.Text(), "1 2");
    EXPECT_EQ(user.FocusName(), "ArrearsPayment");
    user.Click(form.optRC100);
    user.PressMouse(form.InstalmentPayment);
    form.InstalmentPayment.Text(" 1 2 ");
    Type(user, "\r");
    EXPECT_EQ(form.InstalmentPayment.Text(), "1 2");
    EXPECT_EQ(user.FocusName(), "InstalmentPayment");
  });
}

// The amount owing is closed while an instalment is paid: the move there fails, and the focus stays.
TEST_F(CorporateIncome, EnterInADateStaysWhereTheAmountsDoNotAddUp) {
  Show<GOVCORPINCOME>("02", [](GOVCORPINCOME& form, UserDriver& user) {
    FillInInstalment(form, user);
    form.InstalmentPayment.Text("100.00");
    user.PressMouse(form.EndDate);
    Type(user, "\r");
    EXPECT_EQ(user.FocusName(), "EndDate");
    form.ArrearsPayment.Enabled(true);
    Type(user, "\r");
    EXPECT_EQ(user.FocusName(), "ArrearsPayment");
  });
}

TEST_F(CorporateIncome, EnterInADateAddsBothAmounts) {
  Show<GOVCORPINCOME>("02", [](GOVCORPINCOME& form, UserDriver& user) {
    FillInInstalment(form, user);
    form.InstalmentPayment.Text("100.00");
    form.ArrearsPayment.Text("23.45");
    user.PressMouse(form.EndDate);
    Type(user, "\r");
    EXPECT_EQ(user.FocusName(), "Command3D6");
  });
}

TEST_F(CorporateIncome, EnterGoesOnFromAnEmptyDateWhereNoInstalmentStands) {
  Show<GOVCORPINCOME>("02", [](GOVCORPINCOME& form, UserDriver& user) {
    user.Click(form.optRC100);
    form.InstalmentPayment.Text("");
    form.ArrearsPayment.Text("123.45");
    Type(user, "\r");
    EXPECT_EQ(user.FocusName(), "Command3D6");
  });
}

TEST_F(CorporateIncome, OkMakesAnEmptyInstalmentZeroAndRefusesIt) {
  Show<GOVCORPINCOME>("02", [this](GOVCORPINCOME& form, UserDriver& user) {
    FillInInstalment(form, user);
    form.InstalmentPayment.Text(" ");
    user.Click(form.Command3D6);
    ExpectOneCriticalBox(kNoInstalment);
    EXPECT_EQ(form.InstalmentPayment.Text(), "0.00");
    EXPECT_EQ(user.SelectedText(form.InstalmentPayment), "0.00");
    EXPECT_EQ(user.FocusName(), "InstalmentPayment");
  });
}

TEST_F(CorporateIncome, OkTrimsTheInstalmentOfAnAmountOwingToo) {
  Show<GOVCORPINCOME>("02", [this](GOVCORPINCOME& form, UserDriver& user) {
    form.InstalmentPayment.Text(" 1.00 ");
    form.ArrearsPayment.Text("0");
    user.Click(form.Command3D6);
    ExpectOneCriticalBox(kNothingOwing);
    EXPECT_EQ(form.InstalmentPayment.Text(), "1.00");
  });
}

TEST_F(CorporateIncome, OkMakesAnEmptyAmountOwingZeroAndRefusesIt) {
  Show<GOVCORPINCOME>("02", [this](GOVCORPINCOME& form, UserDriver& user) {
    form.ArrearsPayment.Text(" ");
    user.Click(form.Command3D6);
    ExpectOneCriticalBox(kNothingOwing);
    EXPECT_EQ(form.ArrearsPayment.Text(), "0.00");
    EXPECT_EQ(user.SelectedText(form.ArrearsPayment), "0.00");
    EXPECT_EQ(user.FocusName(), "ArrearsPayment");
  });
}

class CorporateIncomeRandomly : public RandomActsTest<GOVCORPINCOME> {
 protected:
  void ExpectRecordsOf(const std::string& seqNumber, const RandomPayment& payment) override {
    const std::vector<std::string> records = Records();
    ASSERT_EQ(records.size(), 2U);
    EXPECT_EQ(records[0],
              Ruled("PC4" + seqNumber + "T" + std::string(32, ' ') + "Jane Doe" + std::string(22, ' ') + "Clerk"));
    ASSERT_EQ(records[1].size(), 160U);
    if (records[1].substr(8, 2) == "03") {
      EXPECT_EQ(records[1], Ruled("PC4" + seqNumber + "F03" + payment.field));
      return;
    }
    const std::string date = records[1].substr(30, 8);
    EXPECT_EQ(records[1], Ruled("PC4" + seqNumber + "F01" + payment.field + "02" + date));
    EXPECT_TRUE(date >= "20240101" && date <= "20281231") << date;
  }
};

TEST_F(CorporateIncomeRandomly, NoActsLeadToACrashOrABadRecord) {
  const std::vector<RandomPayment> payments = {{"12345", "000000000000012345"},
                                               {"5", "000000000000000005"},
                                               {"123456789012", "000000123456789012"},
                                               {"0", "no record"},
                                               {"-12345", "no record"}};
  const RandomUser random(20260615, {"20260531", "20260531", "20260615", "20250101", "20260431", "2026053", "20281231",
                                     "20231231", "123.45", "12345", "-5"});
  Play("02", random, payments);
}

}  // namespace
}  // namespace fiscalon::corporate_income_test
