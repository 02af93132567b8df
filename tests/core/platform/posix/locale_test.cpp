#include "core/platform/locale.h"

#include <gtest/gtest.h>
#include <stdlib.h>

#include <clocale>
#include <locale>

#include "tests/support/temporary_folder.h"

/// The system's own library loses its list of folders each time it looks a locale up under LOCPATH.
// NOLINTNEXTLINE(bugprone-reserved-identifier): the name is the sanitizer's.
extern "C" const char* __lsan_default_suppressions() {
  return "leak:__argz_add_sep";
}

namespace fiscalon {
namespace {

/// The environment's locale for as long as the object lives. Locales that the system lacks are compiled into a
/// folder of the test's own.
class UserLocale {
 public:
  explicit UserLocale(const std::string& name) { Set("LC_ALL", name); }
  UserLocale(const std::string& numbers, const std::string& amounts, const std::string& times) {
    ::unsetenv("LC_ALL");
    Set("LC_CTYPE", numbers);
    Set("LC_NUMERIC", numbers);
    Set("LC_MONETARY", amounts);
    Set("LC_TIME", times);
  }
  ~UserLocale() {
    for (const char* variable : {"LC_ALL", "LC_CTYPE", "LC_NUMERIC", "LC_MONETARY", "LC_TIME", "LOCPATH"})
      ::unsetenv(variable);
  }
  UserLocale(const UserLocale&) = delete;
  UserLocale& operator=(const UserLocale&) = delete;

  bool Available() const { return available_; }

 private:
  void Set(const char* variable, const std::string& name) {
    const std::string source = name.substr(0, name.find('.'));
    const std::string charset = name.substr(name.find('.') + 1);
    const std::string command = "localedef -i " + source + " -f " + charset + " " + folder_.Path(name) + " 2>/dev/null";
    // The compiler's warnings make its exit status 1; the folder tells whether it made the locale.
    [[maybe_unused]] const int status = ::system(command.c_str());
    available_ = available_ && std::filesystem::exists(folder_.Path(name));
    ::setenv("LOCPATH", folder_.Path().c_str(), 1);
    ::setenv(variable, name.c_str(), 1);
  }

  TemporaryFolder folder_;
  bool available_ = true;
};

/// Separators, then both forms of an amount, then the form of a moment.
std::string Described(const Locale& locale) {
  return locale.decimal + " " + locale.group + " | " + locale.positivePrefix + "1" + locale.positiveSuffix + " | " +
         locale.negativePrefix + "1" + locale.negativeSuffix + " | " + locale.generalDate;
}

TEST(SystemLocale, WithoutACurrencyIsEnglishCanada) {
  ::setenv("LC_ALL", "C", 1);
  EXPECT_EQ(SystemLocale(), EnglishCanada());
  ::setenv("LC_ALL", "POSIX", 1);
  EXPECT_EQ(SystemLocale(), EnglishCanada());
  ::unsetenv("LC_ALL");
}

TEST(SystemLocale, ThatTheSystemDoesNotHaveIsEnglishCanada) {
  ::setenv("LC_ALL", "xx_XX.UTF-8", 1);
  EXPECT_EQ(SystemLocale(), EnglishCanada());
  ::unsetenv("LC_ALL");
}

TEST(SystemLocale, ReadsFrenchCanada) {
  const UserLocale user("fr_CA.UTF-8");
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

TEST(SystemLocale, ReadsEnglishUnitedStates) {
  const UserLocale user("en_US.UTF-8");
  if (!user.Available())
    GTEST_SKIP() << "this system can't make the locale";
  const Locale locale = SystemLocale();
  EXPECT_EQ(Described(locale), ". , | $1 | -$1 | %m/%d/%Y %I:%M:%S %p");
  EXPECT_EQ(locale.am + " " + locale.pm + " " + locale.shortWeekdays[6], "AM PM Sat");
}

TEST(SystemLocale, ReadsAnotherCharacterSetThanUtf8) {
  const UserLocale user("fr_CA.ISO-8859-1");
  if (!user.Available())
    GTEST_SKIP() << "this system can't make the locale";
  const Locale locale = SystemLocale();
  EXPECT_EQ(locale.decimal + locale.positiveSuffix, ", $");
  EXPECT_EQ(locale.months[11],
            "d\xE9"
            "cembre");
}

TEST(SystemLocale, TakesEachCategoryFromItsOwnSetting) {
  const UserLocale user("de_CH.UTF-8", "de_CH.UTF-8", "fr_FR.UTF-8");
  if (!user.Available())
    GTEST_SKIP() << "this system can't make the locale";
  const Locale locale = SystemLocale();
  // The group separator is a right single quotation mark.
  EXPECT_EQ(Described(locale), ". \x92 | CHF 1 | CHF- 1 | %d/%m/%Y %H:%M:%S");
  EXPECT_EQ(locale.currencySymbol + " " + locale.months[1], "CHF f\xE9vrier");
}

}  // namespace
}  // namespace fiscalon
