#include "screens/federal/corporate_income.h"

#include <array>
#include <string_view>
#include <vector>

#include "core/resume_next.h"
#include "core/user_locale.h"
#include "core/values/text.h"
#include "screens/parts/slots.h"

namespace fiscalon {
namespace {

constexpr const char* kArrearsBelowZero = "Arrears Amount cannot be less than 0.";
constexpr const char* kInstalmentBelowZero = "Instalment Amount cannot be less than 0.";
constexpr const char* kAskDate = "Please enter the date for the end of fiscal period.";

/// Shows what was read in cents. An amount of 0 stays as it was written.
bool ShowUnlessZero(TestedAmount& entry) {
  if (!amount::IsZero(entry))
    amount::ShowInCents(entry);
  return false;
}

constexpr DateRow kDateOfAnInstalmentOnEnter[] = {{date::IsMissing, kAskDate, Reaction::Empties},
                                                  {date::IsNotEightLong}};

// What OK tests, in its order: the amount of the chosen voucher, and the date of an instalment.

constexpr auto AmountOnOk(std::string_view belowZero, std::string_view zero) {
  return std::to_array<AmountRow>({{amount::Trim},
                                   {amount::FillEmpty},
                                   {amount::IsNoAmount, "", Reaction::Selects},
                                   {amount::ReadMoney},
                                   {amount::IsNegative, belowZero, Reaction::Selects},
                                   {ShowUnlessZero},
                                   // What is shown counts: less than half a cent is none.
                                   {amount::ReadNumber},
                                   {amount::IsZero, zero, Reaction::Selects}});
}

constexpr auto kInstalmentOnOk = AmountOnOk(kInstalmentBelowZero, "Instalment Payment cannot be 0.");

constexpr DateRow kDateOnOk[] = {{date::IsMissing, kAskDate},
                                 {date::IsNotEightLong, "", Reaction::Selects},
                                 {date::Trim},
                                 {date::IsInvalid, kInvalidDate, Reaction::Selects},
                                 {date::YearIsRefused},
                                 {date::ShowDigits}};

constexpr auto kArrearsOnOk = AmountOnOk(kArrearsBelowZero, "Amounts Owing Payment cannot be 0.");

// What Enter tests.

constexpr AmountRow kArrearsOnEnterRows[] = {
    {amount::Trim},
    {amount::FillEmpty},
    {amount::IsNoAmount},
    {amount::ReadMoney},
    {amount::IsNegative, kArrearsBelowZero},
    {amount::IsZero, "", Reaction::Stops},
    {amount::ShowInCents},
    {amount::Exceeds, "Arrears Payment cannot be greater than amount to be paid."}};

constexpr AmountRow kInstalmentOnEnterRows[] = {
    {amount::Trim},
    {amount::IsMissing, "", Reaction::Passes},
    {amount::IsNoAmount},
    {amount::ReadMoney},
    {amount::IsNegative, kInstalmentBelowZero, Reaction::Empties},
    {amount::IsZero, "", Reaction::Stops},
    {amount::ShowInCents},
    {amount::Exceeds, "Instalment Payment cannot be greater than amount to be paid."}};

}  // namespace

constinit const AmountRows GOVCORPINCOME::kArrearsOnEnter = kArrearsOnEnterRows;
constinit const AmountRows GOVCORPINCOME::kInstalmentOnEnter = kInstalmentOnEnterRows;

void GOVCORPINCOME::Form_Load() {
  head.Show(Payment());
  optRC99.Value(true);
  Command3D4.FindFolder(Payment().govFilename);
}

void GOVCORPINCOME::optRC99_Click() {
  if (!optRC99.Value())
    return;
  PayBy(ArrearsPayment, InstalmentPayment);
  EndDate.Enabled(false);
  EndDate.Text("");
}

void GOVCORPINCOME::optRC100_Click() {
  if (!optRC100.Value())
    return;
  PayBy(InstalmentPayment, ArrearsPayment);
  EndDate.Enabled(true);
  ResumeNext::Run([&] { EndDate.SetFocus(); });
}

void GOVCORPINCOME::PayBy(TypedAmount& chosen, TypedAmount& other) {
  chosen.Enabled(true);
  chosen.Text(head.AmountPaid.Caption());
  other.Enabled(false);
  other.Text("");
}

// An empty instalment, unlike one of 0, leads past the date.
void GOVCORPINCOME::InstalmentConfirmed() {
  if (!InstalmentPayment.Text().empty())
    return EndDate.SetFocus();
  InstalmentPayment.Text(Format(0.0, "0.00"));
  Command3D6.SetFocus();
}

void GOVCORPINCOME::EndDateConfirmed() {
  if (!Trim(InstalmentPayment.Text()).empty() && !EndDate.Passes(kDateOfAnInstalmentOnEnter))
    return;
  if (NumberIn(ArrearsPayment.Text()) + NumberIn(InstalmentPayment.Text()) == NumberIn(head.AmountPaid.Caption()))
    Command3D6.SetFocus();
  else
    ArrearsPayment.SetFocus();
}

void GOVCORPINCOME::Command3D6_Click() {
  if (!EntriesPass())
    return;
  ResumeNext::Run([&] { WriteRecords(); });
  Accepted();
}

bool GOVCORPINCOME::EntriesPass() {
  TrimText(InstalmentPayment);
  if (optRC100.Value() && (!InstalmentPayment.Passes(kInstalmentOnOk) || !EndDate.Passes(kDateOnOk)))
    return false;
  TrimText(ArrearsPayment);
  return !optRC99.Value() || ArrearsPayment.Passes(kArrearsOnOk);
}

// The numbers are those of the voucher's lines, not of the slots: an amount owing is "03" in the first slot.
void GOVCORPINCOME::WriteRecords() {
  BeginRecords();
  SendRecord(GovernmentRecord());
  std::vector<FreeFormatSlot> slots;
  if (NumberIn(InstalmentPayment.Text()) != 0)
    slots = {LocaleCentsSlot("01", InstalmentPayment), TextSlot("02", EndDate)};
  if (NumberIn(ArrearsPayment.Text()) != 0)
    slots.push_back(LocaleCentsSlot("03", ArrearsPayment));
  SendRecord(ComposeFreeFormat(Payment().seqNumber, slots));
  EndRecords();
}

}  // namespace fiscalon
