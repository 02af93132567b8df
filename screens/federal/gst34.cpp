#include "screens/federal/gst34.h"

#include <string>

#include "core/module_state.h"
#include "core/resume_next.h"
#include "core/user_locale.h"
#include "core/values/leading_number.h"
#include "screens/parts/entered_text.h"
#include "screens/parts/refusal.h"
#include "screens/parts/slots.h"

namespace fiscalon {
namespace {

constexpr const char* kDollars = "0.00";
/// The least balance that is paid, and the least that is refunded: $2.00.
constexpr Money kLeastBalance = Money::FromUnits(2'0000);

constexpr const char* kAskStart = "Please enter the date for the start of the period.";
constexpr const char* kAskEnd = "Please enter the date for the end of period.";
constexpr const char* kSalesBelowZero = "Amount in sales and other revenue cannot be less than 0.";
constexpr const char* kSalesWithCents = "Amount of sales and other revenue cannot have decimal value.";

bool ShowWholeZero(TestedAmount& entry) {
  if (amount::IsZero(entry))
    amount::ShowWhole(entry);
  return false;
}

// A start of another length is refused without a word, an end is not.

constexpr DateRow kStartOnOk[] = {{date::IsMissing, kAskStart},    {date::IsNotEightLong}, {date::Trim},
                                  {date::IsInvalid, kInvalidDate}, {date::YearIsRefused},  {date::ShowDigits}};

constexpr DateRow kEndOnOk[] = {{date::IsMissing, kAskEnd},
                                {date::IsNotEightLong, kInvalidDate},
                                {date::Trim},
                                {date::IsInvalid, kInvalidDate},
                                {date::YearIsRefused},
                                {date::ShowDigits}};

constexpr AmountRow kSalesOnOk[] = {{amount::Trim},
                                    {amount::ReadNumber},
                                    {amount::IsNegative, kSalesBelowZero, Reaction::Empties},
                                    {ShowWholeZero},
                                    {amount::IsZero, {}, Reaction::Passes},
                                    {amount::IsNoAmount},
                                    {amount::HasFraction, kSalesWithCents, Reaction::Focus, MessageStyle::Plain}};

Wording LeastBalance() {
  return AsGiven(Format(kLeastBalance, "$0.00"));
}

// What Enter and leaving test.

constexpr DateRow kStartOnEnterRows[] = {{date::IsMissing, kAskStart}, {date::IsNotEightLong}};

constexpr DateRow kEndOnEnterRows[] = {{date::IsMissing, kAskEnd}, {date::IsNotEightLong}};

// The text stays as it stands.
constexpr AmountRow kSalesOnLeavingRows[] = {
    {amount::Trim},
    {amount::ReadNumber},
    {amount::IsNegative, kSalesBelowZero, Reaction::Empties},
    {amount::IsZero, {}, Reaction::Passes},
    {amount::IsNoAmount},
    {amount::HasFraction, kSalesWithCents, Reaction::Focus, MessageStyle::Plain}};

}  // namespace

constinit const DateRows GOVGST34::kStartOnEnter = kStartOnEnterRows;
constinit const DateRows GOVGST34::kEndOnEnter = kEndOnEnterRows;
constinit const AmountRows GOVGST34::kSalesOnLeaving = kSalesOnLeavingRows;

void GOVGST34::Form_Load() {
  head.Show(Payment());
  Command3.FindFolder(Payment().govFilename);
}

void GOVGST34::Form_QueryUnload(bool& /*cancel*/, CloseReason reason) {
  if (CancelOnClosing(reason))
    ClearShowGST58();
}

// What stands in the field does not count: it is calculated anew. A failure leaves this handler.
void GOVGST34::NetTax_LostFocus() {
  if (NetTax.Text().empty())
    Refuse(NetTax, "Please enter amount of Net Tax.");
  else
    RecalcForm();
}

void GOVGST34::RecalcForm() {
  NetTax.Text(Format(LeadingNumber(TotalGST.Text()) - LeadingNumber(TotalITCs.Text()), kDollars));
  const Money balance = Balance();
  ShowBalance(balance <= -kLeastBalance ? -balance : Money(), balance >= kLeastBalance ? balance : Money());
}

Money GOVGST34::Balance() const {
  return Money::FromDouble(LeadingNumber(NetTax.Text()) - LeadingNumber(InstalmentPayment.Text()) -
                           LeadingNumber(Rebates.Text()) + LeadingNumber(RealProperty.Text()) +
                           LeadingNumber(ImportedTax.Text()));
}

void GOVGST34::ShowBalance(Money refund, Money payment) {
  RefundAmount.Text(Format(refund, kDollars));
  PaymentEnclosed.Text(Format(payment, kDollars));
}

void GOVGST34::Command1_Click() {
  if (!ValidateForm())
    return;
  WriteRecords();
  ClearShowGST58();
  Accepted();
}

void GOVGST34::Command2_Click() {
  ClearShowGST58();
  Cancelled();
}

bool GOVGST34::ValidateForm() {
  return PeriodStartDate.Passes(kStartOnOk) && PeriodEndDate.Passes(kEndOnOk) && IsInOrder() &&
         SalesRevenue.Passes(kSalesOnOk) && LinesAreAmounts() && IsNetTaxRight() && AgreesWithAmountPaid();
}

bool GOVGST34::IsInOrder() {
  const double start = NumberIn(PeriodStartDate.Text());
  const double end = NumberIn(PeriodEndDate.Text());
  if (end == start)
    return Refuse(PeriodEndDate, "Reporting period starting date cannot be the same as ending date.");
  if (end < start)
    return Refuse(PeriodEndDate, "Reporting period ending date is incorrect.");
  return true;
}

bool GOVGST34::LinesAreAmounts() {
  return InstalmentPayment.PassesOnOk() && Rebates.PassesOnOk() && RealProperty.PassesOnOk() &&
         ImportedTax.PassesOnOk() && TotalGST.PassesOnOk() && TotalITCs.PassesOnOk();
}

bool GOVGST34::IsNetTaxRight() {
  ResumeNext::Run([&] { RecalcForm(); });
  if (ResumeNext::Fails([&] { return ToMoney(TotalGST.Text()) - ToMoney(TotalITCs.Text()) == ToMoney(NetTax.Text()); }))
    return Refuse(NetTax, "Amount of Net tax is incorrect.");
  return true;
}

bool GOVGST34::AgreesWithAmountPaid() {
  Money balance;
  ResumeNext::Run([&] { balance = Balance(); });
  return balance >= Money() ? IsPaid(balance) : IsRefundable(balance);
}

bool GOVGST34::IsPaid(Money balance) {
  ShowBalance(Money(), balance);
  if (balance < kLeastBalance)
    return Refuse(PaymentEnclosed, Filled("You do not need to pay a balance less than {1}", LeastBalance()),
                  MessageStyle::Information);
  if (NumberIn(head.AmountPaid.Caption()) != balance.ToDouble())
    return Refuse(PaymentEnclosed, "The amount in the Payment Enclosed field is not equal to the amount to be paid.");
  return true;
}

bool GOVGST34::IsRefundable(Money balance) {
  // The refund keeps its sign here, and takes it into the record.
  ShowBalance(balance, Money());
  if (balance > -kLeastBalance)
    return Refuse(RefundAmount, Filled("A balance of less than {1} will not be refunded.", LeastBalance()),
                  MessageStyle::Information);
  if (NumberIn(head.AmountPaid.Caption()) != 0)
    return Refuse(Command2, "In order to apply for a refund, the amount to be paid must be zero.");
  return true;
}

void GOVGST34::WriteRecords() {
  BeginRecords();
  SendRecord(GovernmentRecord({.periodStartDate = PeriodStartDate.Text(), .periodEndDate = PeriodEndDate.Text()}));
  SendRecord(FreeRecord({CentsSlot("01", SalesRevenue), CentsSlot("02", TotalGST),
                         LocaleCentsSlot("03", InstalmentPayment), LocaleCentsSlot("04", TotalITCs)}));
  SendRecord(FreeRecord({LocaleCentsSlot("05", Rebates), NetTaxSlot(), LocaleCentsSlot("07", RealProperty),
                         LocaleCentsSlot("08", RefundAmount)}));
  SendRecord(FreeRecord({LocaleCentsSlot("09", ImportedTax), LocaleCentsSlot("10", PaymentEnclosed)}));
  EndRecords();
}

// A negative net tax fits its columns, the minus sign behind 17 digits; a refund does not.
FreeFormatSlot GOVGST34::NetTaxSlot() const {
  const Money cents = Money::FromDouble(ToMoney(NetTax.Text()).ToDouble() * 100);
  if (cents >= Money())
    return NumberSlot("06", cents);
  return {.fieldNum = "06", .fieldValue = DigitsOf(-cents, "00000000000000000-")};
}

}  // namespace fiscalon
