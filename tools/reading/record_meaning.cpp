#include "tools/reading/record_meaning.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <chrono>

#include "core/values/text.h"
#include "tools/reading/visible_text.h"
#include "validation/quick_digits.h"

namespace fiscalon {
namespace {

struct RoleRow {
  std::string_view name;
  Role role;
};

// clang-format off
constexpr std::array kRoles = {
    RoleRow{"FieldNum",        Role::FieldNumber},
    RoleRow{"FieldValue",      Role::FieldValue},
    RoleRow{"",                Role::AlwaysBlank},
    RoleRow{"PeriodStartDate", Role::Period},
    RoleRow{"PeriodEndDate",   Role::Period},
    RoleRow{"PeriodDueDate",   Role::Period},
    RoleRow{"Filler1",         Role::AlwaysBlank},
    RoleRow{"Filler2",         Role::AlwaysBlank},
    RoleRow{"Amount",          Role::Cents},
    RoleRow{"InvoiceAmount",   Role::InvoiceCents},
    RoleRow{"InvoiceDate",     Role::Date},
};
// clang-format on

constexpr std::string_view kUnusedNumber = "00";

/// Whether a field holds nothing but blanks; most of a record are such fields.
bool IsBlank(std::string_view text) {
  constexpr std::string_view kBlanks = "                                                            ";
  return text.size() <= kBlanks.size() ? text == kBlanks.substr(0, text.size()) : AreBlanks(text);
}

bool AreZeros(std::string_view text) {
  return std::all_of(text.begin(), text.end(), [](char c) { return c == '0'; });
}

/// What `AreDigits` tells, eight characters at a time.
bool HoldsDigitsAlone(std::string_view text) {
  return text.size() < sizeof(uint64_t) ? AreDigits(text) : InAnyEight(text, OtherThanDigits) == 0;
}

int NumberIn(std::string_view digits) {
  int number = 0;
  std::from_chars(digits.data(), digits.data() + digits.size(), number);
  return number;
}

/// The day of digits YYYYMMDD exists.
bool IsDay(std::string_view text, unsigned day) {
  constexpr int kFirstYear = 100;
  const int year = NumberIn(text.substr(0, 4));
  return year >= kFirstYear &&
         std::chrono::year_month_day{std::chrono::year(year),
                                     std::chrono::month(static_cast<unsigned>(NumberIn(text.substr(4, 2)))),
                                     std::chrono::day(day)}
             .ok();
}

bool IsDay(std::string_view text) {
  return text.size() == 8 && AreDigits(text) && IsDay(text, static_cast<unsigned>(NumberIn(text.substr(6, 2))));
}

bool IsMonth(std::string_view text) {
  return text.size() == 6 && AreDigits(text) && IsDay(text, 1);
}

bool IsYear(std::string_view text) {
  return text.size() == 4 && AreDigits(text);
}

class FieldReader {
 public:
  FieldReader(ShownField& field, std::string_view text, std::vector<Note>& problems)
      : field_(field), text_(text), problems_(problems) {}

  void Read(Role role, const LaunchRow* screen, SlotBefore& slot) {
    switch (role) {
      case Role::AlwaysBlank:
        return WrongText("columns that are always blank hold \"{1}\"");
      case Role::FieldNumber:
        return ReadNumber(screen, slot);
      case Role::FieldValue:
        return screen == nullptr || slot.number.empty() ? ReadValue() : ReadValueOf(*screen, slot);
      case Role::Cents:
        return ReadCents(Sense::Cents, text_);
      case Role::InvoiceCents:
        // The first column of an invoice's amount is that of its sign.
        return ReadCents(Sense::Cents, text_.substr(text_.front() == ' ' ? 1 : 0));
      case Role::Period:
        return ReadPeriod();
      case Role::Date:
        return IsDay(text_) ? Is(Sense::Date) : WrongText("\"{1}\" is no date YYYYMMDD");
      case Role::Text:
        return Is(Sense::Text);
    }
  }

 private:
  void ReadNumber(const LaunchRow* screen, SlotBefore& slot) {
    if (!AreDigits(text_))
      return WrongText("\"{1}\" is no field number of two digits");
    Is(Sense::FieldNumber);
    if (text_ == kUnusedNumber)
      return;
    slot.number = text_;
    if (screen != nullptr)
      slot.field = FindField(screen->code, text_);
    if (slot.field != nullptr)
      field_.nameOnScreen = slot.field->name;
  }

  /// A value of a screen that is not known.
  void ReadValue() {
    if (text_.front() == ' ')
      return WrongText("the value \"{1}\" begins with blanks");
    // Amounts fill their columns from the left with zeros, or with a minus; texts leave blanks behind them.
    const bool fillsColumns = text_.back() != ' ';
    if (fillsColumns && (text_.front() == '0' || text_.front() == '-' || !SignedDigitsIn(text_).digits.empty()))
      return ReadCents(Sense::Digits, text_);
    Is(Sense::Text);
  }

  void ReadValueOf(const LaunchRow& screen, const SlotBefore& slot) {
    if (slot.field != nullptr)
      return ReadValueAs(slot.field->kind);
    ReadValue();
    if (!AreZeros(text_))
      Wrong(Filled("screen {1} has no field {2}, and it holds \"{3}\"", AsGiven(std::string(screen.code)),
                   AsGiven(slot.number), AsGiven(WithDots(text_))));
  }

