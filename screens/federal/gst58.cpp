#include "screens/federal/gst58.h"

#include <array>
#include <string>
#include <string_view>
#include <vector>

#include "core/resume_next.h"
#include "core/user_locale.h"
#include "core/values/leading_number.h"
#include "screens/parts/entered_text.h"
#include "screens/parts/refusal.h"
#include "screens/parts/slots.h"

namespace fiscalon {
namespace {

constexpr const char* kAskStart = "Please enter the date for the start of the period.";
constexpr const char* kAskEnd = "Please enter the date for the end of period.";
constexpr const char* kInstalmentBelowZero = "Instalment Amount cannot be less than 0.";
constexpr const char* kArrearsBelowZero = "Arrears Amount cannot be less than 0.";
constexpr const char* kOtherBelowZero = "Other payment cannot be less than 0.";
constexpr const char* kAuditBelowZero = "Audit Assessment cannot be less than 0.";
constexpr const char* kTotalIsZero = "Payment enclosed cannot be 0.";
constexpr const char* kTotalBelowZero = "Payment enclosed cannot be less than 0.";
constexpr const char* kTotalDiffers = "Payment enclosed is not equal to amount to be paid.";

// What OK tests, in its order.

constexpr DateRow kStartOnOk[] = {
    {date::IsMissing, kAskStart}, {date::IsInvalid, kInvalidDate}, {date::YearIsRefused}, {date::Trim}};

constexpr DateRow kEndOnOk[] = {
    {date::IsMissing, kAskEnd}, {date::IsNotEightLong, kInvalidDate}, {date::Trim}, {date::IsInvalid, kInvalidDate}};

constexpr DateRow kEndInOrderOnOk[] = {{date::YearIsRefused}};

// An instalment of 0 keeps what stands there: one that is blank stays blank.
constexpr AmountRow kInstalmentOnOk[] = {{amount::Trim},
                                         {amount::ReadNumber},
                                         {amount::IsNegative, kInstalmentBelowZero},
                                         {amount::IsZero, {}, Reaction::Passes},
                                         {amount::IsNoAmount},
                                         {amount::ShowInCents}};

constexpr auto CategoryOnOk(std::string_view belowZero) {
  return std::to_array<AmountRow>({{amount::Trim},
                                   {amount::ReadNumber},
                                   {amount::IsNegative, belowZero},
                                   {amount::ShowZero},
                                   {amount::IsNoAmount},
                                   {amount::ShowInCents}});
}

constexpr auto kArrearsOnOk = CategoryOnOk(kArrearsBelowZero);
constexpr auto kOtherOnOk = CategoryOnOk(kOtherBelowZero);
constexpr auto kAuditOnOk = CategoryOnOk(kAuditBelowZero);
constexpr auto kNetTaxOnOk = CategoryOnOk("Net Tax Due cannot be less than 0.");

constexpr AmountRow kTotalOnOk[] = {{amount::IsMissing, "Please enter amount of payment enclosed."},
                                    {amount::ReadNumber},
                                    {amount::IsZero, kTotalIsZero},
                                    {amount::IsNegative, kTotalBelowZero},
                                    {amount::IsNoAmount},
                                    {amount::ShowInCents}};

constexpr AmountRow kTotalOfCategoriesOnOk[] = {{amount::Differs, kTotalDiffers}};

// What Enter tests.

constexpr DateRow kStartOnEnterRows[] = {{date::IsMissing, kAskStart}, {date::IsNotEightLong}};

constexpr DateRow kEndOnEnterRows[] = {{date::IsMissing, kAskEnd}, {date::IsNotEightLong}};

constexpr auto CategoryOnEnter(std::string_view belowZero) {
  return std::to_array<AmountRow>(
      {{amount::Trim}, {amount::ReadNumber}, {amount::IsNegative, belowZero}, {amount::ShowInCents}});
}

constexpr auto kInstalmentOnEnterRows = CategoryOnEnter(kInstalmentBelowZero);
constexpr auto kArrearsOnEnterRows = CategoryOnEnter(kArrearsBelowZero);
constexpr auto kOtherOnEnterRows = CategoryOnEnter(kOtherBelowZero);
constexpr auto kAuditOnEnterRows = CategoryOnEnter(kAuditBelowZero);
constexpr auto kNetTaxOnEnterRows = CategoryOnEnter("NetTaxDue cannot be less than 0.");

constexpr AmountRow kTotalOnEnterRows[] = {{amount::Trim},
                                           {amount::ReadNumber},
                                           {amount::IsZero, kTotalIsZero},
                                           {amount::IsNegative, kTotalBelowZero},
                                           {amount::ShowInCents},
                                           {amount::Differs, kTotalDiffers}};

}  // namespace

constinit const DateRows GOVGST58::kStartOnEnter = kStartOnEnterRows;
constinit const DateRows GOVGST58::kEndOnEnter = kEndOnEnterRows;
constinit const AmountRows GOVGST58::kInstalmentOnEnter = kInstalmentOnEnterRows;
constinit const AmountRows GOVGST58::kArrearsOnEnter = kArrearsOnEnterRows;
constinit const AmountRows GOVGST58::kOtherOnEnter = kOtherOnEnterRows;
constinit const AmountRows GOVGST58::kAuditOnEnter = kAuditOnEnterRows;
constinit const AmountRows GOVGST58::kNetTaxOnEnter = kNetTaxOnEnterRows;
constinit const AmountRows GOVGST58::kTotalOnEnter = kTotalOnEnterRows;

void GOVGST58::Form_Load() {
  head.Show(Payment());
  PaymentEnclosed.Text(head.AmountPaid.Caption());
  Command3D4.FindFolder(Payment().govFilename);
}

void GOVGST58::RecalcTotal() {
  const double sum = LeadingNumber(InstalmentPayment.Text()) + LeadingNumber(ArrearsPayment.Text()) +
                     LeadingNumber(OtherPayment.Text()) + LeadingNumber(AuditAssessment.Text()) +
                     LeadingNumber(NetTaxDue.Text());
  PaymentEnclosed.Text(Format(Money::FromDouble(sum), "#0.00"));
}

void GOVGST58::Command3D6_Click() {
  if (!ValidateGST58())
    return;
  WriteRecords();
  Accepted();
}

bool GOVGST58::ValidateGST58() {
  if (!PeriodPasses() || !CategoriesPass())
    return false;
  ResumeNext::Run([&] { RecalcTotal(); });
  return TotalPasses();
}

bool GOVGST58::PeriodPasses() {
  return PeriodStartDate.Passes(kStartOnOk) && PeriodEndDate.Passes(kEndOnOk) && PeriodIsInOrder() &&
         PeriodEndDate.Passes(kEndInOrderOnOk);
}

bool GOVGST58::PeriodIsInOrder() {
  const double start = NumberIn(PeriodStartDate.Text());
  const double end = NumberIn(PeriodEndDate.Text());
  if (end == start)
    return Refuse(PeriodEndDate, "Period starting date is same as ending date.");
  if (end < start)
    return Refuse(PeriodEndDate, "Period ending date is incorrect.");
  return true;
}

bool GOVGST58::CategoriesPass() {
  return InstalmentPayment.Passes(kInstalmentOnOk) && ArrearsPayment.Passes(kArrearsOnOk) &&
         OtherPayment.Passes(kOtherOnOk) && AuditAssessment.Passes(kAuditOnOk) && NetTaxDue.Passes(kNetTaxOnOk);
}

bool GOVGST58::TotalPasses() {
  return PaymentEnclosed.Passes(kTotalOnOk) && CategoryIsGiven() && PaymentEnclosed.Passes(kTotalOfCategoriesOnOk);
}

// Without a category the total is 0, and refused for that. This is met only where the total could not be added up.
bool GOVGST58::CategoryIsGiven() {
  const bool isGiven = NumberIn(InstalmentPayment.Text()) != 0 || NumberIn(ArrearsPayment.Text()) != 0 ||
                       NumberIn(OtherPayment.Text()) != 0 || NumberIn(AuditAssessment.Text()) != 0 ||
                       NumberIn(NetTaxDue.Text()) != 0;
  if (!isGiven && NumberIn(head.AmountPaid.Caption()) != 0)
    return Refuse(InstalmentPayment, "Please indicate which category this payment refers to.");
  return true;
}

// Categories of 0 are left out, and the numbers jump. The order is not that of the form.
void GOVGST58::WriteRecords() {
  BeginRecords();
  SendRecord(GovernmentRecord({.periodStartDate = PeriodStartDate.Text(), .periodEndDate = PeriodEndDate.Text()}));
  std::vector<FreeFormatSlot> slots;
  const auto addUnlessZero = [&](const char* number, const TextField& amount) {
    if (LeadingNumber(amount.Text()) != 0)
      slots.push_back(CentsSlot(number, amount));
  };
  addUnlessZero("01", InstalmentPayment);
  addUnlessZero("02", ArrearsPayment);
  addUnlessZero("03", AuditAssessment);
  addUnlessZero("04", OtherPayment);
  addUnlessZero("05", PaymentEnclosed);
  addUnlessZero("06", NetTaxDue);
  for (const std::string& record : ComposeFreeFormats(Payment().seqNumber, slots)) SendRecord(record);
  EndRecords();
}

}  // namespace fiscalon
