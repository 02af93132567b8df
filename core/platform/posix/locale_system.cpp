#include <langinfo.h>
#include <locale.h>

#include <algorithm>
#include <cstdlib>
#include <ctime>
#include <iterator>
#include <locale>
#include <memory>
#include <mutex>
#include <optional>
#include <sstream>
#include <stdexcept>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>

#include "core/platform/code_page.h"
#include "core/platform/locale.h"

namespace fiscalon {

namespace {

using SystemHandle = std::unique_ptr<std::remove_pointer_t<locale_t>, decltype(&::freelocale)>;

constexpr wchar_t kWideNoBreakSpace = 0xA0;
/// No money has more; a locale that does not tell says so by a number far beyond.
constexpr int kMostMoneyDigits = 4;

/// Some systems set a narrow or thin blank between groups; the code page knows one no-break space.
wchar_t InCodePage(wchar_t character) {
  constexpr std::wstring_view kNarrowBlanks = L"\x2007\x2009\x202F";
  return kNarrowBlanks.find(character) == kNarrowBlanks.npos ? character : kWideNoBreakSpace;
}

std::string FromWide(std::wstring_view wide) {
  std::string utf8;
  for (wchar_t character : wide) {
    const auto code = static_cast<char32_t>(InCodePage(character));
    if (code < 0x80) {
      utf8 += static_cast<char>(code);
    } else if (code < 0x800) {
      utf8 += {static_cast<char>(0xC0 | code >> 6), static_cast<char>(0x80 | (code & 0x3F))};
    } else {
      // Nothing beyond the first plane has a place in the code page; "?" stands for it below.
      const char32_t plane = code > 0xFFFF ? 0xFFFD : code;
      utf8 += {static_cast<char>(0xE0 | plane >> 12), static_cast<char>(0x80 | (plane >> 6 & 0x3F)),
               static_cast<char>(0x80 | (plane & 0x3F))};
    }
  }
  return FromUtf8(utf8);
}

/// What stands before and behind the digits of an amount.
struct Surroundings {
  std::string prefix = {};
  std::string suffix = {};
};

Surroundings AroundAmount(const std::moneypunct<wchar_t>::pattern& pattern, const std::wstring& sign,
                          const std::wstring& symbol) {
  std::wstring before;
  std::wstring behind;
  bool valueSeen = false;
  for (const char field : pattern.field) {
    std::wstring& side = valueSeen ? behind : before;
    if (field == std::money_base::value)
      valueSeen = true;
    else if (field == std::money_base::symbol)
      side += symbol;
    else if (field == std::money_base::space)
      side += L' ';
    else if (field == std::money_base::sign)
      side += sign.substr(0, 1);
  }
  // Of a sign such as "()" all but the first character stands behind everything.
  return {FromWide(before), FromWide(behind + sign.substr(std::min<size_t>(sign.size(), 1)))};
}

/// One field of a moment as the locale writes it: the name of a month, of a day, of a half of the day.
std::string TimeField(const std::locale& system, const std::tm& moment, char field) {
  std::wostringstream text;
  text.imbue(system);
  std::use_facet<std::time_put<wchar_t>>(system).put(std::ostreambuf_iterator<wchar_t>(text), text, L' ', &moment,
                                                     field);
  return FromWide(text.str());
}

struct Compound {
  char field = 0;
  std::string_view meaning = {};
};
constexpr Compound kCompounds[] = {
    {'T', "%H:%M:%S"}, {'R', "%H:%M"}, {'D', "%m/%d/%y"}, {'F', "%Y-%m-%d"}, {'h', "%b"}, {'P', "%p"},
};

/// The system's pattern with only the tokens that `GeneralDate` knows: compounds are written out, what marks
/// other digits or eras is dropped, and so is the time zone.
std::string PlainPattern(std::string_view pattern, std::string_view halfDayTime) {
  constexpr std::string_view kKnown = "YymdeBbAaHkIlMSp%";
  constexpr std::string_view kModifiers = "EO";
  std::string plain;
  for (size_t at = 0; at < pattern.size(); ++at) {
    if (pattern[at] != '%') {
      plain += pattern[at];
      continue;
    }
    std::string token = "%";
    for (++at; at < pattern.size() && (pattern[at] == '-' || kModifiers.find(pattern[at]) != kModifiers.npos); ++at)
      token.append(pattern[at] == '-' ? "-" : "");
    const char field = at < pattern.size() ? pattern[at] : '%';
    const auto compound = std::find_if(std::begin(kCompounds), std::end(kCompounds),
                                       [&](const Compound& candidate) { return candidate.field == field; });
    if (field == 'r')
      plain += halfDayTime.empty() ? "%I:%M:%S %p" : PlainPattern(halfDayTime, {});
    else if (compound != std::end(kCompounds))
      plain += compound->meaning;
    else if (kKnown.find(field) != kKnown.npos)
      plain += token + field;
  }
  const size_t first = plain.find_first_not_of(' ');
  return first == plain.npos ? "" : plain.substr(first, plain.find_last_not_of(' ') - first + 1);
}

std::string GeneralDatePattern(const std::string& name) {
  const SystemHandle handle(::newlocale(LC_TIME_MASK | LC_CTYPE_MASK, name.c_str(), nullptr), &::freelocale);
  if (!handle)
    return EnglishCanada().generalDate;
  const auto item = [&](nl_item which) { return FromUtf8(::nl_langinfo_l(which, handle.get())); };
  const std::string halfDayTime = item(T_FMT_AMPM);
  return PlainPattern(item(D_FMT), halfDayTime) + ' ' + PlainPattern(item(T_FMT), halfDayTime);
}

void TakeMoments(const std::locale& system, Locale& locale) {
  locale.generalDate = GeneralDatePattern(system.name());
  std::tm moment = {};
  for (moment.tm_mon = 0; moment.tm_mon < 12; ++moment.tm_mon) {
    const auto month = static_cast<size_t>(moment.tm_mon);
    locale.months[month] = TimeField(system, moment, 'B');
    locale.shortMonths[month] = TimeField(system, moment, 'b');
  }
  moment.tm_mon = 0;
  for (moment.tm_wday = 0; moment.tm_wday < 7; ++moment.tm_wday) {
    const auto day = static_cast<size_t>(moment.tm_wday);
    locale.weekdays[day] = TimeField(system, moment, 'A');
    locale.shortWeekdays[day] = TimeField(system, moment, 'a');
  }
  moment.tm_hour = 1;
  locale.am = TimeField(system, moment, 'p');
  moment.tm_hour = 13;
  locale.pm = TimeField(system, moment, 'p');
}

void TakeNumbers(const std::locale& system, Locale& locale) {
  const auto& numbers = std::use_facet<std::numpunct<wchar_t>>(system);
  locale.decimal = FromWide(std::wstring(1, numbers.decimal_point()));
  locale.group = numbers.grouping().empty() ? "" : FromWide(std::wstring(1, numbers.thousands_sep()));
}

void TakeMoney(const std::locale& system, Locale& locale) {
  const auto& amounts = std::use_facet<std::moneypunct<wchar_t>>(system);
  const std::wstring symbol = amounts.curr_symbol();
  locale.moneyDecimal = FromWide(std::wstring(1, amounts.decimal_point()));
  locale.moneyGroup = amounts.grouping().empty() ? "" : FromWide(std::wstring(1, amounts.thousands_sep()));
  if (const int digits = amounts.frac_digits(); digits >= 0 && digits <= kMostMoneyDigits)
    locale.moneyDigits = static_cast<size_t>(digits);
  locale.currencySymbol = FromWide(symbol);
  const Surroundings positive = AroundAmount(amounts.pos_format(), amounts.positive_sign(), symbol);
  const Surroundings negative = AroundAmount(amounts.neg_format(), amounts.negative_sign(), symbol);
  locale.positivePrefix = positive.prefix;
  locale.positiveSuffix = positive.suffix;
  locale.negativePrefix = negative.prefix;
  locale.negativeSuffix = negative.suffix;
}

std::string Variable(const char* name) {
  const char* value = std::getenv(name);
  return value == nullptr ? "" : value;
}

/// The name that the environment gives a category, "LC_TIME" say; empty where it names none.
std::string NameOf(const char* category) {
  for (const char* variable : {"LC_ALL", category, "LANG"})
    if (std::string name = Variable(variable); !name.empty())
      return name;
  return "";
}

/// Whether the system has a locale of that name, and a currency in it.
bool HasCurrency(const std::string& name) {
  // Of all the files of a locale this asks for one.
  const SystemHandle money(::newlocale(LC_MONETARY_MASK, name.c_str(), nullptr), &::freelocale);
  // In front of the symbol stands where it goes.
  return money && std::string_view(::nl_langinfo_l(CRNCYSTR, money.get())).size() > 1;
}

/// The system's locale of that name; nothing where there is no name, or none that the system has and that defines a
/// currency.
std::optional<std::locale> LocaleNamed(const std::string& name) {
  if (name.empty() || !HasCurrency(name))
    return std::nullopt;
  try {
    return std::locale(name);
  } catch (const std::runtime_error&) {
    // It is not installed.
    return std::nullopt;
  }
}

/// What the environment tells of the user's locale.
struct LocaleNames {
  std::string numbers = NameOf("LC_NUMERIC");
  std::string money = NameOf("LC_MONETARY");
  std::string moments = NameOf("LC_TIME");
  std::string folder = Variable("LOCPATH");

