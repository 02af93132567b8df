#include "screens/quebec/csst_payments.h"

#include "core/messages.h"
#include "core/resume_next.h"
#include "core/value_routines.h"
#include "core/values/leading_number.h"
#include "core/values/text.h"
#include "screens/parts/entered_text.h"
#include "screens/parts/moving_on.h"
#include "screens/parts/slots.h"

namespace fiscalon {
namespace {

constexpr Date kBeforeCsstPayments = {2011, 1, 1};
constexpr int kYearsBack = 8;
constexpr int kYearsAhead = 1;

constexpr const char* kAfterLimit = "{1} must be a valid date, in the form YYYYMMDD and after January 1, 2011.";
constexpr const char* kPeriodNearPayment =
    "{1} must be a valid date, in the form YYYYMMDD and must not be more than 8 years in the past or more than 1 year "
    "in "
    "the future.";
constexpr const char* kMonthNearPayment =
    "{1} must be a valid date, in the form YYYYMM and must not be more than 8 years in the past or more than 1 year in "
    "the future.";

}  // namespace

void frmQue_Rev_CSST_Payments::Form_Load() {
  yearFailed_ = false;
  monthFailed_ = false;
  SetupForm();
}

void frmQue_Rev_CSST_Payments::Form_Activate() {
  FocusIfAble(AsksForMonth() ? txtYear : txtRemittancePeriod);
}

void frmQue_Rev_CSST_Payments::SetupForm() {
  head.Show(Payment());
  txtAmountPayable.Text(Format(Payment().paidAmount, "0.00"));
  if (!PaysCsst())
    Caption(AsGiven(std::string(Trim(Payment().compName))));
  lblAmountPayable.Visible(PaysCsst());
  txtAmountPayable.Visible(PaysCsst());
  lblPeriodEndDate.Visible(!AsksForMonth());
  lblRemittancePeriodFormat.Visible(!AsksForMonth());
  txtRemittancePeriod.Visible(!AsksForMonth());
  fraMonthNonResidentTax.Visible(AsksForMonth());
}

void frmQue_Rev_CSST_Payments::txtRemittancePeriod_LostFocus() {
  if (!FocusIsOn(cmdCancel) && !CheckDateFields(Tested::Period))
    ResumeNext::Run([&] { txtRemittancePeriod.SetFocus(); });
}

Control* frmQue_Rev_CSST_Payments::BehindYear() {
  return Trim(txtMonth.Text()).empty() ? static_cast<Control*>(&txtMonth) : &cmdOK;
}

void frmQue_Rev_CSST_Payments::txtYear_LostFocus() {
  if (FocusIsOn(cmdCancel) || monthFailed_)
    return;
  yearFailed_ = !CheckDateFields(Tested::Year);
  if (yearFailed_)
    ResumeNext::Run([&] { txtYear.SetFocus(); });
}

void frmQue_Rev_CSST_Payments::txtMonth_LostFocus() {
  if (FocusIsOn(cmdCancel) || yearFailed_)
    return;
  monthFailed_ = !CheckDateFields(Tested::Month);
  if (monthFailed_)
    ResumeNext::Run([&] { txtMonth.SetFocus(); });
}

void frmQue_Rev_CSST_Payments::cmdOK_Click() {
  DoWrite();
  Accepted();
}

bool frmQue_Rev_CSST_Payments::CheckDateFields(Tested tested) const {
  const bool isValid =
      !ResumeNext::Fails([&] { return AsksForMonth() ? IsValidMonth(tested) : IsValidPeriod(tested); });
  if (!isValid)
    ShowMessage(Complaint(), MessageStyle::Critical);
  return isValid;
}

bool frmQue_Rev_CSST_Payments::IsValidPeriod(Tested tested) const {
  // After a failed output the year and the month of the earlier code may still be shown: then they are the date.
  const std::string text =
      tested == Tested::Period ? txtRemittancePeriod.Text().substr(0, 8) : txtYear.Text() + txtMonth.Text();
  if (!IsDate(text))
    return false;
  const Date date = DateFromYYYYMMDD(text);
  return PaysCsst() ? date > kBeforeCsstPayments : IsYearNearPayment(date.year);
}

bool frmQue_Rev_CSST_Payments::IsValidMonth(Tested tested) const {
  if (tested == Tested::Year)
    return Trim(txtYear.Text()).size() >= 4 && IsYearNearPayment(ToInt16(txtYear.Text()));
  if (tested == Tested::Month) {
    const double month = LeadingNumber(txtMonth.Text());
    return Trim(txtMonth.Text()).size() >= 2 && month >= 1 && month <= 12;
  }
  return true;
}

bool frmQue_Rev_CSST_Payments::IsYearNearPayment(int year) const {
  // The head shows day, month and year, and only as much of them as the host gave.
  const std::string shown = PadRight(head.PayDate.Caption(), 10, " ");
  const std::string paid = shown.substr(6, 4) + shown.substr(3, 2) + shown.substr(0, 2);
  if (!IsDate(paid))
    return true;
  const int yearOfPayment = DateFromYYYYMMDD(paid).year;
  return year >= yearOfPayment - kYearsBack && year <= yearOfPayment + kYearsAhead;
}

Wording frmQue_Rev_CSST_Payments::Complaint() const {
  if (AsksForMonth())
    return Filled(kMonthNearPayment, lblMonthWithheld.WordedCaption());
  return Filled(PaysCsst() ? kAfterLimit : kPeriodNearPayment, lblPeriodEndDate.WordedCaption());
}

void frmQue_Rev_CSST_Payments::DoWrite() {
  BeginRecords();
  SendRecord(GovernmentRecord(AsksForMonth() ? GovernmentFields()
                                             : GovernmentFields{.periodEndDate = txtRemittancePeriod.Text()}));
  if (PaysCsst())
    SendRecord(FreeRecord({AmountSlot("01", txtAmountPayable), ZeroSlot("02"), ZeroSlot("03"), ZeroSlot("04")}));
  if (AsksForMonth())
    SendRecord(FreeRecord({{.fieldNum = "01", .fieldValue = txtYear.Text() + txtMonth.Text()}}));
  EndRecords();
}

}  // namespace fiscalon
