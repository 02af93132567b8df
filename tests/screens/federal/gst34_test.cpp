#include "screens/federal/gst34.h"

#include "core/forms/laid_out.h"
#include "tests/screens/federal/gst34_entries.h"
#include "tests/support/raises.h"
#include "tests/support/told_form.h"

namespace fiscalon::gst34_test {
namespace {

const bool kFormTold =
    Tell({.codes = {"05"},
          .routine = "ShowGST34Form",
          .form = "GOVGST34",
          .controls = {"1 PeriodStartDate", "2 PeriodEndDate", "3 SalesRevenue", "4 InstalmentPayment", "5 Rebates",
                       "6 RealProperty", "7 ImportedTax", "8 TotalGST", "9 TotalITCs", "10 NetTax", "11 RefundAmount",
                       "12 PaymentEnclosed", "36 PayeeName", "- Command1", "- Command2", "- Command3"}});

constexpr const char* kAskStart = "Please enter the date for the start of the period.";
constexpr const char* kAskEnd = "Please enter the date for the end of period.";
constexpr const char* kBadDate = "Invalid date value.";
constexpr const char* kStartOfOtherYear =
    "The year for 'Reporting Period From' entered does not correspond to the current year.\r\n"
    "Are you sure you want to use it?";
constexpr const char* kEndOfOtherYear =
    "The year for 'Reporting Period To' entered does not correspond to the current year.\r\n"
    "Are you sure you want to use it?";
constexpr const char* kSameDates = "Reporting period starting date cannot be the same as ending date.";
constexpr const char* kEndBeforeStart = "Reporting period ending date is incorrect.";
constexpr const char* kSalesBelowZero = "Amount in sales and other revenue cannot be less than 0.";
constexpr const char* kSalesWithCents = "Amount of sales and other revenue cannot have decimal value.";
constexpr const char* kInstalmentBelowZero = "Instalment Amount cannot be less than 0.";
constexpr const char* kRebatesBelowZero = "Amount of rebates cannot be less than 0.";
constexpr const char* kRealPropertyBelowZero =
    "Amount of tax due on acquisition of real property cannot be less than 0.";
constexpr const char* kImportedTaxBelowZero = "Amount of tax due on taxable supplies cannot be less than 0.";
constexpr const char* kTotalTaxBelowZero =
    "Amount in total GST/HST and adjustments for period field cannot be less than 0.";
constexpr const char* kCreditsBelowZero = "Amount in total ITCs and adjustments field cannot be less than 0.";
constexpr const char* kNetTaxIncorrect = "Amount of Net tax is incorrect.";
constexpr const char* kTooLittleToPay = "You do not need to pay a balance less than $2.00";
constexpr const char* kOtherAmount = "The amount in the Payment Enclosed field is not equal to the amount to be paid.";
constexpr const char* kTooLittleToRefund = "A balance of less than $2.00 will not be refunded.";
constexpr const char* kRefundWithPayment = "In order to apply for a refund, the amount to be paid must be zero.";

/// Sets a full date from code without the focus moving on, which it would do towards an enabled field.
void SetDate(TextField& date, TextField& next, std::string_view text) {
  next.Enabled(false);
  date.Text(text);
  next.Enabled(true);
}

void SetStart(GOVGST34& form, std::string_view text) {
  SetDate(form.PeriodStartDate, form.PeriodEndDate, text);
}

void SetEnd(GOVGST34& form, std::string_view text) {
  SetDate(form.PeriodEndDate, form.SalesRevenue, text);
}

class Gst34OkPath : public Gst34Payment {
 protected:
  Gst34OkPath() { yesOrNo = MessageAnswer::No; }

