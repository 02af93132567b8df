#include "screens/quebec/csst_payments.h"

#include <gmock/gmock.h>

#include <algorithm>

#include "core/forms/keys.h"
#include "tests/support/payment_test.h"
#include "tests/support/raises.h"
#include "tests/support/random_acts.h"
#include "tests/support/ruled_record.h"
#include "tests/support/told_form.h"

namespace fiscalon::csst_payments_test {
namespace {

using testing::ElementsAre;

const bool kFormTold = Tell(
    {.codes = {"25", "26", "27"},
     .routine = "ShowQue_Rev_CSST_Payments",
     .form = "frmQue_Rev_CSST_Payments",
     .controls = {"0 txtRemittancePeriod", "1 cmdOK", "2 cmdCancel", "3 txtYear", "4 txtMonth", "12 txtAmountPayable"},
     .escape = "cmdCancel"});

constexpr const char* kAfter2011 =
    "Remittance Period End Date must be a valid date, in the form YYYYMMDD and after January 1, 2011.";
constexpr const char* kNearThePayment =
    "Remittance Period End Date must be a valid date, in the form YYYYMMDD and must not be more than 8 years in the "
    "past or more than 1 year in the future.";
constexpr const char* kMonthNearThePayment =
    "Month for which non-resident tax was withheld must be a valid date, in the form YYYYMM and must not be more than "
    "8 years in the past or more than 1 year in the future.";

// clang-format off
const std::string kRecordT =
    // head  |start   |end     |due     |filler1 |contact name                  |contact title       |filler2   |
    "PC40001T        20260531                Jane Doe                      Clerk                         ";
const std::string kRecordTOfAMonth =
    // head  |start   |end     |due     |filler1 |contact name                  |contact title       |filler2   |
    "PC40001T                                Jane Doe                      Clerk                         ";
const std::string kRecordFOfAnAmount =
    // head  |amount              |nothing             |nothing             |nothing             |
    "PC40001F01000000000000050000020000000000000000000300000000000000000004000000000000000000";
const std::string kRecordFOfAMonth =
    // head  |year and month      |no slot             |no slot             |no slot             |
    "PC40001F01202605                                                                        ";
// clang-format on

class CsstPayment : public PaymentTest<frmQue_Rev_CSST_Payments> {
 protected:
  CsstPayment() : PaymentTest("50000") {
    session.CompCode("001051");
    session.PaidDate("06152026");
  }

