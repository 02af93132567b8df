#include "core/platform/locale.h"

#include <gtest/gtest.h>

#include <clocale>
#include <locale>

#include "tests/support/users_locale.h"

/// The system's own library loses its list of folders each time it looks a locale up under LOCPATH.
// NOLINTNEXTLINE(bugprone-reserved-identifier): the name is the sanitizer's.
extern "C" const char* __lsan_default_suppressions() {
  return "leak:__argz_add_sep";
}

namespace fiscalon {
namespace {

/// Separators, then both forms of an amount, then the form of a moment.
std::string Described(const Locale& locale) {
  return locale.decimal + " " + locale.group + " | " + locale.positivePrefix + "1" + locale.positiveSuffix + " | " +
         locale.negativePrefix + "1" + locale.negativeSuffix + " | " + locale.generalDate;
}

TEST(SystemLocale, WithoutACurrencyIsEnglishCanada) {
  for (const char* name : {"C", "POSIX", "C.UTF-8"}) {
    const UsersLocale user(name);
    EXPECT_EQ(SystemLocale(), EnglishCanada()) << name;
  }
}

TEST(SystemLocale, OfAnEnvironmentThatNamesNoneIsEnglishCanada) {
  const UsersLocale user({});
  EXPECT_EQ(SystemLocale(), EnglishCanada());
}

TEST(SystemLocale, ThatTheSystemDoesNotHaveIsEnglishCanada) {
  const UsersLocale user("xx_XX.UTF-8");
  EXPECT_EQ(SystemLocale(), EnglishCanada());
}

TEST(SystemLocale, ReadsFrenchCanada) {
  const UsersLocale user("fr_CA.UTF-8");
  if (!user.Available())
    GTEST_SKIP() << "this system can't make the locale";
  const std::string before = std::setlocale(LC_ALL, nullptr);
  const Locale locale = SystemLocale();
  // The program's own locale is not the library's to change.
  EXPECT_EQ(std::setlocale(LC_ALL, nullptr), before);
  EXPECT_EQ(std::locale().name(), "C");
  // The system sets a narrow no-break space between groups.
  EXPECT_EQ(Described(locale), ", \xA0 | 1 $ | (1 $) | %Y-%m-%d %H:%M:%S");
  EXPECT_EQ(locale.months[11] + " " + locale.weekdays[0],
            "d\xE9"
            "cembre dimanche");
}

TEST(SystemLocale, FollowsTheEnvironment) {
  const UsersLocale user("fr_CA.UTF-8");
  if (!user.Available())
    GTEST_SKIP() << "this system can't make the locale";
  const Locale first = SystemLocale();
  EXPECT_EQ(first.decimal, ",");
  {
    const UsersLocale other("C");
    EXPECT_EQ(SystemLocale(), EnglishCanada());
  }
  EXPECT_EQ(SystemLocale(), first);
  // The same name, and no such locale where it is looked for.
  ::setenv("LOCPATH", "/nowhere", 1);
  EXPECT_EQ(SystemLocale(), EnglishCanada());
}

TEST(SystemLocale, ReadsEnglishUnitedStates) {
  const UsersLocale user("en_US.UTF-8");
  if (!user.Available())
    GTEST_SKIP() << "this system can't make the locale";
  const Locale locale = SystemLocale();
  EXPECT_EQ(Described(locale), ". , | $1 | -$1 | %m/%d/%Y %I:%M:%S %p");
  EXPECT_EQ(locale.am + " " + locale.pm + " " + locale.shortWeekdays[6], "AM PM Sat");
}

TEST(SystemLocale, ReadsAnotherCharacterSetThanUtf8) {
  const UsersLocale user("fr_CA.ISO-8859-1");
  if (!user.Available())
    GTEST_SKIP() << "this system can't make the locale";
  const Locale locale = SystemLocale();
  EXPECT_EQ(locale.decimal + locale.positiveSuffix, ", $");
  EXPECT_EQ(locale.months[11],
            "d\xE9"
            "cembre");
}

TEST(SystemLocale, TakesEachCategoryFromItsOwnSetting) {
  const UsersLocale user({{"LANG", "de_CH.UTF-8"}, {"LC_TIME", "fr_FR.UTF-8"}});
  if (!user.Available())
    GTEST_SKIP() << "this system can't make the locale";
  const Locale locale = SystemLocale();
  // The group separator is a right single quotation mark.
  EXPECT_EQ(Described(locale), ". \x92 | CHF 1 | CHF- 1 | %d/%m/%Y %H:%M:%S");
  EXPECT_EQ(locale.currencySymbol + " " + locale.months[1], "CHF f\xE9vrier");
}

TEST(SystemLocale, TakesNumbersWhereTheRestIsUndefined) {
  const UsersLocale user({{"LANG", "C.UTF-8"}, {"LC_NUMERIC", "fr_CA.UTF-8"}});
  if (!user.Available())
    GTEST_SKIP() << "this system can't make the locale";
  const Locale locale = SystemLocale();
  EXPECT_EQ(Described(locale), ", \xA0 | $1 | -$1 | %Y-%m-%d %-I:%M:%S %p");
  // Money is English still, separators and all.
  EXPECT_EQ(locale.moneyDecimal.value() + locale.moneyGroup.value(), ".,");
  EXPECT_EQ(locale.months[11], "December");
}

TEST(SystemLocale, FallsBackForAMissingCategoryAlone) {
  const UsersLocale user({{"LANG", "fr_CA.UTF-8"}, {"LC_TIME", "xx_XX.UTF-8"}, {"LC_MESSAGES", "xx_XX.UTF-8"}});
  if (!user.Available())
    GTEST_SKIP() << "this system can't make the locale";
  const Locale locale = SystemLocale();
  EXPECT_EQ(Described(locale), ", \xA0 | 1 $ | (1 $) | %Y-%m-%d %-I:%M:%S %p");
  EXPECT_EQ(locale.weekdays[0], "Sunday");
}

TEST(SystemLocale, ReadsWhatOnlyMoneyHas) {
  struct Row {
    const char* name;
    const char* separatorsOfNumbers;
    const char* separatorsOfMoney;
    size_t digits;
  };
  for (const Row& row :
       {Row{"pt_PT.UTF-8", ",", ",.", 2}, Row{"ja_JP.UTF-8", ".,", ".,", 0}, Row{"ar_TN.UTF-8", ".,", ".,", 3}}) {
    const UsersLocale user(row.name);
    if (!user.Available())
      GTEST_SKIP() << "this system can't make the locale";
    const Locale locale = SystemLocale();
    EXPECT_EQ(locale.decimal + locale.group, row.separatorsOfNumbers) << row.name;
    EXPECT_EQ(locale.moneyDecimal.value() + locale.moneyGroup.value(), row.separatorsOfMoney) << row.name;
    EXPECT_EQ(locale.moneyDigits, row.digits) << row.name;
  }
}

}  // namespace
}  // namespace fiscalon
