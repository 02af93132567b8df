#include "screens/parts/payment_head.h"

#include "tests/support/part_test.h"

namespace fiscalon {
namespace {

class HeadForm : public PartForm {
 public:
  // clang-format off
  PaymentHead plain {*this};
  PayeeHead   payee {*this, {.payee = "WCBpayeename", .payeeTabIndex = 9, .date = "WCBpaiddate",
                             .amountCaption = {.name = "Label2", .caption = "Amount to be paid:"}, .amount = "WCBpaidamount"}};
  PayeeHead   invoice {*this, {.payee = "InvoicePayeeName", .amount = "InvoicePaymentAmount",
                               .shown = {.pattern = "#,###,###0.00"}}};
  PayeeHead   generic {*this, {.shown = {.pattern = "#0.00", .read = AmountRead::AsText}}};
  PaymentHead donation {*this, {.dateCaption = {.name = "lblCPayDate", .caption = "Date:"},
                                .amountCaption = {.name = "Label3", .caption = "Total to be paid:"},
                                .shown = {.pattern = "#0.00"}, .heldDate = HeldDate::IsHidden}};
  // clang-format on
};

class PaymentHeadTest : public PartTest<HeadForm> {
 protected:
  PaymentHeadTest() {
    form.CompName("Summit Levies");
    form.PaidAmount("1234.5");
    form.PaidDate("06152026");
  }

  void ShowAll() {
    form.plain.Show(form.Payment());
    form.payee.Show(form.Payment());
    form.invoice.Show(form.Payment());
    form.generic.Show(form.Payment());
    form.donation.Show(form.Payment());
  }
};

TEST_F(PaymentHeadTest, ControlsBearTheFormsNamesAndCaptions) {
  std::vector<std::string> names;
  for (const Control* control : form.Controls()) names.push_back(control->Name());
  names.resize(10);
  EXPECT_THAT(names, testing::ElementsAre("lblCPayDate", "lblPayDate", "lblCAmountPaid", "lblAmountPaid", "Label1",
                                          "WCBpayeename", "lblCPayDate", "WCBpaiddate", "Label2", "WCBpaidamount"));
  EXPECT_EQ(form.plain.DateCaption.Caption(), "Payment Date:");
  EXPECT_EQ(form.plain.AmountCaption.Caption(), "Amount to be paid:");
  EXPECT_EQ(form.payee.PayeeCaption.Caption(), "Payment to:");
  EXPECT_EQ(form.payee.DateCaption.Caption(), "Payment will be made on:");
  EXPECT_EQ(form.payee.AmountCaption.Caption(), "Amount to be paid:");
  EXPECT_EQ(form.donation.AmountCaption.Caption(), "Total to be paid:");
}

TEST_F(PaymentHeadTest, PayeeIsLockedAndNoTabStop) {
  EXPECT_TRUE(form.payee.PayeeName.Locked());
  EXPECT_FALSE(form.payee.PayeeName.Designed().tabStop);
  EXPECT_EQ(form.payee.PayeeName.Designed().tabIndex, 9);
}

TEST_F(PaymentHeadTest, ShowsPayeeDateAndAmount) {
  ShowAll();
  EXPECT_EQ(form.payee.PayeeName.Text(), "Summit Levies");
  EXPECT_EQ(form.payee.PayDate.Caption(), "15/06/2026");
  EXPECT_EQ(form.plain.PayDate.Caption(), "15/06/2026");
  EXPECT_EQ(form.plain.AmountPaid.Caption(), "$1,234.50");
  EXPECT_EQ(form.payee.AmountPaid.Caption(), "1234.50");
  EXPECT_EQ(form.invoice.AmountPaid.Caption(), "1,234.50");
  EXPECT_EQ(form.generic.AmountPaid.Caption(), "1234.50");
  EXPECT_EQ(form.donation.AmountPaid.Caption(), "1234.50");
}

TEST_F(PaymentHeadTest, ShowsWhatATextSaysOrTheNumberAtItsStart) {
  form.PaidAmount("");
  ShowAll();
  EXPECT_EQ(form.plain.AmountPaid.Caption(), "");
  EXPECT_EQ(form.generic.AmountPaid.Caption(), "");
  EXPECT_EQ(form.payee.AmountPaid.Caption(), "0.00");
  form.PaidAmount(".5");
  ShowAll();
  EXPECT_EQ(form.payee.AmountPaid.Caption(), "0.50");
  EXPECT_EQ(form.generic.AmountPaid.Caption(), "0.50");
}

TEST_F(PaymentHeadTest, SeparatorsAreTheLocales) {
  SetLocale(FrenchCanada());
  ShowAll();
  EXPECT_EQ(form.plain.AmountPaid.Caption(),
            "1\xa0"
            "234,50 $");
  EXPECT_EQ(form.payee.AmountPaid.Caption(), "1234,50");
}

TEST_F(PaymentHeadTest, HoldHidesTheDateWhereTheFormLooksAtIt) {
  ShowAll();
  form.APHoldFlg(1);
  ShowAll();
  for (const PaymentHead* hidden : {static_cast<const PaymentHead*>(&form.payee), &std::as_const(form.donation)}) {
    EXPECT_FALSE(hidden->DateCaption.Visible());
    EXPECT_FALSE(hidden->PayDate.Visible());
  }
  EXPECT_TRUE(form.plain.DateCaption.Visible());
  EXPECT_TRUE(form.plain.PayDate.Visible());
  form.APHoldFlg(2);
  ShowAll();
  EXPECT_TRUE(form.payee.DateCaption.Visible());
  EXPECT_TRUE(form.payee.PayDate.Visible());
}

TEST_F(PaymentHeadTest, AmountIsReadBackFromTheScreen) {
  EXPECT_EQ(ErrorOf([&] { form.plain.Amount(); }), 13);
  ShowAll();
  EXPECT_EQ(form.plain.Amount(), Money::FromUnits(12345000));
}

TEST_F(PaymentHeadTest, RowsBeginWithThePayee) {
  const Group payee = form.payee.Rows();
  ASSERT_EQ(payee.rows.size(), 3U);
  EXPECT_EQ(payee.rows[0].cells[0].field, &form.payee.PayeeName);
  EXPECT_EQ(payee.rows[1].cells[0].field, &form.payee.PayDate);
  EXPECT_EQ(payee.rows[2].cells[0].field, &form.payee.AmountPaid);
  EXPECT_EQ(form.plain.Rows().rows.size(), 2U);
}

}  // namespace
}  // namespace fiscalon