  void FillIn(frmQue_Rev_CSST_Payments& /*form*/, UserDriver& user) const override { Type(user, "20260531"); }
  Button& OkButton(frmQue_Rev_CSST_Payments& form) const override { return form.cmdOK; }
};

class CsstPaymentsRecords : public CsstPayment {
 protected:
  std::string Code() const override { return "25"; }
  std::vector<std::string> Expected() const override { return {kRecordT, kRecordFOfAnAmount}; }
};

class CsstPaymentsRecordsOf26 : public CsstPayment {
 protected:
  std::string Code() const override { return "26"; }
  std::vector<std::string> Expected() const override { return {kRecordT}; }
};

class CsstPaymentsRecordsOf27 : public CsstPayment {
 protected:
  std::string Code() const override { return "27"; }
  /// A year and a month, whose fields are filled one after the other.
  void FillIn(frmQue_Rev_CSST_Payments& /*form*/, UserDriver& user) const override { Type(user, "202605"); }
  std::vector<std::string> Expected() const override { return {kRecordTOfAMonth, kRecordFOfAMonth}; }
};

const bool kTestsAdded = AddRecordsTests<CsstPaymentsRecords>("CsstPaymentsRecords") &&
                         AddRecordsTests<CsstPaymentsRecordsOf26>("CsstPaymentsRecordsOf26") &&
                         AddRecordsTests<CsstPaymentsRecordsOf27>("CsstPaymentsRecordsOf27");

TEST_F(CsstPaymentsRecords, AreTheSameForEveryBiller) {
  for (const char* biller : {"001053", "001055", ""}) {
    session.CompCode(biller);
    EXPECT_TRUE(EnterAndPressOk());
    EXPECT_THAT(Records(), ElementsAre(Ruled(kRecordT), Ruled(kRecordFOfAnAmount))) << biller;
  }
}

TEST_F(CsstPaymentsRecords, HoldTheAmountAsItIsShown) {
  EXPECT_TRUE(EnterAndPressOk([](frmQue_Rev_CSST_Payments& form) { form.txtAmountPayable.Text("-12.34"); }));
  EXPECT_EQ(Records()[1],
            // head  |amount              |nothing             |nothing             |nothing             |
            Ruled("PC40001F01-00000000000001234020000000000000000000300000000000000000004000000000000000000"));
}

TEST_F(CsstPaymentsRecords, HoldWhateverTheFieldHolds) {
  EXPECT_TRUE(EnterAndPressOk([](frmQue_Rev_CSST_Payments& form) { form.txtRemittancePeriod.Text("2011"); }));
  EXPECT_EQ(Records()[0].substr(8, 24), "        2011            ");
}

TEST_F(CsstPaymentsRecordsOf27, HoldWhateverTheFieldsHold) {
  EXPECT_TRUE(EnterAndPressOk([](frmQue_Rev_CSST_Payments& form) {
    form.txtYear.Text("19");
    form.txtMonth.Text("9");
  }));
  EXPECT_EQ(Records()[1],
            // head  |year and month      |no slot             |no slot             |no slot             |
            Ruled("PC40001F01199               "));
}

class CsstPayments : public ScreenTest {
 protected:
  CsstPayments() {
    session.PaidAmount("50000");
    session.PaidDate("06152026");
  }
};

TEST_F(CsstPayments, FieldsFitTheirEntries) {
  const frmQue_Rev_CSST_Payments form;
  EXPECT_EQ(form.txtRemittancePeriod.MaxLength(), 8);
  EXPECT_EQ(form.txtRemittancePeriod.Designed().alignment, Alignment::Left);
  EXPECT_EQ(form.txtYear.MaxLength(), 4);
  EXPECT_EQ(form.txtMonth.MaxLength(), 2);
  EXPECT_EQ(form.txtAmountPayable.MaxLength(), 12);
  EXPECT_EQ(form.txtAmountPayable.Designed().alignment, Alignment::Right);
  EXPECT_FALSE(form.txtAmountPayable.Designed().tabStop);
  EXPECT_TRUE(form.txtAmountPayable.Designed().locked);
  EXPECT_TRUE(form.lblAmountPayable.Designed().bold);
}

TEST_F(CsstPayments, TheFrameWithoutACaptionHoldsYearAndMonth) {
  frmQue_Rev_CSST_Payments form;
  for (const Control* held : std::initializer_list<const Control*>{&form.lblMonthWithheld, &form.txtYear, &form.Label3,
                                                                   &form.txtMonth, &form.Label4})
    EXPECT_EQ(held->EnclosingFrame(), &form.fraMonthNonResidentTax) << held->Name();
  EXPECT_EQ(form.fraMonthNonResidentTax.Caption(), "");
}

TEST_F(CsstPayments, YearAndMonthHideWithTheirFrame) {
  for (const char* code : {"25", "26", "27"}) {
    Show<frmQue_Rev_CSST_Payments>(code, [&](frmQue_Rev_CSST_Payments& form, UserDriver&) {
      const bool asksForAMonth = std::string_view(code) == "27";
      EXPECT_EQ(form.fraMonthNonResidentTax.Visible(), asksForAMonth) << code;
      for (const Control* control : {&form.txtYear, &form.txtMonth}) {
        EXPECT_TRUE(control->Visible()) << code;
        EXPECT_EQ(control->VisibleInFrames(), asksForAMonth) << code;
      }
    });
  }
}

class CsstPaymentsOfAnUnknownType : public ScreenTest {
 protected:
  CsstPaymentsOfAnUnknownType() {
    form.CompName("Another Biller");
    form.PaidAmount("500");
    form.PaidDate("06152026");
    form.EnterName("Jane Doe");
    form.EnterTitle("Clerk");
    form.SeqNumber("0001");
  }

