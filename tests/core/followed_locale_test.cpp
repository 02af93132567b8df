#include <gtest/gtest.h>

#include "core/host_setup.h"
#include "core/module_state.h"
#include "core/session.h"
#include "core/user_locale.h"
#include "core/value_routines.h"
#include "tests/support/users_locale.h"

/// The system's own library loses its list of folders each time it looks a locale up under LOCPATH.
// NOLINTNEXTLINE(bugprone-reserved-identifier): the name is the sanitizer's.
extern "C" const char* __lsan_default_suppressions() {
  return "leak:__argz_add_sep";
}

namespace fiscalon {
namespace {

/// The library in a process that began where no locale was set, and whose user chooses one afterwards.
class FollowedLocale : public testing::Test {
 protected:
  FollowedLocale() { ResetModule(); }
  ~FollowedLocale() override { ResetModule(); }

 private:
  const UsersLocale before_{"C"};
};

TEST_F(FollowedLocale, EachConstructionOfALevyraAsksTheSystem) {
  const Levyra first;
  EXPECT_TRUE(HasDecimalSeparator("12.50"));
  {
    const UsersLocale french("fr_CA.UTF-8");
    if (!french.Available())
      GTEST_SKIP() << "this system can't make the locale";
    EXPECT_FALSE(HasDecimalSeparator("12,50"));
    const Levyra second;
    EXPECT_TRUE(HasDecimalSeparator("12,50"));
    EXPECT_FALSE(HasDecimalSeparator("12.50"));
    EXPECT_EQ(ToMoney("12,50"), Money::FromUnits(125000));
    EXPECT_EQ(Format(0.5, "0.00"), "0,50");
  }
  EXPECT_TRUE(HasDecimalSeparator("12,50"));
  const Levyra third;
  EXPECT_FALSE(HasDecimalSeparator("12,50"));
  EXPECT_EQ(Format(0.5, "0.00"), "0.50");
}

TEST_F(FollowedLocale, KeepNumericCharsAsksTheSystemAtEachCall) {
  const Levyra session;
  EXPECT_EQ(KeepNumericChars("1,234.50"), "1234.50");
  const UsersLocale french("fr_CA.UTF-8");
  if (!french.Available())
    GTEST_SKIP() << "this system can't make the locale";
  EXPECT_EQ(KeepNumericChars("1,234.50"), "1,23450");
  // Whether a typed amount means cents is still the construction's to say.
  EXPECT_TRUE(HasDecimalSeparator("12.50"));
}

TEST_F(FollowedLocale, IsNotAskedWhereTheHostHasFixedOne) {
  UseLocale("en-US");
  const UsersLocale french("fr_CA.UTF-8");
  if (!french.Available())
    GTEST_SKIP() << "this system can't make the locale";
  const Levyra session;
  EXPECT_EQ(TheModule().locale, EnglishUnitedStates());
  EXPECT_TRUE(HasDecimalSeparator("12.50"));
  EXPECT_EQ(KeepNumericChars("1,234.50"), "1234.50");
}

TEST_F(FollowedLocale, IsTheSystemsAgainByItsName) {
  UseLocale("en-US");
  const UsersLocale french("fr_CA.UTF-8");
  if (!french.Available())
    GTEST_SKIP() << "this system can't make the locale";
  UseLocale("system");
  EXPECT_TRUE(HasDecimalSeparator("12,50"));
  const UsersLocale undefined("C");
  const Levyra session;
  EXPECT_TRUE(HasDecimalSeparator("12.50"));
}

}  // namespace
}  // namespace fiscalon
