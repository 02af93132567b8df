#include "core/platform/locale.h"

#include <gtest/gtest.h>
#include <windows.h>

#include <iterator>

#include "core/platform/windows/locale_services.h"

namespace fiscalon {
namespace {

/// Another decimal separator in the user's settings, which all programs see, for as long as the object lives.
class UserDecimal {
 public:
  explicit UserDecimal(const wchar_t* separator) {
    ::GetLocaleInfoEx(LOCALE_NAME_USER_DEFAULT, LOCALE_SDECIMAL, before_, static_cast<int>(std::size(before_)));
    ::SetLocaleInfoW(LOCALE_USER_DEFAULT, LOCALE_SDECIMAL, separator);
  }
  ~UserDecimal() { ::SetLocaleInfoW(LOCALE_USER_DEFAULT, LOCALE_SDECIMAL, before_); }
  UserDecimal(const UserDecimal&) = delete;
  UserDecimal& operator=(const UserDecimal&) = delete;

 private:
  wchar_t before_[16] = {};
};

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
  const UserDecimal now(L";");
  EXPECT_EQ(SystemLocale().decimal, ";");
  EXPECT_EQ(LocaleFromServices(L"fr-CA").decimal, ",");
}

}  // namespace
}  // namespace fiscalon
