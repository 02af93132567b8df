#include "screens/federal/gst58.h"

#include <gmock/gmock.h>

#include <initializer_list>
#include <string>
#include <vector>

#include "tests/support/payment_test.h"
#include "tests/support/random_acts.h"
#include "tests/support/ruled_record.h"
#include "tests/support/told_form.h"

namespace fiscalon::gst58_test {
namespace {

using testing::ElementsAre;

const bool kFormTold =
    Tell({.codes = {"06"},
          .routine = "ShowGST58Form",
          .form = "GOVGST58",
          .controls = {"1 PeriodStartDate", "2 PeriodEndDate", "3 InstalmentPayment", "4 ArrearsPayment",
                       "5 OtherPayment", "6 AuditAssessment", "7 NetTaxDue", "8 PaymentEnclosed", "28 PayeeName",
                       "- Command3D6", "- Command3D5", "- Command3D4"}});

constexpr const char* kAskStart = "Please enter the date for the start of the period.";
constexpr const char* kAskEnd = "Please enter the date for the end of period.";
constexpr const char* kBadDate = "Invalid date value.";
constexpr const char* kStartOfOtherYear =
    "The year for Period From entered does not correspond to the current year.\r\n"
    "Are you sure you want to use it?";
constexpr const char* kEndOfOtherYear =
    "The year for To entered does not correspond to the current year.\r\n"
    "Are you sure you want to use it?";
constexpr const char* kSameDates = "Period starting date is same as ending date.";
constexpr const char* kEndBeforeStart = "Period ending date is incorrect.";
constexpr const char* kInstalmentBelowZero = "Instalment Amount cannot be less than 0.";
constexpr const char* kArrearsBelowZero = "Arrears Amount cannot be less than 0.";
constexpr const char* kOtherBelowZero = "Other payment cannot be less than 0.";
constexpr const char* kAuditBelowZero = "Audit Assessment cannot be less than 0.";
constexpr const char* kNetTaxBelowZero = "Net Tax Due cannot be less than 0.";
constexpr const char* kNothingEnclosed = "Payment enclosed cannot be 0.";
constexpr const char* kAskTotal = "Please enter amount of payment enclosed.";
constexpr const char* kTotalBelowZero = "Payment enclosed cannot be less than 0.";
constexpr const char* kAskCategory = "Please indicate which category this payment refers to.";
constexpr const char* kOtherAmount = "Payment enclosed is not equal to amount to be paid.";

/// Sets a full date from code without the focus moving on, which it would do towards an enabled field.
void SetDate(TextField& date, TextField& next, std::string_view text) {
  next.Enabled(false);
  date.Text(text);
  next.Enabled(true);
}

void SetStart(GOVGST58& form, std::string_view text) {
  SetDate(form.PeriodStartDate, form.PeriodEndDate, text);
}

void SetEnd(GOVGST58& form, std::string_view text) {
  SetDate(form.PeriodEndDate, form.InstalmentPayment, text);
}

// 50.00 + 20.00 + 30.45 + 13.00 + 10.00 = 123.45
void EnterEachCategory(GOVGST58& form, UserDriver& user) {
  user.PressMouse(form.PeriodStartDate);
  Type(user, "20260401");
  Type(user, "20260630");
  Type(user, "50.00\r20.00\r30.45\r13.00\r10.00\r");
}

// More than money holds: the total is not added up anew, and so is what was typed there.
constexpr const char* kBeyondMoney = "1000000000000000000.00";
// More than a number holds, which counts as none.
constexpr const char* kBeyondNumbers = "1E400";

void EmptyCategories(GOVGST58& form) {
  for (TextField* category : std::initializer_list<TextField*>{
           &form.InstalmentPayment, &form.ArrearsPayment, &form.OtherPayment, &form.AuditAssessment, &form.NetTaxDue})
    category->Text("");
}

void LeaveTotalAs(GOVGST58& form, std::string_view text) {
  form.InstalmentPayment.Text(kBeyondMoney);
  form.PaymentEnclosed.Text(text);
}

// clang-format off
const std::string kRecordT =
    // head  |start   |end     |due     |filler1 |contact name                  |contact title       |filler2   |
    "PC40001T2026040120260630                Jane Doe                      Clerk                         ";
const std::string kRecordF1 =
    // head  |instalment          |arrears             |audit assessment    |other payment       |
    "PC40001F01000000000000005000020000000000000020000300000000000000130004000000000000003045";
const std::string kRecordF2 =
    // head  |total               |net tax             |
    "PC40001F0500000000000001234506000000000000001000";
// clang-format on

class Gst58Payment : public PaymentTest<GOVGST58> {
 protected:
  Gst58Payment() : PaymentTest("12345") { yesOrNo = MessageAnswer::No; }