  std::span<const Row> Rows() const override {
    static constexpr Row kRows[] = {
        {.name = "start is missing",
         .spoil = [](GOVGST34& form) { SetStart(form, "  "); },
         .message = kAskStart,
         .focus = "PeriodStartDate"},
        {.name = "start is short",
         .spoil = [](GOVGST34& form) { SetStart(form, "2026040"); },
         .focus = "PeriodStartDate"},
        {.name = "start is none",
         .spoil = [](GOVGST34& form) { SetStart(form, "20260431"); },
         .message = kBadDate,
         .focus = "PeriodStartDate"},
        {.name = "start is of another year",
         .spoil = [](GOVGST34& form) { SetStart(form, "20250401"); },
         .message = kStartOfOtherYear,
         .focus = "PeriodStartDate",
         .style = MessageStyle::Exclamation,
         .title = "Date Warning"},
        {.name = "end is missing",
         .spoil = [](GOVGST34& form) { SetEnd(form, "  "); },
         .message = kAskEnd,
         .focus = "PeriodEndDate"},
        {.name = "end is short",
         .spoil = [](GOVGST34& form) { SetEnd(form, "2026063"); },
         .message = kBadDate,
         .focus = "PeriodEndDate"},
        {.name = "end is none",
         .spoil = [](GOVGST34& form) { SetEnd(form, "20260631"); },
         .message = kBadDate,
         .focus = "PeriodEndDate"},
        {.name = "end is of another year",
         .spoil = [](GOVGST34& form) { SetEnd(form, "20270630"); },
         .message = kEndOfOtherYear,
         .focus = "PeriodEndDate",
         .style = MessageStyle::Exclamation,
         .title = "Date Warning"},
        {.name = "end is the start",
         .spoil = [](GOVGST34& form) { SetEnd(form, "20260401"); },
         .message = kSameDates,
         .focus = "PeriodEndDate"},
        {.name = "end is before the start",
         .spoil = [](GOVGST34& form) { SetEnd(form, "20260331"); },
         .message = kEndBeforeStart,
         .focus = "PeriodEndDate"},
        {.name = "sales are below zero",
         .spoil = [](GOVGST34& form) { form.SalesRevenue.Text("-5"); },
         .message = kSalesBelowZero,
         .focus = "SalesRevenue"},
        {.name = "sales are no amount",
         .spoil = [](GOVGST34& form) { form.SalesRevenue.Text("5a"); },
         .focus = "SalesRevenue"},
        {.name = "sales have cents",
         .spoil = [](GOVGST34& form) { form.SalesRevenue.Text("5000.50"); },
         .message = kSalesWithCents,
         .focus = "SalesRevenue",
         .style = MessageStyle::Plain},
        {.name = "instalments are below zero",
         .spoil = [](GOVGST34& form) { form.InstalmentPayment.Text("-5"); },
         .message = kInstalmentBelowZero,
         .focus = "InstalmentPayment"},
        {.name = "instalments are no amount",
         .spoil = [](GOVGST34& form) { form.InstalmentPayment.Text("5a"); },
         .focus = "InstalmentPayment"},
        {.name = "rebates are below zero",
         .spoil = [](GOVGST34& form) { form.Rebates.Text("-5"); },
         .message = kRebatesBelowZero,
         .focus = "Rebates"},
        {.name = "rebates are no amount", .spoil = [](GOVGST34& form) { form.Rebates.Text("5a"); }, .focus = "Rebates"},
        {.name = "tax on real property is below zero",
         .spoil = [](GOVGST34& form) { form.RealProperty.Text("-5"); },
         .message = kRealPropertyBelowZero,
         .focus = "RealProperty"},
        {.name = "tax on real property is no amount",
         .spoil = [](GOVGST34& form) { form.RealProperty.Text("5a"); },
         .focus = "RealProperty"},
        {.name = "self-assessed tax is below zero",
         .spoil = [](GOVGST34& form) { form.ImportedTax.Text("-5"); },
         .message = kImportedTaxBelowZero,
         .focus = "ImportedTax"},
        {.name = "self-assessed tax is no amount",
         .spoil = [](GOVGST34& form) { form.ImportedTax.Text("5a"); },
         .focus = "ImportedTax"},
        {.name = "total tax is below zero",
         .spoil = [](GOVGST34& form) { form.TotalGST.Text("-5"); },
         .message = kTotalTaxBelowZero,
         .focus = "TotalGST"},
        {.name = "total tax is no amount",
         .spoil = [](GOVGST34& form) { form.TotalGST.Text("5a"); },
         .focus = "TotalGST"},
        {.name = "credits are below zero",
         .spoil = [](GOVGST34& form) { form.TotalITCs.Text("-5"); },
         .message = kCreditsBelowZero,
         .focus = "TotalITCs"},
        {.name = "credits are no amount",
         .spoil = [](GOVGST34& form) { form.TotalITCs.Text("5a"); },
         .focus = "TotalITCs"},
        // Beyond what a float tells apart to the cent, so that the net tax shown is not the difference.
        {.name = "net tax is not the difference",
         .spoil = [](GOVGST34& form) { SetNetTax(form, "100000000000000.00", "0.01"); },
         .message = kNetTaxIncorrect,
         .focus = "NetTax"},
        {.name = "balance is too little to pay",
         .spoil = [](GOVGST34& form) { SetNetTax(form, "1.99", "0.00"); },
         .message = kTooLittleToPay,
         .focus = "PaymentEnclosed",
         .style = MessageStyle::Information},
        {.name = "balance is another amount",
         .spoil = [](GOVGST34& form) { SetNetTax(form, "123.46", "0.00"); },
         .message = kOtherAmount,
         .focus = "PaymentEnclosed"},
        {.name = "balance is too little to refund",
         .spoil = [](GOVGST34& form) { SetNetTax(form, "0.00", "1.99"); },
         .message = kTooLittleToRefund,
         .focus = "RefundAmount",
         .style = MessageStyle::Information},
        {.name = "refund comes with a payment",
         .spoil = [](GOVGST34& form) { SetNetTax(form, "0.00", "2.00"); },
         .message = kRefundWithPayment,
         .focus = "Command2"},
    };
    return kRows;
  }
};

const bool kTestsAdded = AddOkPathTests<Gst34OkPath>("Gst34OkPath");

TEST_F(Gst34OkPath, EmptiesWhateverIsBelowZero) {
  Show<GOVGST34>("05", [&](GOVGST34& form, UserDriver& user) {
    FillIn(form, user);
    for (TextField* amount :
         std::initializer_list<TextField*>{&form.SalesRevenue, &form.InstalmentPayment, &form.Rebates,
                                           &form.RealProperty, &form.ImportedTax, &form.TotalGST, &form.TotalITCs}) {
      SCOPED_TRACE(amount->Name());
      const std::string valid = amount->Text();
      user.PressMouse(form.Command1);
      amount->Text("-5");
      user.Click(form.Command1);
      EXPECT_EQ(TakeBoxes().size(), 1U);
      EXPECT_EQ(user.FocusName(), amount->Name());
      EXPECT_EQ(amount->Text(), "");
      amount->Text(valid);
    }
  });
}

TEST_F(Gst34OkPath, RewritesAmountsUpToTheOneItRefuses) {
  Show<GOVGST34>("05", [this](GOVGST34& form, UserDriver& user) {
    FillIn(form, user);
    user.PressMouse(form.Command1);
    form.InstalmentPayment.Text(" 3000 ");
    form.Rebates.Text(" 505a ");
    form.RealProperty.Text("850");
    user.Click(form.Command1);
    EXPECT_EQ(user.FocusName(), "Rebates");
    EXPECT_EQ(form.InstalmentPayment.Text(), "30.00");
    EXPECT_EQ(form.Rebates.Text(), "505a");
    EXPECT_EQ(form.RealProperty.Text(), "850");
  });
}

class Gst34 : public ScreenTest {
 protected:
  Gst34() { session.PaidAmount("12345"); }
};

TEST_F(Gst34, FieldsFitTheirEntries) {
  const GOVGST34 form;
  EXPECT_EQ(form.PeriodStartDate.MaxLength(), 8);
  EXPECT_EQ(form.PeriodEndDate.MaxLength(), 8);
  EXPECT_EQ(form.SalesRevenue.MaxLength(), 10);
  EXPECT_EQ(form.NetTax.MaxLength(), 13);
  for (const TextField* amount : std::initializer_list<const TextField*>{
           &form.InstalmentPayment, &form.Rebates, &form.RealProperty, &form.ImportedTax, &form.TotalGST,
           &form.TotalITCs, &form.RefundAmount, &form.PaymentEnclosed})
    EXPECT_EQ(amount->MaxLength(), 12) << amount->Name();
  for (const TextField* amount : std::initializer_list<const TextField*>{
           &form.SalesRevenue, &form.InstalmentPayment, &form.Rebates, &form.RealProperty, &form.ImportedTax,
           &form.TotalGST, &form.TotalITCs, &form.NetTax, &form.RefundAmount, &form.PaymentEnclosed})
    EXPECT_EQ(amount->Designed().alignment, Alignment::Right) << amount->Name();
  EXPECT_EQ(form.PeriodStartDate.Designed().alignment, Alignment::Left);
  EXPECT_EQ(form.PeriodEndDate.Designed().alignment, Alignment::Left);
}

TEST_F(Gst34, WhatIsPaidOrClaimedStandsOut) {
  const GOVGST34 form;
  const std::set<const Control*> all = StandingOut(form);
  EXPECT_TRUE(all.contains(&form.RefundAmount) && all.contains(&form.PaymentEnclosed));
  EXPECT_FALSE(all.contains(&form.NetTax));
}

TEST_F(Gst34, CalculatedLinesAreLockedAndNoTabStops) {
  const GOVGST34 form;
  for (const TextField* line :
       std::initializer_list<const TextField*>{&form.NetTax, &form.RefundAmount, &form.PaymentEnclosed}) {
    EXPECT_TRUE(line->Designed().locked) << line->Name();
    EXPECT_FALSE(line->Designed().tabStop) << line->Name();
  }
}

TEST_F(Gst34, FullDatesKeepTheFocusWhereTheNextFieldIsDisabled) {
  Show<GOVGST34>("05", [](GOVGST34& form, UserDriver& user) {
    form.PeriodEndDate.Enabled(false);
    Type(user, "20260401");
    EXPECT_EQ(user.FocusName(), "PeriodStartDate");
    form.PeriodEndDate.Enabled(true);
    form.SalesRevenue.Enabled(false);
    user.PressMouse(form.PeriodEndDate);
    Type(user, "20260630");
    EXPECT_EQ(user.FocusName(), "PeriodEndDate");
  });
}

TEST_F(Gst34, PointAsTheOnlySeparatorFailsTheNetTaxUnderAComma) {
  // 12.50 counts as twelve and a half cents, shown as 0,13, of which the net tax reads nothing.
  SetLocale(FrenchCanada());
  Show<GOVGST34>("05", [&](GOVGST34& form, UserDriver& user) {
    user.PressMouse(form.PeriodStartDate);
    Type(user, "20260401");
    Type(user, "20260630");
    user.PressMouse(form.Command1);
    form.TotalGST.Text("12.50");
    user.Click(form.Command1);
    const auto boxes = TakeBoxes();
    ASSERT_EQ(boxes.size(), 1U);
    EXPECT_EQ(boxes[0].text, kNetTaxIncorrect);
    EXPECT_EQ(boxes[0].style, MessageStyle::Critical);
    EXPECT_EQ(user.FocusName(), "NetTax");
    EXPECT_EQ(form.TotalGST.Text(), "0,13");
    EXPECT_EQ(form.NetTax.Text(), "0,00");
  });
}

TEST_F(Gst34, OkAndCancelClearTheFlagOfTheOtherRemittance) {
  ModuleToChange().showGst58 = true;
  EXPECT_TRUE(Show<GOVGST34>("05", [](GOVGST34& form, UserDriver& user) {
    FillIn(form, user);
    user.Click(form.Command1);
  }));
  EXPECT_FALSE(session.ShowGST58());
  ModuleToChange().showGst58 = true;
  Show<GOVGST34>("05", [](GOVGST34& form, UserDriver& user) { user.Click(form.Command2); });
  EXPECT_FALSE(session.ShowGST58());
}

TEST_F(Gst34, ClosingClearsTheFlagWhereItCancels) {
  for (const int reason : {0, 1, 2, 3, 4, 5}) {
    SCOPED_TRACE(reason);
    ModuleToChange().showGst58 = true;
    Show<GOVGST34>("05", [&](GOVGST34&, UserDriver& user) { user.CloseWindow(static_cast<CloseReason>(reason)); });
    EXPECT_EQ(session.ShowGST58(), reason == 1 || reason == 4 || reason == 5);
  }
}

TEST_F(Gst34, RefusedOkLeavesTheFlag) {
  ModuleToChange().showGst58 = true;
  Show<GOVGST34>("05", [&](GOVGST34& form, UserDriver& user) {
    user.Click(form.Command1);
    EXPECT_EQ(TakeBoxes().size(), 1U);
    EXPECT_TRUE(session.ShowGST58());
  });
}

TEST_F(Gst34, FailedOutputLeavesTheFlag) {
  session.EnterName("abcdefghijklmnopqrstuvwxyz12345");
  ModuleToChange().showGst58 = true;
  EXPECT_EQ(ErrorOf([&] {
              Show<GOVGST34>("05", [](GOVGST34& form, UserDriver& user) {
                FillIn(form, user);
                user.Click(form.Command1);
              });
            }),
            5);
  EXPECT_TRUE(session.ShowGST58());
}

TEST_F(Gst34, BalanceBeyondMoneyCountsAsNone) {
  Show<GOVGST34>("05", [&](GOVGST34& form, UserDriver& user) {
    FillIn(form, user);
    user.PressMouse(form.Command1);
    SetNetTax(form, "900000000000000.00", "0.00");
    form.ImportedTax.Text("900000000000000.00");
    user.Click(form.Command1);
    const auto boxes = TakeBoxes();
    ASSERT_EQ(boxes.size(), 1U);
    EXPECT_EQ(boxes[0].text, kTooLittleToPay);
    EXPECT_EQ(form.NetTax.Text(), "900000000000000.00");
    EXPECT_EQ(form.RefundAmount.Text(), "0.00");
    EXPECT_EQ(form.PaymentEnclosed.Text(), "0.00");
  });
}

}  // namespace
}  // namespace fiscalon::gst34_test
