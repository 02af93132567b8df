#include "tools/fiscalon/commands/desk_form.h"

#include <algorithm>
#include <array>
#include <charconv>

#include "core/forms/keys.h"
#include "core/launch.h"
#include "core/module_state.h"
#include "core/platform/code_page.h"
#include "tools/paying/payment_doubts.h"
#include "tools/paying/screen_show.h"
#include "tools/reading/utf8_words.h"

namespace fiscalon {
namespace {

struct EntryRow {
  PaymentEntry entry;
  std::string Payment::*text;
  int maxLength;
  int tabIndex;
};
/// The number of items is no text.
constexpr std::string Payment::*kItems = nullptr;
// In the order of the form.
constexpr std::array kEntries = {
    EntryRow{PaymentEntry::CustomerNumber, &Payment::customerNumber, 20, 0},
    EntryRow{PaymentEntry::BillerCode, &Payment::billerCode, 8, 1},
    EntryRow{PaymentEntry::BillerName, &Payment::billerName, FieldDesign::kNoLimit, 2},
    EntryRow{PaymentEntry::Sequence, &Payment::sequence, 8, 3},
    EntryRow{PaymentEntry::Cents, &Payment::cents, 16, 4},
    EntryRow{PaymentEntry::Dollars, &Payment::dollars, 16, 5},
    EntryRow{PaymentEntry::Date, &Payment::date, 10, 6},
    EntryRow{PaymentEntry::EnteredBy, &Payment::enteredBy, 40, 8},
    EntryRow{PaymentEntry::Title, &Payment::title, 20, 9},
    EntryRow{PaymentEntry::Items, kItems, 2, 10},
    EntryRow{PaymentEntry::BusinessName, &Payment::businessName, FieldDesign::kNoLimit, 11},
    EntryRow{PaymentEntry::File, &Payment::file, FieldDesign::kNoLimit, 14},
};

int IndexOf(PaymentEntry entry) {
  const auto* const row =
      std::find_if(kEntries.begin(), kEntries.end(), [&](const EntryRow& each) { return each.entry == entry; });
  return row == kEntries.end() ? -1 : static_cast<int>(row - kEntries.begin());
}

const EntryRow& RowAt(int index) {
  return kEntries[static_cast<size_t>(index)];
}

/// What no number stands for is as many as a payment has at least.
int ItemsOf(std::string_view text) {
  int items = 0;
  std::from_chars(text.data(), text.data() + text.size(), items);
  return std::max(items, 1);
}

Wording CaptionOf(PaymentEntry entry) {
  return WordsOf(entry).caption;
}

Wording RowOf(const LaunchRow& screen) {
  return Filled("{1}  {2}", AsGiven(std::string(screen.code)), screen.collects);
}

}  // namespace

frmPaymentDesk::frmPaymentDesk()
    : Form("frmPaymentDesk", "Payment desk"),
      lblEntry(*this, "lblEntry",
               [](int index) {
                 return LabelDesign{.caption = Filled("{1}:", std::string_view(NameOf(RowAt(index).entry)))};
               }),
      txtEntry(
          *this, "txtEntry",
          [](int index) { return FieldDesign{.tabIndex = RowAt(index).tabIndex, .maxLength = RowAt(index).maxLength}; },
          {.change = On(&Self::txtEntry_Change)}),
      chkOnHold(*this, "chkOnHold", {.caption = CaptionOf(PaymentEntry::OnHold), .tabIndex = 7}),
      optCollection(*this, "optCollection",
                    {.caption = CaptionOf(PaymentEntry::ToCollection), .tabIndex = 12, .value = true},
                    {.click = On(&Self::optDestination_Click)}),
      optFile(*this, "optFile", {.caption = CaptionOf(PaymentEntry::ToFile), .tabIndex = 13},
              {.click = On(&Self::optDestination_Click)}),
      layout_(MakeLayout()) {}

Layout frmPaymentDesk::MakeLayout() {
  const auto cell = [&](PaymentEntry entry) {
    const int index = IndexOf(entry);
    return Cell{.caption = &lblEntry[index], .field = &txtEntry[index]};
  };
  return {.groups = {{.heading = &lblPayment,
                      .rows = {{{cell(PaymentEntry::CustomerNumber), cell(PaymentEntry::BillerCode)}},
                               {{cell(PaymentEntry::BillerName), cell(PaymentEntry::Sequence)}},
                               {{cell(PaymentEntry::Cents), cell(PaymentEntry::Dollars)}},
                               {{cell(PaymentEntry::Date), {.field = &chkOnHold}}},
                               {{cell(PaymentEntry::EnteredBy)}},
                               {{cell(PaymentEntry::Title), cell(PaymentEntry::Items)}},
                               {{cell(PaymentEntry::BusinessName)}},
                               {{{.field = &optCollection}, {.field = &optFile}}},
                               {{cell(PaymentEntry::File)}},
                               {{{.caption = &lblDoubt}}}}},
                     {.rows = {{{{.caption = &lblScreen, .field = &cmbScreen}}}}}},
          .buttons = {&cmdShow, &cmdClose, &cmdHelp}};
}

void frmPaymentDesk::Form_Load() {
  const Payment payment = ExamplePayment();
  for (int i = 0; i < txtEntry.Size(); ++i)
    txtEntry[i].Text(RowAt(i).text == kItems ? std::to_string(payment.items) : FromUtf8(payment.*RowAt(i).text));
  chkOnHold.Value(payment.onHold);
  (payment.destination == Payment::Destination::File ? optFile : optCollection).Value(true);
  for (const LaunchRow& screen : LaunchTable()) {
    cmbScreen.AddItem(RowOf(screen));
    if (screen.code == "15")
      cmbScreen.ListIndex(cmbScreen.ListCount() - 1);
  }
  optDestination_Click();
}

Payment frmPaymentDesk::Current() const {
  Payment payment;
  for (int i = 0; i < txtEntry.Size(); ++i) {
    if (RowAt(i).text == kItems)
      payment.items = ItemsOf(txtEntry[i].Text());
    else
      payment.*RowAt(i).text = ToUtf8(txtEntry[i].Text());
  }
  payment.onHold = chkOnHold.Value();
  payment.destination = optFile.Value() ? Payment::Destination::File : Payment::Destination::Collection;
  return payment;
}

void frmPaymentDesk::txtEntry_Change(int index) {
  const PaymentEntry entry = RowAt(index).entry;
  const bool isAmount = entry == PaymentEntry::Cents || entry == PaymentEntry::Dollars;
  if (isAmount && !follows_) {
    follows_ = true;
    const std::string text = ToUtf8(txtEntry[index].Text());
    if (entry == PaymentEntry::Cents)
      txtEntry[IndexOf(PaymentEntry::Dollars)].Text(DollarsOf(text));
    else
      txtEntry[IndexOf(PaymentEntry::Cents)].Text(CentsOf(text));
    follows_ = false;
  }
  ShowDoubts();
}

void frmPaymentDesk::optDestination_Click() {
  txtEntry[IndexOf(PaymentEntry::File)].Enabled(optFile.Value());
  ShowDoubts();
}

void frmPaymentDesk::ShowDoubts() {
  const std::vector<Doubt> doubts = DoubtsAbout(Current());
  std::string told = doubts.empty() ? std::string() : SentenceOf(doubts.front());
  if (doubts.size() > 1)
    told = Utf8Words("{1} (and {2} more)", {told, std::to_string(doubts.size() - 1)});
  lblDoubt.Caption(AsGiven(FromUtf8(told)));
}

bool frmPaymentDesk::IsStopped() {
  const Payment payment = Current();
  if (const std::optional<Obstacle> obstacle = ObstacleIn(payment)) {
    TheToolkit().ShowMessage({.text = FromUtf8(obstacle->reasons),
                              .style = MessageStyle::Exclamation,
                              .title = ShownCaption(),
                              .language = ShownIn()});
    GoTo(obstacle->entry);
    return true;
  }
  if (MayReplaceFile(payment, ShownCaption()))
    return false;
  GoTo(PaymentEntry::File);
  return true;
}

void frmPaymentDesk::GoTo(PaymentEntry entry) {
  if (const int index = IndexOf(entry); index >= 0 && txtEntry[index].CanTakeFocus())
    txtEntry[index].SetFocus();
}

void frmPaymentDesk::cmdShow_Click() {
  if (cmbScreen.ListIndex() < 0 || IsStopped())
    return;
  onShow(Current(), std::string(LaunchTable()[static_cast<size_t>(cmbScreen.ListIndex())].code));
}

// NOLINTNEXTLINE(readability-make-member-function-const): handlers act on the form.
void frmPaymentDesk::cmdHelp_Click() {
  TheToolkit().OpenHelp(FromUtf8(operatorsPage), 0);
}

void frmPaymentDesk::Form_KeyDown(int& keyCode, int shift) {
  if (keyCode != key::kF1 || shift != 0)
    return;
  keyCode = 0;
  cmdHelp_Click();
}

}  // namespace fiscalon
