#include <windows.h>

#include <array>
#include <charconv>
#include <string>
#include <string_view>
#include <vector>

#include "core/platform/windows/date_picture.h"
#include "core/platform/windows/locale_services.h"
#include "core/platform/windows/wide_text.h"

namespace fiscalon {

namespace {

/// How an amount stands around its digits: "$" is the currency's symbol, "-" the negative sign, "n" the digits.
using AmountPicture = std::string_view;

/// By `LOCALE_ICURRENCY`.
constexpr std::array<AmountPicture, 4> kPositiveAmounts = {"$n", "n$", "$ n", "n $"};
/// By `LOCALE_INEGCURR`.
constexpr std::array<AmountPicture, 16> kNegativeAmounts = {"($n)", "-$n",  "$-n",   "$n-",  "(n$)", "-n$",
                                                            "n-$",  "n$-",  "-n $",  "-$ n", "n $-", "$ n-",
                                                            "$ -n", "n- $", "($ n)", "(n $)"};

/// The locale services, asked about one locale.
class LocaleServices {
 public:
  explicit LocaleServices(const wchar_t* name) : name_(name) {}

  /// Empty where the system does not know.
  std::string Text(LCTYPE what) const {
    std::vector<wchar_t> text(static_cast<size_t>(::GetLocaleInfoEx(name_, what, nullptr, 0)));
    const int size = ::GetLocaleInfoEx(name_, what, text.data(), static_cast<int>(text.size()));
    return size > 1 ? InCodePage({text.data(), static_cast<size_t>(size) - 1}) : "";
  }

  /// 0 where the system does not know.
  size_t Number(LCTYPE what) const {
    const std::string digits = Text(what);
    size_t number = 0;
    std::from_chars(digits.data(), digits.data() + digits.size(), number);
    return number;
  }

  /// A number that counts the forms of a table.
  template <size_t Size>
  AmountPicture Form(LCTYPE what, const std::array<AmountPicture, Size>& forms) const {
    const size_t number = Number(what);
    return forms[number < Size ? number : 0];
  }

  /// A separator between groups; empty where there are none.
  std::string Group(LCTYPE grouping, LCTYPE separator) const {
    const std::string sizes = Text(grouping);
    return sizes.empty() || sizes.front() == '0' ? "" : Text(separator);
  }

  /// The names of twelve months or seven days.
  template <size_t Size>
  void Name(std::array<std::string, Size>& names, LCTYPE first) const {
    for (size_t i = 0; i < Size; ++i) names[i] = Text(first + static_cast<LCTYPE>(i));
  }

 private:
  /// Some locales set a narrow or thin blank between groups; the code page knows one no-break space.
  static std::string InCodePage(std::wstring text) {
    constexpr std::wstring_view kNarrowBlanks = L"\x2007\x2009\x202F";
    for (wchar_t& character : text)
      if (kNarrowBlanks.find(character) != kNarrowBlanks.npos)
        character = L'\xA0';
    return FromWide(text);
  }

  const wchar_t* name_;
};

void FormAmount(AmountPicture picture, const std::string& symbol, const std::string& sign, std::string& prefix,
                std::string& suffix) {
  prefix.clear();
  suffix.clear();
  std::string* side = &prefix;
  for (const char character : picture) {
    if (character == 'n')
      side = &suffix;
    else
      side->append(character == '$' ? symbol : character == '-' ? sign : std::string(1, character));
  }
}

/// The system counts the days from Monday.
void NameDays(const LocaleServices& services, LCTYPE monday, std::array<std::string, 7>& fromSunday) {
  std::array<std::string, 7> fromMonday;
  services.Name(fromMonday, monday);
  for (size_t day = 0; day < 7; ++day) fromSunday[day] = fromMonday[(day + 6) % 7];
}

}  // namespace

Locale LocaleFromServices(const wchar_t* name) {
  const LocaleServices services(name);
  const std::string symbol = services.Text(LOCALE_SCURRENCY);
  const std::string decimal = services.Text(LOCALE_SDECIMAL);
  if (symbol.empty() || decimal.empty())
    return EnglishCanada();
  Locale locale;
  locale.name = "system";
  locale.decimal = decimal;
  locale.group = services.Group(LOCALE_SGROUPING, LOCALE_STHOUSAND);
  locale.moneyDecimal = services.Text(LOCALE_SMONDECIMALSEP);
  locale.moneyGroup = services.Group(LOCALE_SMONGROUPING, LOCALE_SMONTHOUSANDSEP);
  locale.moneyDigits = services.Number(LOCALE_ICURRDIGITS);
  locale.currencySymbol = symbol;
  const std::string sign = services.Text(LOCALE_SNEGATIVESIGN);
  FormAmount(services.Form(LOCALE_ICURRENCY, kPositiveAmounts), symbol, sign, locale.positivePrefix,
             locale.positiveSuffix);
  FormAmount(services.Form(LOCALE_INEGCURR, kNegativeAmounts), symbol, sign, locale.negativePrefix,
             locale.negativeSuffix);
  locale.generalDate =
      PatternOfPicture(services.Text(LOCALE_SSHORTDATE)) + ' ' + PatternOfPicture(services.Text(LOCALE_STIMEFORMAT));
  locale.am = services.Text(LOCALE_S1159);
  locale.pm = services.Text(LOCALE_S2359);
  services.Name(locale.months, LOCALE_SMONTHNAME1);
  services.Name(locale.shortMonths, LOCALE_SABBREVMONTHNAME1);
  NameDays(services, LOCALE_SDAYNAME1, locale.weekdays);
  NameDays(services, LOCALE_SABBREVDAYNAME1, locale.shortWeekdays);
  return locale;
}

Locale SystemLocale() {
  return LocaleFromServices(LOCALE_NAME_USER_DEFAULT);
}

}  // namespace fiscalon
