#include "screens/general/invoice_payments.h"

#include <algorithm>

#include "core/forms/keys.h"
#include "core/messages.h"
#include "core/user_locale.h"
#include "core/value_routines.h"
#include "core/values/leading_number.h"
#include "core/values/number_text.h"
#include "core/values/text.h"
#include "screens/parts/entered_text.h"
#include "screens/parts/moving_on.h"
#include "screens/parts/refusal.h"

namespace fiscalon {
namespace {

// More lines than the store takes, which is therefore full before either of these counts.
constexpr int kLinesToWarnAt = 190;
constexpr int kMostLines = 197;

constexpr double kLargestAmount = 9999999.99;

constexpr const char* kHeld = "For HOLD payment, invoice payment details are mandatory.";
constexpr const char* kAskDate = "Please enter invoice date.";
constexpr const char* kAskNumber = "Please enter invoice number or description.";
constexpr const char* kAskAmount = "Please enter amount of invoice.";
constexpr const char* kAskSelection =
    "Please select item in the list of invoice payments and then select Cancel an Invoice button.";
constexpr const char* kAskDeletion = "Are you sure you wish to delete this invoice payment?";
constexpr const char* kManyLines =
    "You have entered the maximum number of lines of payment information permitted. We suggest you add a message in "
    "the Invoice No./Description field saying the remaining payment details will be sent separately, then click OK to "
    "process the payment.";

// What Enter in the amount tests, and of the fields before it.
constexpr AmountRow kAmountOnEnter[] = {{amount::IsMissing, kAskAmount}};

constexpr DateRow kDateOnAmount[] = {
    {date::IsMissing, kAskDate}, {date::IsNotEightLong}, {date::Trim}, {date::IsInvalid, kInvalidDate}};

Money MoneyIn(std::string_view dollars) {
  return Money::FromDouble(LeadingNumber(dollars));
}

std::string Blanks(size_t width, const std::string& text) {
  return std::string(width - std::min(width, text.size()), ' ');
}

// What Enter in the date tests.
constexpr DateRow kDateOnEnterRows[] = {{date::IsMissing, kAskDate},
                                        {date::IsNotEightLong, kInvalidDate},
                                        {date::Trim},
                                        {date::IsInvalid, kInvalidDate},
                                        {date::ShowDigits}};

}  // namespace

constinit const DateRows InvoicePayments::kDateOnEnter = kDateOnEnterRows;

void InvoicePayments::Form_Load() {
  head.Show(Payment());
  InvoiceStatementOnly[Payment().IsHeld() ? 1 : 0].Value(true);
  isHeld_ = Payment().IsHeld();
  lineCount_ = 0;
  amountCleared_ = false;
  FindRemainingAmount();
  ShowWhetherToCancel();
  cmdHelp.FindFolder(Payment().govFilename);
}

void InvoicePayments::InvoiceStatementOnly_Click() {
  if (InvoiceStatementOnly.PaysStatementAlone())
    FocusIfAble(InvoiceDate);
}

void InvoicePayments::InvoiceDate_KeyPress(int& character) {
  if (character == key::kEnter)
    amountCleared_ = false;
}

void InvoicePayments::InvoiceNumber_KeyPress(int& character) {
  // A double quote would break the quoted line of the record.
  if (character == '"')
    character = 0;
  // This box alone has no full stop.
  if (character != key::kEnter || !NumberIsGiven("Please enter invoice number or description"))
    return;
  amountCleared_ = false;
  InvoiceAmount.SetFocus();
}

void InvoicePayments::InvoiceAmount_KeyDown(int& keyCode, int /*shift*/) {
  if (keyCode == key::kEnter || amountCleared_)
    return;
  InvoiceAmount.Text("");
  InvoiceAmount.SetFocus();
  amountCleared_ = true;
}

void InvoicePayments::InvoiceAmount_Confirmed() {
  if (NoLineIsLeft())
    return cmdCancel.SetFocus();
  if (!InvoiceAmount.Passes(kAmountOnEnter) || !InvoiceDate.Passes(kDateOnAmount) || !NumberIsGiven(kAskNumber) ||
      !AmountFits())
    return;
  AddInvoiceLine();
  ShowWhetherToCancel();
  if (InvoiceAmount.Text() == "0.00")
    cmdOK.SetFocus();
  else
    InvoiceDate.SetFocus();
  amountCleared_ = false;
  WarnOfManyLines();
}

void InvoicePayments::InvoicePaymentList_Click() {
  if (InvoicePaymentList.ListIndex() != ListBox::kNothingSelected)
    CancelInvoice.Enabled(true);
}

void InvoicePayments::CancelInvoice_Click() {
  const int selected = InvoicePaymentList.ListIndex();
  if (selected == ListBox::kNothingSelected)
    return Complain(CancelInvoice, kAskSelection, MessageStyle::Information);
  const MessageAnswer answer = ShowMessage(
      {.text = kAskDeletion, .style = MessageStyle::Question, .buttons = MessageButtons::YesNo, .title = BoxTitle()});
  if (answer == MessageAnswer::Yes)
    RemoveInvoiceLine(selected);
  ShowWhetherToCancel();
  InvoiceDate.SetFocus();
}

void InvoicePayments::cmdOK_Click() {
  if (NoLineIsLeft())
    return cmdCancel.SetFocus();
  if (InvoiceStatementOnly.BringsDetails() && lineCount_ == 0) {
    if (!EntryPasses(""))
      return;
    AddInvoiceLine();
  } else if (LeadingNumber(InvoiceAmount.Text()) != 0) {
    if (!EntryPasses(kInvalidDate))
      return;
    AddInvoiceLine();
    WarnOfManyLines();
  }
  AcceptInvoices();
}

Wording InvoicePayments::Asking(std::string_view ask) const {
  return isHeld_ ? Filled("{1}{2}", kHeld, ask) : Wording(ask);
}

bool InvoicePayments::EntryPasses(std::string_view dateTooShort) {
  const Wording askDate = Asking(kAskDate);
  const Wording askAmount = Asking(kAskAmount);
  const DateRow dateOnOk[] = {{date::IsMissing, askDate},
                              {date::IsNotEightLong, dateTooShort},
                              {date::Trim},
                              {date::IsInvalid, kInvalidDate},
                              {date::ShowDigits}};
  const AmountRow amountOnOk[] = {{amount::IsMissing, askAmount},
                                  {amount::Trim},
                                  // A minus sign is none of its characters: Enter takes a negative amount, OK does not.
                                  {amount::IsNoAmount, "", Reaction::Selects}};
  return InvoiceDate.Passes(dateOnOk) && NumberIsGiven(Asking(kAskNumber)) && InvoiceAmount.Passes(amountOnOk) &&
         AmountFits();
}

bool InvoicePayments::NumberIsGiven(const Wording& ask) {
  if (Trim(InvoiceNumber.Text()).empty())
    return Refuse(InvoiceNumber, ask);
  return true;
}

bool InvoicePayments::AmountFits() {
  const std::string text = TrimText(InvoiceAmount);
  const Money amount = WithImplicitCents(MoneyIn(text), text);
  InvoiceAmount.Text(Format(amount, "0.00"));
  if (amount > remainingAmount_) {
    InvoiceAmount.SelectAll();
    return Refuse(InvoiceAmount);
  }
  if (LeadingNumber(InvoiceAmount.Text()) > kLargestAmount)
    return Refuse(InvoiceAmount, "Invoice amount exceeds max. amount.");
  return true;
}

bool InvoicePayments::NoLineIsLeft() const {
  return remainingAmount_ != Money() && lineCount_ >= kMostLines;
}

void InvoicePayments::WarnOfManyLines() {
  if (remainingAmount_ == Money())
    return;
  if (lineCount_ == kLinesToWarnAt) {
    const MessageAnswer answer = ShowMessage({.text = kManyLines,
                                              .style = MessageStyle::Information,
                                              .buttons = MessageButtons::OkCancel,
                                              .title = WordedCaption()});
    if (answer == MessageAnswer::Cancel)
      cmdCancel.SetFocus();
  } else if (lineCount_ == kMostLines) {
    cmdCancel.SetFocus();
  }
}

void InvoicePayments::AcceptInvoices() {
  ShowWhetherToCancel();
  if (InvoicePaymentList.ListCount() == 0) {
    // True though the form stays open: Cancel and closing clear it.
    Chosen(kTrue);
    ShowMessage(
        {.text = "Invoice Details Must Be Entered.", .style = MessageStyle::Exclamation, .title = "Invoice Details"});
    return;
  }
  if (remainingAmount_ != Money()) {
    Refuse(InvoiceDate, "Amount to be paid does not equal total amount of invoices.");
    return;
  }
  if (Payment().writeFile == kTrue)
    WriteInvoiceRows();
  else
    AddInvoiceRecords();
  Accepted();
}

void InvoicePayments::AddInvoiceLine() {
  const double amount = LeadingNumber(InvoiceAmount.Text());
  const InvoiceLine& line = LineAt(lineCount_) = {InvoiceDate.Text(), InvoiceNumber.Text(), NumberText(amount)};
  const std::string shown = Format(amount, "0.00");
  // 54 characters, under a heading: the list has a fixed pitch for it.
  InvoicePaymentList.AddItem(AsGiven(line.date + std::string(6, ' ') + line.number + Blanks(27, line.number) +
                                     std::string(2, ' ') + Blanks(11, shown) + shown));
  ++lineCount_;
  FindRemainingAmount();
  InvoiceDate.Text("");
  InvoiceNumber.Text("");
  SuggestRemainingAmount();
}

void InvoicePayments::RemoveInvoiceLine(int row) {
  for (int i = row; i < lineCount_; ++i) LineAt(i) = LineAt(i + 1);
  --lineCount_;
  FindRemainingAmount();
  SuggestRemainingAmount();
  InvoicePaymentList.RemoveItem(row);
}

InvoicePayments::InvoiceLine& InvoicePayments::LineAt(int index) {
  if (index >= static_cast<int>(invoiceLines_.size()))
    Raise(error_number::kSubscriptOutOfRange);
  return invoiceLines_[static_cast<size_t>(index)];
}

void InvoicePayments::FindRemainingAmount() {
  Money total;
  for (int i = 0; i < lineCount_; ++i) total += MoneyIn(LineAt(i).amount);
  remainingAmount_ = MoneyIn(Payment().paidAmount) - total;
}

void InvoicePayments::SuggestRemainingAmount() {
  InvoiceAmount.Text(Format(remainingAmount_, "0.00"));
}

void InvoicePayments::ShowWhetherToCancel() {
  const bool hasInvoices = InvoicePaymentList.ListCount() > 0;
  Label2.Visible(hasInvoices);
  CancelInvoice.Enabled(hasInvoices);
}

template <class Entry>
std::vector<Entry> InvoicePayments::EntriesOf(Entry (*make)(std::string_view, std::string_view, std::string_view),
                                              int first, int count) const {
  std::vector<Entry> entries;
  for (int i = first; i < std::min(first + count, static_cast<int>(lineCount_)); ++i) {
    const InvoiceLine& line = invoiceLines_[static_cast<size_t>(i)];
    entries.push_back(make(line.date, line.amount, line.number));
  }
  return entries;
}

void InvoicePayments::WriteInvoiceRows() {
  BeginRecords();
  for (int i = 0; i < lineCount_; i += kInvoicesPerRow)
    SendRecord(ComposeInvoiceRow(Payment().seqNumber, EntriesOf(MakeInvoiceEntry, i, kInvoicesPerRow)));
  EndRecords();
}

void InvoicePayments::AddInvoiceRecords() {
  BeginRecords();
  for (int i = 0; i < lineCount_; ++i)
    for (const InvoiceEntry& entry : EntriesOf(MakeInvoiceEntry, i, 1))
      PC4Records()->Add(entry.date, entry.amount, entry.number);
  EndRecords();
}

void InvoicePayments::WriteInvoiceStatementRows() {
  BeginFile(Files::CurrentFolder() + NativePath("\\ZELMOR\\") + std::string(Trim(zelmorNumber_)) + NativePath("\\") +
            Payment().govFilename);
  for (int i = 0; i < lineCount_; i += kStatementsPerRow)
    SendRecord(ComposeStatementRow(Payment().seqNumber, EntriesOf(MakeStatementEntry, i, kStatementsPerRow)));
  EndRecords();
}

}  // namespace fiscalon