  std::string Code() const override { return "06"; }
  void FillIn(GOVGST58& form, UserDriver& user) const override { EnterEachCategory(form, user); }
  Button& OkButton(GOVGST58& form) const override { return form.Command3D6; }

  std::span<const Row> Rows() const override {
    static constexpr Row kRows[] = {
        {.name = "start is missing",
         .spoil = [](GOVGST58& form) { SetStart(form, "  "); },
         .message = kAskStart,
         .focus = "PeriodStartDate"},
        {.name = "start is none",
         .spoil = [](GOVGST58& form) { SetStart(form, "20260431"); },
         .message = kBadDate,
         .focus = "PeriodStartDate"},
        {.name = "start is of another year",
         .spoil = [](GOVGST58& form) { SetStart(form, "20250401"); },
         .message = kStartOfOtherYear,
         .focus = "PeriodStartDate",
         .style = MessageStyle::Exclamation,
         .title = "Date Warning"},
        {.name = "end is missing",
         .spoil = [](GOVGST58& form) { SetEnd(form, "  "); },
         .message = kAskEnd,
         .focus = "PeriodEndDate"},
        {.name = "end is short",
         .spoil = [](GOVGST58& form) { SetEnd(form, "2026063"); },
         .message = kBadDate,
         .focus = "PeriodEndDate"},
        {.name = "end is none",
         .spoil = [](GOVGST58& form) { SetEnd(form, "20260631"); },
         .message = kBadDate,
         .focus = "PeriodEndDate"},
        {.name = "end is the start",
         .spoil = [](GOVGST58& form) { SetEnd(form, "20260401"); },
         .message = kSameDates,
         .focus = "PeriodEndDate"},
        {.name = "end is before the start",
         .spoil = [](GOVGST58& form) { SetEnd(form, "20260331"); },
         .message = kEndBeforeStart,
         .focus = "PeriodEndDate"},
        {.name = "end is of another year",
         .spoil = [](GOVGST58& form) { SetEnd(form, "20270630"); },
         .message = kEndOfOtherYear,
         .focus = "PeriodEndDate",
         .style = MessageStyle::Exclamation,
         .title = "Date Warning"},
        {.name = "instalment is below zero",
         .spoil = [](GOVGST58& form) { form.InstalmentPayment.Text("-5"); },
         .message = kInstalmentBelowZero,
         .focus = "InstalmentPayment"},
        {.name = "instalment is no amount",
         .spoil = [](GOVGST58& form) { form.InstalmentPayment.Text("5a"); },
         .focus = "InstalmentPayment"},
        {.name = "arrears are below zero",
         .spoil = [](GOVGST58& form) { form.ArrearsPayment.Text("-5"); },
         .message = kArrearsBelowZero,
         .focus = "ArrearsPayment"},
        {.name = "arrears are no amount",
         .spoil = [](GOVGST58& form) { form.ArrearsPayment.Text("5a"); },
         .focus = "ArrearsPayment"},
        {.name = "other payment is below zero",
         .spoil = [](GOVGST58& form) { form.OtherPayment.Text("-5"); },
         .message = kOtherBelowZero,
         .focus = "OtherPayment"},
        {.name = "other payment is no amount",
         .spoil = [](GOVGST58& form) { form.OtherPayment.Text("5a"); },
         .focus = "OtherPayment"},
        {.name = "audit assessment is below zero",
         .spoil = [](GOVGST58& form) { form.AuditAssessment.Text("-5"); },
         .message = kAuditBelowZero,
         .focus = "AuditAssessment"},
        {.name = "audit assessment is no amount",
         .spoil = [](GOVGST58& form) { form.AuditAssessment.Text("5a"); },
         .focus = "AuditAssessment"},
        {.name = "net tax is below zero",
         .spoil = [](GOVGST58& form) { form.NetTaxDue.Text("-5"); },
         .message = kNetTaxBelowZero,
         .focus = "NetTaxDue"},
        {.name = "net tax is no amount",
         .spoil = [](GOVGST58& form) { form.NetTaxDue.Text("5a"); },
         .focus = "NetTaxDue"},
        {.name = "total is missing",
         .spoil = [](GOVGST58& form) { LeaveTotalAs(form, "  "); },
         .message = kAskTotal,
         .focus = "PaymentEnclosed"},
        {.name = "no category has an amount",
         .spoil = [](GOVGST58& form) { EmptyCategories(form); },
         .message = kNothingEnclosed,
         .focus = "PaymentEnclosed"},
        {.name = "total is below zero",
         .spoil = [](GOVGST58& form) { LeaveTotalAs(form, "-5"); },
         .message = kTotalBelowZero,
         .focus = "PaymentEnclosed"},
        {.name = "total is no amount",
         .spoil = [](GOVGST58& form) { LeaveTotalAs(form, "5a"); },
         .focus = "PaymentEnclosed"},
        {.name = "a total is of no category",
         .spoil =
             [](GOVGST58& form) {
               EmptyCategories(form);
               form.InstalmentPayment.Text(kBeyondNumbers);
               form.PaymentEnclosed.Text("123.45");
             },
         .message = kAskCategory,
         .focus = "InstalmentPayment"},
        {.name = "sum is another amount",
         .spoil = [](GOVGST58& form) { form.NetTaxDue.Text("10.01"); },
         .message = kOtherAmount,
         .focus = "PaymentEnclosed"},
    };
    return kRows;
  }