  friend bool operator==(const LocaleNames&, const LocaleNames&) = default;
};

Locale ReadLocale(const LocaleNames& names) {
  // Nearly always one name for all, and its files are many.
  const std::optional<std::locale> numbers = LocaleNamed(names.numbers);
  const std::optional<std::locale> money = names.money == names.numbers ? numbers : LocaleNamed(names.money);
  const std::optional<std::locale> moments = names.moments == names.numbers ? numbers : LocaleNamed(names.moments);
  Locale locale = EnglishCanada();
  if (!numbers && !money && !moments)
    return locale;
  locale.name = "system";
  // Before the numbers' own: money that the system does not know keeps its form.
  locale.moneyDecimal = locale.decimal;
  locale.moneyGroup = locale.group;
  if (numbers)
    TakeNumbers(*numbers, locale);
  if (money)
    TakeMoney(*money, locale);
  if (moments)
    TakeMoments(*moments, locale);
  return locale;
}

}  // namespace

Locale SystemLocale() {
  // To read its files takes a millisecond, and every session asks. That they change under the same names goes unseen.
  static std::mutex oneAtATime;
  static std::optional<std::pair<LocaleNames, Locale>> last;
  const std::lock_guard lock(oneAtATime);
  if (LocaleNames names; !last || last->first != names)
    last.emplace(names, ReadLocale(names));
  return last->second;
}

}  // namespace fiscalon