  void ReadValueAs(FieldKind kind) {
    switch (kind) {
      case FieldKind::Amount:
        return ReadCents(Sense::Cents, text_);
      case FieldKind::WholeDollars:
        return ReadWholeDollars();
      case FieldKind::Count:
        return AreDigits(text_) ? Is(Sense::Count) : WrongText("the number \"{1}\" is not made of digits");
      case FieldKind::Date:
        return IsDay(TrimRight(text_)) ? Is(Sense::Date) : WrongText("\"{1}\" is no date YYYYMMDD");
      case FieldKind::Month:
        return IsMonth(TrimRight(text_)) ? Is(Sense::Month) : WrongText("\"{1}\" is no month YYYYMM");
      case FieldKind::Year:
        return IsYear(TrimRight(text_)) ? Is(Sense::Year) : WrongText("\"{1}\" is no year YYYY");
      case FieldKind::Text:
        return text_.front() == ' ' ? WrongText("the value \"{1}\" begins with blanks") : Is(Sense::Text);
    }
  }

  void ReadCents(Sense sense, std::string_view amount) {
    if (SignedDigitsIn(amount).digits.empty())
      return WrongText("the amount \"{1}\" is not made of digits");
    Is(sense);
  }

  void ReadWholeDollars() {
    ReadCents(Sense::Dollars, text_);
    const std::string_view digits = SignedDigitsIn(text_).digits;
    if (!digits.empty() && !AreZeros(digits.substr(digits.size() - std::min<size_t>(digits.size(), 2))))
      WrongText("the amount \"{1}\" has cents, and is one of whole dollars");
  }

  void ReadPeriod() {
    if (IsDay(text_))
      return Is(Sense::Date);
    if (IsMonth(TrimRight(text_)))
      return Is(Sense::Month);
    WrongText("\"{1}\" is no date YYYYMMDD or YYYYMM");
  }

  void Is(Sense sense) { field_.sense = sense; }

  /// `what` has a place for the field's text.
  void WrongText(std::string_view what) { Wrong(Filled(what, AsGiven(WithDots(text_)))); }

  void Wrong(const Wording& what) {
    field_.sense = Sense::Wrong;
    problems_.push_back(
        {.from = field_.from,
         .to = field_.to,
         .text = field_.name.empty() ? what : Filled("{1}: {2}", AsGiven(std::string(field_.name)), what)});
  }

  ShownField& field_;
  std::string_view text_;
  std::vector<Note>& problems_;
};

/// "123.45" of "000000000000012345", however large.
void AppendDollars(std::string& out, const SignedDigits& cents) {
  constexpr size_t kDecimals = 2;
  const std::string_view digits = cents.digits;
  const size_t whole = digits.size() - std::min(digits.size(), kDecimals);
  const size_t first = std::min(digits.find_first_not_of('0'), whole);
  if (cents.isNegative)
    out += '-';
  if (first == whole)
    out += '0';
  out.append(digits, first, whole - first);
  out += '.';
  out.append(kDecimals - (digits.size() - whole), '0');
  out.append(digits, whole);
}

}  // namespace

Role RoleOf(std::string_view name) {
  const auto row = std::find_if(kRoles.begin(), kRoles.end(), [&](const RoleRow& each) { return each.name == name; });
  return row == kRoles.end() ? Role::Text : row->role;
}

SignedDigits SignedDigitsIn(std::string_view text) {
  const bool isNegative = text.starts_with('-') || text.ends_with('-');
  if (text.starts_with('-'))
    text.remove_prefix(1);
  else if (text.ends_with('-'))
    text.remove_suffix(1);
  if (!HoldsDigitsAlone(text))
    return {};
  return {isNegative, text};
}

void AppendMeaning(std::string& out, const ShownField& field, std::string_view text) {
  switch (field.sense) {
    case Sense::Text:
      return AppendUtf8(out, Trim(text));
    case Sense::Cents:
    case Sense::Dollars:
    case Sense::Digits:
      return AppendDollars(out, SignedDigitsIn(TrimLeft(text)));
    case Sense::Count:
      out.append(text, std::min(text.find_first_not_of('0'), text.size() - 1));
      return;
    case Sense::Date:
      out.append(text, 0, 4).append("-").append(text, 4, 2).append("-").append(text, 6, 2);
      return;
    case Sense::Month:
      out.append(text, 0, 4).append("-").append(text, 4, 2);
      return;
    case Sense::Year:
      out.append(text, 0, 4);
      return;
    case Sense::FieldNumber:
      out.append(field.nameOnScreen);
      return;
    case Sense::Blank:
    case Sense::Missing:
    case Sense::Wrong:
      return;
  }
}

ShownField UnderstandField(std::string_view record, const RecordField& field, Role role, const LaunchRow* screen,
                           SlotBefore& slot, std::vector<Note>& problems) {
  ShownField shown{.name = field.name, .from = field.from, .to = field.to, .sense = {}, .nameOnScreen = {}};
  const std::string_view text = TextIn(record, field);
  if (role == Role::FieldNumber)
    slot = {};
  if (text.size() < field.Width())
    shown.sense = Sense::Missing;
  else if (!IsBlank(text))
    FieldReader(shown, text, problems).Read(role, screen, slot);
  return shown;
}

}  // namespace fiscalon