  std::vector<std::string> Expected() const override { return {kRecordT, kRecordF1, kRecordF2}; }
};

using Gst58OkPath = Gst58Payment;
using Gst58Records = Gst58Payment;
const bool kTestsAdded = AddOkPathTests<Gst58Payment>("Gst58OkPath") && AddRecordsTests<Gst58Payment>("Gst58Records");

TEST_F(Gst58OkPath, AddsUpWhateverTheTotalHolds) {
  for (const char* total : {"", "0", "-5", "5a", "99999"}) {
    SCOPED_TRACE(total);
    EXPECT_TRUE(EnterAndPressOk([&](GOVGST58& form) { form.PaymentEnclosed.Text(total); }));
    ASSERT_EQ(Records().size(), 3U);
  }
}

TEST_F(Gst58Records, AreMadeOfTrimmedEntriesInCents) {
  EXPECT_TRUE(EnterAndPressOk([](GOVGST58& form) {
    form.InstalmentPayment.Text(" 5000 ");
    form.ArrearsPayment.Text(" 20. ");
    form.OtherPayment.Text(" 3045 ");
    form.AuditAssessment.Text(" 13.0 ");
    form.NetTaxDue.Text(" 1000 ");
  }));
  EXPECT_THAT(Records(), ElementsAre(Ruled(kRecordT), Ruled(kRecordF1), Ruled(kRecordF2)));
}

TEST_F(Gst58Records, LeaveOutCategoriesOfZero) {
  EXPECT_TRUE(EnterAndPressOk([](GOVGST58& form) {
    form.InstalmentPayment.Text("0.00");
    form.ArrearsPayment.Text("");
    form.OtherPayment.Text("0");
    form.AuditAssessment.Text("abc");
    form.NetTaxDue.Text("123.45");
  }));
  EXPECT_THAT(Records(), ElementsAre(Ruled(kRecordT),
                                     // head  |total               |net tax             |
                                     Ruled("PC40001F0500000000000001234506000000000000012345")));
}

TEST_F(Gst58Records, FailUnseenBehindEnterAndTheFileStaysOpenUntilTheFormUnloads) {
  WriteToMemory();
  files->printsLeft = 1;
  EXPECT_FALSE(Show<GOVGST58>("06", [&](GOVGST58& form, UserDriver& user) {
    FillIn(form, user);
    EXPECT_EQ(user.FocusName(), "PaymentEnclosed");
    Type(user, "\r");
    EXPECT_TRUE(form.IsUp());
    EXPECT_EQ(files->openFiles, 1);
  }));
  EXPECT_EQ(files->openFiles, 0);
  EXPECT_EQ(files->contents["payment.pc4"], '"' + Ruled(kRecordT) + "\"\r\n");
}

class Gst58 : public ScreenTest {
 protected:
  Gst58() { session.PaidAmount("12345"); }
};

TEST_F(Gst58, FieldsFitTheirEntries) {
  const GOVGST58 form;
  for (const DateEntry* date : {&form.PeriodStartDate, &form.PeriodEndDate}) {
    EXPECT_EQ(date->MaxLength(), 8) << date->Name();
    EXPECT_EQ(date->Designed().alignment, Alignment::Left) << date->Name();
  }
  for (const TypedAmount* amount : {&form.InstalmentPayment, &form.ArrearsPayment, &form.OtherPayment,
                                    &form.AuditAssessment, &form.NetTaxDue, &form.PaymentEnclosed}) {
    EXPECT_EQ(amount->MaxLength(), 12) << amount->Name();
    EXPECT_EQ(amount->Designed().alignment, Alignment::Right) << amount->Name();
  }
}

TEST_F(Gst58, FullDatesKeepTheFocusWhereTheNextFieldIsDisabled) {
  Show<GOVGST58>("06", [](GOVGST58& form, UserDriver& user) {
    form.PeriodEndDate.Enabled(false);
    Type(user, "20260401");
    EXPECT_EQ(user.FocusName(), "PeriodStartDate");
    form.PeriodEndDate.Enabled(true);
    form.InstalmentPayment.Enabled(false);
    user.PressMouse(form.PeriodEndDate);
    Type(user, "20260630");
    EXPECT_EQ(user.FocusName(), "PeriodEndDate");
  });
}

TEST_F(Gst58, OkCancelAndClosingLeaveTheFlagOfTheSession) {
  ModuleToChange().showGst58 = true;
  EXPECT_TRUE(Show<GOVGST58>("06", [](GOVGST58& form, UserDriver& user) {
    EnterEachCategory(form, user);
    user.Click(form.Command3D6);
  }));
  EXPECT_TRUE(session.ShowGST58());
  Show<GOVGST58>("06", [](GOVGST58& form, UserDriver& user) { user.Click(form.Command3D5); });
  EXPECT_TRUE(session.ShowGST58());
  for (const int reason : {0, 1, 2, 3, 4, 5}) {
    Show<GOVGST58>("06", [&](GOVGST58&, UserDriver& user) { user.CloseWindow(static_cast<CloseReason>(reason)); });
    EXPECT_TRUE(session.ShowGST58()) << reason;
  }
}

class Gst58Randomly : public RandomActsTest<GOVGST58> {
 protected:
  // A category that is too large for money leaves the total as it was, which passes, and can't be written.
  bool MayFail(const RuntimeError& error) const override { return error.Number() == 6; }

