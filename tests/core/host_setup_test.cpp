#include "core/host_setup.h"

#include <gtest/gtest.h>

#include "core/messages.h"
#include "core/platform/runtime_error.h"
#include "core/user_locale.h"
#include "core/value_routines.h"
#include "tests/support/module_test.h"
#include "tests/support/raises.h"

namespace fiscalon {
namespace {

using HostSetup = ModuleTest;

TEST_F(HostSetup, FixesTheClock) {
  UseFixedClock({.date = {2031, 2, 3}, .hour = 4});
  EXPECT_EQ(Today(), (Date{2031, 2, 3}));
  EXPECT_EQ(TheModule().clock->Now().hour, 4);
}

TEST_F(HostSetup, FixesTheLocaleAndItsSeparator) {
  UseLocale(FrenchCanada());
  EXPECT_EQ(TheModule().locale, FrenchCanada());
  EXPECT_TRUE(HasDecimalSeparator("12,50"));
  EXPECT_FALSE(HasDecimalSeparator("12.50"));
}

TEST_F(HostSetup, FixesALocaleByItsName) {
  UseLocale("en-US");
  EXPECT_EQ(TheModule().locale, EnglishUnitedStates());
  EXPECT_EQ(ErrorOf([] { UseLocale("xx-XX"); }), 5);
  EXPECT_EQ(TheModule().locale, EnglishUnitedStates());
}

TEST_F(HostSetup, TellsTheUserInTheLanguageAskedFor) {
  UseLanguage("fr");
  ShowMessage("Cancel", MessageStyle::Plain);
  UseLanguage("en");
  ShowMessage("Cancel", MessageStyle::Plain);
  ASSERT_EQ(toolkit.boxes.size(), 2U);
  EXPECT_EQ(toolkit.boxes[0].text, "Annuler");
  EXPECT_EQ(toolkit.boxes[0].language.name, "fr");
  EXPECT_EQ(toolkit.boxes[1].text, "Cancel");
}

TEST_F(HostSetup, NamesALanguageThatIsNotThere) {
  UseLanguage("fr");
  try {
    UseLanguage("tlh");
    FAIL() << "no error";
  } catch (const RuntimeError& error) {
    EXPECT_EQ(error.Number(), 5);
    EXPECT_EQ(error.Description(), "There are no forms in the language \"tlh\".");
  }
  EXPECT_EQ(TheModule().language.name, "fr");
}

TEST_F(HostSetup, ResetBringsEnglishBack) {
  UseLanguage("fr");
  ResetModule();
  EXPECT_TRUE(TheModule().language.IsEnglish());
}

TEST_F(HostSetup, ResetLeavesWhatASessionsConstructionHasFound) {
  UseLocale("fr-CA");
  ResetModule();
  EXPECT_EQ(TheModule().decimalSeparator, SystemLocale().decimal);
  // Without a separator every text would have one.
  EXPECT_FALSE(HasDecimalSeparator("1234"));
}

TEST_F(HostSetup, ResetTakesTheToolkitAway) {
  ResetModule();
  EXPECT_EQ(ErrorOf([] { TheToolkit(); }), 91);
}

}  // namespace
}  // namespace fiscalon
