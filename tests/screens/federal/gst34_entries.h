#pragma once

#include <initializer_list>
#include <string_view>

#include "screens/federal/gst34.h"
#include "tests/support/payment_test.h"

/// What tests enter into the GST/HST return.
namespace fiscalon {

/// Net tax alone makes the balance.
inline void SetNetTax(GOVGST34& form, std::string_view totalTax, std::string_view credits) {
  for (TextField* line :
       std::initializer_list<TextField*>{&form.InstalmentPayment, &form.Rebates, &form.RealProperty, &form.ImportedTax})
    line->Text("0.00");
  form.TotalGST.Text(totalTax);
  form.TotalITCs.Text(credits);
}

/// 250.00 - 100.00 - 30.00 - 5.05 + 8.50 = 123.45
inline void FillIn(GOVGST34& form, UserDriver& user) {
  user.PressMouse(form.PeriodStartDate);
  Type(user, "20260401");
  Type(user, "20260630");
  Type(user, "50000\r30.00\r5.05\r8.50\r\r250.00\r100.00\r");
}

class Gst34Payment : public PaymentTest<GOVGST34> {
 protected:
  Gst34Payment() : PaymentTest("12345") {}

  std::string Code() const override { return "05"; }
  void FillIn(GOVGST34& form, UserDriver& user) const override { fiscalon::FillIn(form, user); }
  Button& OkButton(GOVGST34& form) const override { return form.Command1; }
};

}  // namespace fiscalon
