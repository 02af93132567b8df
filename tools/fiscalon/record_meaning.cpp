#include "tools/fiscalon/record_meaning.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <chrono>
#include <optional>

#include "core/platform/code_page.h"
#include "core/records/field_names.h"
#include "core/values/text.h"
#include "tools/fiscalon/visible_text.h"

namespace fiscalon {
namespace {

/// What the layout's fields hold.
enum class Role { AlwaysBlank, Text, Period, Date, Cents, InvoiceCents, FieldNumber, FieldValue };

struct RoleRow {
  std::string_view name;
  Role role;
};

// clang-format off
constexpr std::array kRoles = {
    RoleRow{"",                Role::AlwaysBlank},
    RoleRow{"PeriodStartDate", Role::Period},
    RoleRow{"PeriodEndDate",   Role::Period},
    RoleRow{"PeriodDueDate",   Role::Period},
    RoleRow{"Filler1",         Role::AlwaysBlank},
    RoleRow{"Filler2",         Role::AlwaysBlank},
    RoleRow{"FieldNum",        Role::FieldNumber},
    RoleRow{"FieldValue",      Role::FieldValue},
    RoleRow{"Amount",          Role::Cents},
    RoleRow{"InvoiceAmount",   Role::InvoiceCents},
    RoleRow{"InvoiceDate",     Role::Date},
};
// clang-format on

Role RoleOf(std::string_view name) {
  const auto row = std::find_if(kRoles.begin(), kRoles.end(), [&](const RoleRow& each) { return each.name == name; });
  return row == kRoles.end() ? Role::Text : row->role;
}

bool AreDigits(std::string_view text) {
  return !text.empty() && text.find_first_not_of("0123456789") == std::string_view::npos;
}

int NumberIn(std::string_view digits) {
  int number = 0;
  std::from_chars(digits.data(), digits.data() + digits.size(), number);
  return number;
}

/// "2026-12-31" of "20261231"; nothing for a day that does not exist.
std::optional<std::string> DayIn(std::string_view text) {
  constexpr int kFirstYear = 100;
  if (text.size() != 8 || !AreDigits(text))
    return std::nullopt;
  const int year = NumberIn(text.substr(0, 4));
  const std::chrono::year_month_day day{std::chrono::year(year),
                                        std::chrono::month(static_cast<unsigned>(NumberIn(text.substr(4, 2)))),
                                        std::chrono::day(static_cast<unsigned>(NumberIn(text.substr(6, 2))))};
  if (year < kFirstYear || !day.ok())
    return std::nullopt;
  return std::string(text).insert(6, "-").insert(4, "-");
}

/// "2026-12" of "202612  "; nothing for a month that does not exist.
std::optional<std::string> MonthIn(std::string_view text) {
  const std::string_view digits = TrimRight(text);
  const auto day = digits.size() == 6 ? DayIn(std::string(digits).append("01")) : std::nullopt;
  return day ? std::optional(day->substr(0, 7)) : std::nullopt;
}

/// The digits of an amount that fills its columns, behind its minus. It stands before them, in one return's field
/// behind them. Nothing for what is no amount.
std::optional<std::string> SignedDigitsIn(std::string_view text) {
  const bool negative = text.starts_with('-') || text.ends_with('-');
  if (text.starts_with('-'))
    text.remove_prefix(1);
  else if (text.ends_with('-'))
    text.remove_suffix(1);
  if (!AreDigits(text))
    return std::nullopt;
  return std::string(negative ? "-" : "").append(text);
}

/// "123.45" of "000000000000012345", however large.
std::string DollarsOf(std::string_view signedDigits) {
  constexpr size_t kLeastDigits = 3;
  const std::string_view sign = signedDigits.starts_with('-') ? "-" : "";
  std::string digits(signedDigits.substr(sign.size()));
  digits.erase(0, std::min(digits.find_first_not_of('0'), digits.size()));
  digits.insert(0, kLeastDigits - std::min(kLeastDigits, digits.size()), '0');
  return std::string(sign) + digits.insert(digits.size() - 2, ".");
}

class FieldReader {
 public:
  FieldReader(ShownField& field, std::vector<Note>& problems) : field_(field), problems_(problems) {}

  void Understand(Role role, const LaunchRow* screen) {
    if (role == Role::AlwaysBlank)
      return Wrong("columns that are always blank hold " + DottedText(field_.text));
    if (role == Role::FieldNumber)
      return UnderstandNumber(screen);
    if (role == Role::FieldValue)
      return UnderstandValue();
    if (role == Role::Cents || role == Role::InvoiceCents)
      return UnderstandCents(Sense::Cents, role);
    if (role == Role::Period || role == Role::Date)
      return UnderstandDate(role);
    Means(Sense::Text, ToUtf8(Trim(field_.text)));
  }

 private:
  void UnderstandNumber(const LaunchRow* screen) {
    if (!AreDigits(field_.text))
      return Wrong(DottedText(field_.text) + " is no field number of two digits");
    Means(Sense::FieldNumber, "");
    if (screen == nullptr)
      return;
    field_.meaning = ToUtf8(FieldNameOf(screen->code, field_.text));
  }

  void UnderstandValue() {
    const std::string_view text = field_.text;
    if (text.front() == ' ')
      return Wrong("the value " + DottedText(text) + " begins with blanks");
    // Amounts fill their columns from the left with zeros, or with a minus; texts leave blanks behind them.
    const bool fillsColumns = text.back() != ' ';
    if (fillsColumns && (SignedDigitsIn(text) || text.front() == '0' || text.front() == '-'))
      return UnderstandCents(Sense::Digits, Role::FieldValue);
    Means(Sense::Text, ToUtf8(Trim(text)));
  }

  void UnderstandCents(Sense sense, Role role) {
    // The first column of an invoice's amount is that of its sign.
    const bool unsignedInvoice = role == Role::InvoiceCents && field_.text.front() == ' ';
    const auto digits = SignedDigitsIn(std::string_view(field_.text).substr(unsignedInvoice ? 1 : 0));
    if (!digits)
      return Wrong("the amount " + DottedText(field_.text) + " is not made of digits");
    Means(sense, DollarsOf(*digits));
  }

  void UnderstandDate(Role role) {
    if (const auto day = DayIn(field_.text))
      return Means(Sense::Date, *day);
    if (const auto month = role == Role::Period ? MonthIn(field_.text) : std::nullopt)
      return Means(Sense::Month, *month);
    Wrong(DottedText(field_.text) + " is no date" + (role == Role::Period ? " YYYYMMDD or YYYYMM" : " YYYYMMDD"));
  }

  void Means(Sense sense, const std::string& meaning) {
    field_.sense = sense;
    field_.meaning = meaning;
  }

  void Wrong(const std::string& what) {
    field_.sense = Sense::Wrong;
    const std::string name = field_.name.empty() ? std::string() : std::string(field_.name) + ": ";
    problems_.push_back({.from = field_.from, .to = field_.to, .text = name + what});
  }

  ShownField& field_;
  std::vector<Note>& problems_;
};

}  // namespace

ShownField UnderstandField(std::string_view record, const RecordField& field, const LaunchRow* screen,
                           std::vector<Note>& problems) {
  ShownField shown{.name = field.name, .from = field.from, .to = field.to, .text = std::string(TextIn(record, field))};
  if (shown.text.size() < field.Width())
    shown.sense = Sense::Missing;
  else if (!Trim(shown.text).empty())
    FieldReader(shown, problems).Understand(RoleOf(field.name), screen);
  return shown;
}

}  // namespace fiscalon