  frmQue_Rev_CSST_Payments form;
};

TEST_F(CsstPaymentsOfAnUnknownType, LooksLike25) {
  for (const char* type : {"99", "", " 26", "2"}) {
    form.ScreenType(type);
    form.Load();
    EXPECT_EQ(form.Caption(), "Revenue Quebec CSST Payments") << type;
    EXPECT_TRUE(form.lblAmountPayable.Visible()) << type;
    EXPECT_TRUE(form.txtAmountPayable.Visible()) << type;
    EXPECT_EQ(form.txtAmountPayable.Text(), "500.00") << type;
    EXPECT_TRUE(form.txtRemittancePeriod.Visible()) << type;
    EXPECT_FALSE(form.fraMonthNonResidentTax.Visible()) << type;
    form.Unload();
  }
}

TEST_F(CsstPaymentsOfAnUnknownType, ChecksAndWritesLike25) {
  form.ScreenType("99");
  frontEnd.onForm = [&](Form&, UserDriver& user) {
    EXPECT_EQ(user.FocusName(), "txtRemittancePeriod");
    Type(user, "20110101");
    const std::vector<BoxRequest> boxes = TakeBoxes();
    ASSERT_EQ(boxes.size(), 1U);
    EXPECT_EQ(boxes[0].text, kAfter2011);
    EXPECT_EQ(boxes[0].style, MessageStyle::Critical);
    Type(user, "20260531");
    user.Click(form.cmdOK);
  };
  form.ShowModal(frontEnd);
  EXPECT_EQ(form.Chosen(), kTrue);
  ASSERT_EQ(form.PC4Records()->Count(), 2);
  EXPECT_EQ(form.PC4Records()->Item(1).Description(), Ruled(kRecordT));
  EXPECT_EQ(form.PC4Records()->Item(2).Description(), Ruled(kRecordFOfAnAmount));
}

// The range counts from the date that stands on the form.
TEST_F(CsstPayments, TheRangeOf26ComesFromTheDateShown) {
  Show<frmQue_Rev_CSST_Payments>("26", [&](frmQue_Rev_CSST_Payments& form, UserDriver& user) {
    form.head.PayDate.Caption("15/06/2000");
    Type(user, "19911231");
    std::vector<BoxRequest> boxes = TakeBoxes();
    ASSERT_EQ(boxes.size(), 1U);
    EXPECT_EQ(boxes[0].text, kNearThePayment);
    Type(user, "19920101");
    EXPECT_EQ(user.FocusName(), "cmdOK");
    user.PressKey(*StrokeNamed("Shift+Tab"));
    Type(user, "20020101");
    boxes = TakeBoxes();
    ASSERT_EQ(boxes.size(), 1U);
    EXPECT_EQ(boxes[0].text, kNearThePayment);
    Type(user, "20011231");
    EXPECT_EQ(user.FocusName(), "cmdOK");
  });
}

TEST_F(CsstPayments, TheRangeOf27ComesFromTheDateShown) {
  Show<frmQue_Rev_CSST_Payments>("27", [&](frmQue_Rev_CSST_Payments& form, UserDriver& user) {
    form.head.PayDate.Caption("15/06/2000");
    Type(user, "1991");
    std::vector<BoxRequest> boxes = TakeBoxes();
    ASSERT_EQ(boxes.size(), 1U);
    EXPECT_EQ(boxes[0].text, kMonthNearThePayment);
    Type(user, "2002");
    EXPECT_EQ(TakeBoxes().size(), 1U);
    Type(user, "1992");
    EXPECT_EQ(user.FocusName(), "txtMonth");
  });
}

TEST_F(CsstPayments, MessagesQuoteTheCaptionsAsTheyStand) {
  Show<frmQue_Rev_CSST_Payments>("25", [&](frmQue_Rev_CSST_Payments& form, UserDriver& user) {
    form.lblPeriodEndDate.Caption("End");
    user.PressMouse(form.cmdOK);
    const std::vector<BoxRequest> boxes = TakeBoxes();
    ASSERT_EQ(boxes.size(), 1U);
    EXPECT_EQ(boxes[0].text, "End must be a valid date, in the form YYYYMMDD and after January 1, 2011.");
  });
  Show<frmQue_Rev_CSST_Payments>("27", [&](frmQue_Rev_CSST_Payments& form, UserDriver& user) {
    form.lblMonthWithheld.Caption("Month");
    user.PressMouse(form.cmdOK);
    const std::vector<BoxRequest> boxes = TakeBoxes();
    ASSERT_EQ(boxes.size(), 1U);
    EXPECT_EQ(boxes[0].text,
              "Month must be a valid date, in the form YYYYMM and must not be more than 8 years in the past or more "
              "than 1 year in the future.");
  });
}

TEST_F(CsstPayments, FullFieldsKeepTheFocusWhereTheNextIsDisabled) {
  Show<frmQue_Rev_CSST_Payments>("25", [](frmQue_Rev_CSST_Payments& form, UserDriver& user) {
    form.cmdOK.Enabled(false);
    Type(user, "20260531");
    EXPECT_EQ(user.FocusName(), "txtRemittancePeriod");
  });
  Show<frmQue_Rev_CSST_Payments>("27", [](frmQue_Rev_CSST_Payments& form, UserDriver& user) {
    form.txtMonth.Enabled(false);
    Type(user, "2026");
    EXPECT_EQ(user.FocusName(), "txtYear");
    form.txtMonth.Enabled(true);
    form.cmdOK.Enabled(false);
    user.PressMouse(form.txtMonth);
    Type(user, "05");
    EXPECT_EQ(user.FocusName(), "txtMonth");
    user.PressKey(*StrokeNamed("Shift+Tab"));
    Type(user, "2025");
    EXPECT_EQ(user.FocusName(), "txtYear");
  });
}

TEST_F(CsstPayments, OnlyEnterByItselfMovesOn) {
  Show<frmQue_Rev_CSST_Payments>("25", [](frmQue_Rev_CSST_Payments&, UserDriver& user) {
    Type(user, "20260531");
    user.PressKey(*StrokeNamed("Shift+Tab"));
    for (const int shift : {shift_state::kShift, shift_state::kControl, shift_state::kAlt}) {
      user.PressKey({.keyCode = key::kEnter, .shift = shift, .character = key::kEnter});
      EXPECT_EQ(user.FocusName(), "txtRemittancePeriod") << shift;
    }
    user.PressKey({.keyCode = key::kEnter, .character = key::kEnter});
    EXPECT_EQ(user.FocusName(), "cmdOK");
  });
}

// A form that a failed output has left loaded keeps its look, and goes by the new code in all else.
class CsstPaymentsUnderAnotherCode : public CsstPaymentsRecords {
 protected:
  CsstPaymentsUnderAnotherCode() {
    ModuleToChange().files = files;
    session.WriteFile(kTrue);
  }

