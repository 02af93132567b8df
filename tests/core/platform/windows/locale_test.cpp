#include "core/platform/locale.h"

#include <gtest/gtest.h>
#include <windows.h>

#include "core/platform/windows/locale_services.h"
#include "tests/support/users_setting.h"

namespace fiscalon {
namespace {

/// Separators, then both forms of an amount, then the form of a moment.
std::string Described(const Locale& locale) {
  return locale.decimal + " " + locale.group + " | " + locale.positivePrefix + "1" + locale.positiveSuffix + " | " +
         locale.negativePrefix + "1" + locale.negativeSuffix + " | " + locale.generalDate;
}

TEST(LocaleFromServices, ReadsEnglishUnitedStates) {
  const Locale locale = LocaleFromServices(L"en-US");
  EXPECT_EQ(Described(locale), ". , | $1 | ($1) | %-m/%-d/%Y %-I:%M:%S %p");
  EXPECT_EQ(locale.am + " " + locale.pm + " " + locale.months[11], "AM PM December");
  EXPECT_EQ(locale.weekdays[0] + " " + locale.shortWeekdays[6], "Sunday Sat");
}

TEST(LocaleFromServices, ReadsFrenchCanada) {
  const Locale locale = LocaleFromServices(L"fr-CA");
  EXPECT_EQ(locale.decimal + locale.group, ",\xA0");
  EXPECT_EQ(locale.positivePrefix + "1" + locale.positiveSuffix, "1 $");
  EXPECT_EQ(locale.months[7] + " " + locale.weekdays[0], "ao\xFBt dimanche");
}

TEST(LocaleFromServices, ThatTheSystemDoesNotHaveIsEnglishCanada) {
  EXPECT_EQ(LocaleFromServices(L"no-locale-at-all"), EnglishCanada());
}

TEST(SystemLocale, IsTheUsersOwn) {
  EXPECT_EQ(SystemLocale(), LocaleFromServices(LOCALE_NAME_USER_DEFAULT));
  EXPECT_EQ(SystemLocale().name, "system");
}

TEST(SystemLocale, FollowsTheUsersSettings) {
  const UsersSetting now(LOCALE_SDECIMAL, L";");
  EXPECT_EQ(SystemLocale().decimal, ";");
  EXPECT_EQ(LocaleFromServices(L"fr-CA").decimal, ",");
}

TEST(SystemLocale, ReadsWhatOnlyMoneyHas) {
  const UsersSetting decimal(LOCALE_SMONDECIMALSEP, L"'");
  const UsersSetting group(LOCALE_SMONTHOUSANDSEP, L"_");
  const UsersSetting digits(LOCALE_ICURRDIGITS, L"3");
  const Locale locale = SystemLocale();
  EXPECT_EQ(locale.moneyDecimal, "'");
  EXPECT_EQ(locale.moneyGroup, "_");
  EXPECT_EQ(locale.moneyDigits, 3u);
  EXPECT_NE(locale.decimal, "'");
  const UsersSetting ungrouped(LOCALE_SMONGROUPING, L"0");
  EXPECT_EQ(SystemLocale().moneyGroup, "");
  EXPECT_NE(SystemLocale().group, "");
}

}  // namespace
}  // namespace fiscalon
