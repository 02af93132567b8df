#include "tools/paying/payment_entries.h"

#include <array>

namespace fiscalon {
namespace {

constexpr std::array kEntries = {
    EntryWords{PaymentEntry::CustomerNumber, "Customer nu&mber:", ""},
    EntryWords{PaymentEntry::Sequence, "&Sequence:", "Four characters that head each record"},
    EntryWords{PaymentEntry::BillerName, "&Biller:", "Shown on the screens"},
    EntryWords{PaymentEntry::BillerCode, "Biller &code:", "001051, 001052, 001053 and 001055 have rules of their own"},
    EntryWords{PaymentEntry::Cents, "&Amount in cents:", "What the host sets"},
    EntryWords{PaymentEntry::Dollars, "In &dollars:", "The same amount, with a point or a comma"},
    EntryWords{PaymentEntry::Date, "Payment da&te:", ""},
    EntryWords{PaymentEntry::OnHold, "On &hold, without a fixed date", ""},
    EntryWords{PaymentEntry::EnteredBy, "&Entered by:", "A record has room for 30 characters"},
    EntryWords{PaymentEntry::Title, "T&itle:", "A record has room for 20 characters"},
    EntryWords{PaymentEntry::BusinessName, "Business &name:", "Offered on screen 10"},
    EntryWords{PaymentEntry::Items, "Number o&f items:", "How many screen 07 collects"},
    EntryWords{PaymentEntry::ToCollection, "Hand them bac&k", ""},
    EntryWords{PaymentEntry::ToFile, "&Write them to a file:", ""},
    EntryWords{PaymentEntry::File, "Record file", ""},
};

constexpr bool AreInOrder() {
  for (size_t i = 0; i < kEntries.size(); ++i)
    if (static_cast<size_t>(kEntries[i].entry) != i)
      return false;
  return true;
}
static_assert(AreInOrder(), "an entry is looked up by its place");

}  // namespace

const EntryWords& WordsOf(PaymentEntry entry) {
  return kEntries[static_cast<size_t>(entry)];
}

std::string NameOf(PaymentEntry entry) {
  std::string name(WordsOf(entry).caption);
  std::erase(name, '&');
  if (name.ends_with(':'))
    name.pop_back();
  return name;
}

}  // namespace fiscalon