  /// Makes the output of this code fail, and then launches the form by the other one.
  bool ShowAfterFailed(std::string_view failed, std::string_view code,
                       const std::function<void(frmQue_Rev_CSST_Payments& form, UserDriver& user)>& acts) {
    files->printsLeft = 0;
    EXPECT_EQ(ErrorOf([&] {
                Show<frmQue_Rev_CSST_Payments>(failed, [&](frmQue_Rev_CSST_Payments& form, UserDriver& user) {
                  Type(user, failed == "27" ? "202605" : "20260531");
                  user.Click(form.cmdOK);
                });
              }),
              61);
    files->printsLeft = 100;
    return Show<frmQue_Rev_CSST_Payments>(code, acts);
  }
};

TEST_F(CsstPaymentsUnderAnotherCode, TheLookOf25GoesByTheRulesOf26) {
  EXPECT_TRUE(ShowAfterFailed("25", "26", [&](frmQue_Rev_CSST_Payments& form, UserDriver& user) {
    EXPECT_EQ(form.Caption(), "Revenue Quebec CSST Payments");
    EXPECT_TRUE(form.txtAmountPayable.Visible());
    EXPECT_EQ(user.FocusName(), "txtRemittancePeriod");
    Type(user, "20171231");
    const std::vector<BoxRequest> boxes = TakeBoxes();
    ASSERT_EQ(boxes.size(), 1U);
    EXPECT_EQ(boxes[0].text, kNearThePayment);
    Type(user, "20260531");
    user.Click(form.cmdOK);
  }));
  EXPECT_EQ(files->contents[""], '"' + Ruled(kRecordT) + "\"\r\n");
}

// Year and month are then the whole of a date, and always too short.
TEST_F(CsstPaymentsUnderAnotherCode, TheLookOf27GoesByTheRulesOf25) {
  EXPECT_TRUE(ShowAfterFailed("27", "25", [&](frmQue_Rev_CSST_Payments& form, UserDriver& user) {
    EXPECT_EQ(form.Caption(), "");
    EXPECT_FALSE(form.txtRemittancePeriod.Visible());
    EXPECT_EQ(user.FocusName(), "cmdOK");
    user.PressMouse(form.txtYear);
    user.PressMouse(form.txtMonth);
    std::vector<BoxRequest> boxes = TakeBoxes();
    ASSERT_EQ(boxes.size(), 1U);
    EXPECT_EQ(boxes[0].text, kAfter2011);
    EXPECT_EQ(user.FocusName(), "txtYear");
    user.PressMouse(form.cmdCancel);
    user.Click(form.cmdOK);
  }));
  EXPECT_EQ(files->contents[""], '"' + Ruled(kRecordTOfAMonth) + "\"\r\n\"" + Ruled(kRecordFOfAnAmount) + "\"\r\n");
}

// The year itself is visible, but the frame that it lies in is not.
TEST_F(CsstPaymentsUnderAnotherCode, TheLookOf25HasNoPlaceForTheFirstFocusOf27) {
  EXPECT_EQ(ErrorOf([&] { ShowAfterFailed("25", "27", [](frmQue_Rev_CSST_Payments&, UserDriver&) {}); }), 5);
}

// Code alone can set a longer text; the rest of it is no part of the date.
TEST_F(CsstPayments, ThePeriodIsItsFirstEightCharacters) {
  Show<frmQue_Rev_CSST_Payments>("25", [&](frmQue_Rev_CSST_Payments& form, UserDriver& user) {
    form.txtRemittancePeriod.Text("202605319");
    user.PressMouse(form.cmdOK);
    EXPECT_TRUE(TakeBoxes().empty());
    EXPECT_EQ(user.FocusName(), "cmdOK");
  });
}

TEST_F(CsstPayments, ThePeriodIsNoMatterOf27) {
  Show<frmQue_Rev_CSST_Payments>("25", [&](frmQue_Rev_CSST_Payments& form, UserDriver& user) {
    form.ScreenType("27");
    user.PressMouse(form.cmdOK);
    EXPECT_TRUE(TakeBoxes().empty());
    EXPECT_EQ(user.FocusName(), "cmdOK");
  });
}

class CsstPaymentsRandomly : public RandomActsTest<frmQue_Rev_CSST_Payments> {
 protected:
  CsstPaymentsRandomly() { session.PaidDate("06152026"); }