  void ExpectRecordsOf(const std::string& seqNumber, const RandomPayment& payment) override {
    const std::vector<std::string> records = Records();
    ASSERT_TRUE(records.size() == 2 || records.size() == 3) << records.size();
    const std::string start = records[0].substr(8, 8), end = records[0].substr(16, 8);
    EXPECT_EQ(records[0], Ruled("PC4" + seqNumber + "T" + start + end + std::string(16, ' ') + "Jane Doe" +
                                std::string(22, ' ') + "Clerk"));
    EXPECT_TRUE("20240101" <= start && start < end && end <= "20281231") << start << end;
    std::string slots;
    for (size_t i = 1; i < records.size(); ++i) {
      ASSERT_EQ(records[i].size(), 160U);
      EXPECT_EQ(records[i].substr(0, 8), "PC4" + seqNumber + "F");
      EXPECT_EQ(records[i].substr(88), std::string(72, ' '));
      slots += records[i].substr(8, 80);
    }
    slots.erase(slots.find_last_not_of(' ') + 1);
    ExpectSlots(slots, payment.field);
  }

 private:
  /// Numbers rise, no value is zero, and the categories are the total, which is what was paid.
  static void ExpectSlots(const std::string& slots, const std::string& paid) {
    ASSERT_EQ(slots.size() % 20, 0U) << slots;
    long long sum = 0, total = 0;
    for (size_t at = 0; at < slots.size(); at += 20) {
      const std::string number = slots.substr(at, 2), digits = slots.substr(at + 2, 18);
      EXPECT_TRUE("01" <= number && number <= "06" && (at == 0 || slots.substr(at - 20, 2) < number)) << slots;
      ASSERT_EQ(digits.find_first_not_of("0123456789"), std::string::npos) << slots;
      const long long value = std::stoll(digits);
      EXPECT_GT(value, 0) << slots;
      (number == "05" ? total : sum) += value;
    }
    EXPECT_EQ(sum, total) << slots;
    EXPECT_EQ(total, std::stoll(paid)) << slots;
  }
};

TEST_F(Gst58Randomly, NoActsLeadToACrashOrABadRecord) {
  const std::vector<RandomPayment> payments = {{"12345", "000000000000012345"},
                                               {"12345", "000000000000012345"},
                                               {"12345", "000000000000012345"},
                                               {"5", "000000000000000005"},
                                               {"0", "no record"},
                                               {"1E30", "no record"}};
  // From the start of the period on, some of the texts fill several fields, or all of them.
  const RandomUser random(
      20260615, {"202604012026063012345\r", "2026040120260630\r\r12345\r\r\r\r", "20260401202606305000\r7345\r\r\r\r",
                 "20260401202606305\r\r\r\r\r\r", "2026040120260630", "20260401", "20260630", "12345\r", "123.45\r",
                 "0\r", "-5", "1E20", "20250101", "20260431"});
  Play("06", random, payments);
}

}  // namespace
}  // namespace fiscalon::gst58_test