  // OK tests nothing, and Cancel lets any digits through.
  void ExpectRecordsOf(const std::string& seqNumber, const RandomPayment& payment) override {
    const std::vector<std::string> records = Records();
    ASSERT_EQ(records.size(), code == "26" ? 1U : 2U);
    for (const std::string& record : records) ASSERT_EQ(record.size(), 160U);
    const std::string period = Entered(records[0].substr(16, 8), code != "27");
    EXPECT_EQ(records[0], Ruled("PC4" + seqNumber + "T" + std::string(8, ' ') + period + std::string(16, ' ') +
                                "Jane Doe" + std::string(22, ' ') + "Clerk"));
    if (code == "25") {
      EXPECT_EQ(records[1], Ruled("PC4" + seqNumber + "F01" + payment.field +
                                  "020000000000000000000300000000000000000004000000000000000000"));
    } else if (code == "27") {
      EXPECT_EQ(records[1], Ruled("PC4" + seqNumber + "F01" + Entered(records[1].substr(10, 6), true)));
    }
  }

  void PlayCode(std::string_view screen) {
    code = screen;
    const std::vector<RandomPayment> payments = {{"12345", "000000000000012345"},
                                                 {"5", "000000000000000005"},
                                                 {"0", "000000000000000000"},
                                                 {"-5", "-00000000000000005"}};
    const RandomUser random(20260615, {"20260531", "20260531", "20110101", "20280101", "20260299", "2026", "2026",
                                       "2017", "05", "05", "13", "0"});
    Play(screen, random, payments);
  }

 private:
  static std::string Entered(const std::string& columns, bool asked) {
    const size_t digits = asked ? std::min(columns.find_first_not_of("0123456789"), columns.size()) : 0;
    EXPECT_EQ(columns.find_first_not_of(' ', digits), std::string::npos) << columns;
    return columns;
  }

  std::string_view code;
};

TEST_F(CsstPaymentsRandomly, NoActsLeadToACrashOrABadRecordOf25) {
  PlayCode("25");
}

TEST_F(CsstPaymentsRandomly, NoActsLeadToACrashOrABadRecordOf26) {
  PlayCode("26");
}

TEST_F(CsstPaymentsRandomly, NoActsLeadToACrashOrABadRecordOf27) {
  PlayCode("27");
}

}  // namespace
}  // namespace fiscalon::csst_payments_test
