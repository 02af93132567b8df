#include "core/value_routines.h"

#include <gtest/gtest.h>

#include <random>

#include "core/module_to_change.h"
#include "core/values/leading_number.h"
#include "tests/support/module_test.h"
#include "tests/support/raises.h"
#include "tests/support/temporary_folder.h"

namespace fiscalon {
namespace {

using KeepNumericCharsTest = ModuleTest;
using KeepAlphanumericTest = ModuleTest;
using DigitsOnlyTest = ModuleTest;
using IsAmountTextTest = ModuleTest;
using IsAllDigitsTest = ModuleTest;
using IsWholeHundredsTest = ModuleTest;
using ImplicitCents = ModuleTest;
using DollarsFromCentsTest = ModuleTest;

TEST_F(KeepNumericCharsTest, KeepsDigitsMinusAndTheSeparator) {
  EXPECT_EQ(KeepNumericChars(" $1,2a3.4-5+6"), "123.4-56");
  EXPECT_EQ(KeepNumericChars(""), "");
}

TEST_F(KeepNumericCharsTest, KeepsTheCommaUnderACommaLocale) {
  SetLocale(FrenchCanada());
  EXPECT_EQ(KeepNumericChars("1 234,50 $"), "1234,50");
  EXPECT_EQ(KeepNumericChars("1.5"), "15");
}

TEST_F(KeepNumericCharsTest, TakesTheSeparatorAfreshAtEachCall) {
  ModuleToChange().locale = FrenchCanada();  // No Levyra was made since: the module's own text is still the point.
  EXPECT_EQ(KeepNumericChars("1,5"), "1,5");
}

TEST_F(KeepNumericCharsTest, OverflowsBeyond32767Characters) {
  EXPECT_EQ(KeepNumericChars(std::string(32767, '7')).size(), 32767u);
  EXPECT_EQ(ErrorOf([] { KeepNumericChars(std::string(32768, '7')); }), 6);
}

TEST_F(KeepAlphanumericTest, KeepsDigitsAndLetters) {
  EXPECT_EQ(KeepAlphanumeric("123 456-782 rT\xE9_0001@[`{"), "123456782rT0001");
  EXPECT_EQ(ErrorOf([] { KeepAlphanumeric(std::string(32768, ' ')); }), 6);
}

TEST_F(DigitsOnlyTest, KeepsDigits) {
  EXPECT_EQ(DigitsOnly("2026-06-15\t/:"), "20260615");
  EXPECT_EQ(DigitsOnly("abc"), "");
  EXPECT_EQ(ErrorOf([] { DigitsOnly(std::string(32768, ' ')); }), 6);
}

TEST_F(IsAmountTextTest, TakesDigitsPointsAndCommas) {
  for (const char* text : {",", "1", " 1,234.50 ", "...", "0"}) EXPECT_TRUE(IsAmountText(text)) << text;
  for (const char* text : {"", "  ", "1 2", "-1", "1a", "$1", "1\t"}) EXPECT_FALSE(IsAmountText(text)) << text;
}

TEST_F(IsAllDigitsTest, TakesDigitsAlone) {
  EXPECT_TRUE(IsAllDigits(" 0012 "));
  for (const char* text : {"", "   ", "1.0", "1 2", "-1", "\xB2"}) EXPECT_FALSE(IsAllDigits(text)) << text;
}

TEST_F(IsWholeHundredsTest, TakesMultiplesOfAHundred) {
  EXPECT_TRUE(IsWholeHundreds("1500"));
  EXPECT_TRUE(IsWholeHundreds("000000000000000000"));
  EXPECT_TRUE(IsWholeHundreds(" 100 "));
  for (const char* text : {"1550", "", "1500.00", "-100", "1"}) EXPECT_FALSE(IsWholeHundreds(text)) << text;
}

TEST_F(IsWholeHundredsTest, OverflowsAbove2147483647) {
  EXPECT_FALSE(IsWholeHundreds("2147483647"));
  EXPECT_TRUE(IsWholeHundreds("2147483600"));
  EXPECT_EQ(ErrorOf([] { IsWholeHundreds("2147483648"); }), 6);
}

using DateFromYYYYMMDDTest = ModuleTest;

TEST_F(DateFromYYYYMMDDTest, RollsImpossibleDaysAndMonthsOver) {
  EXPECT_EQ(DateFromYYYYMMDD("20260615"), (Date{2026, 6, 15}));
  EXPECT_EQ(DateFromYYYYMMDD("20070230"), (Date{2007, 3, 2}));
  EXPECT_EQ(DateFromYYYYMMDD("20261301"), (Date{2027, 1, 1}));
  EXPECT_EQ(DateFromYYYYMMDD("20260600"), (Date{2026, 5, 31}));
}

TEST_F(DateFromYYYYMMDDTest, TheFirstPartThatFailsDecidesTheError) {
  // 2e97 is a number, but no year of 16 bits; AB is no number.
  EXPECT_EQ(ErrorOf([] { DateFromYYYYMMDD("2e97AB01"); }), 6);
  EXPECT_EQ(ErrorOf([] { DateFromYYYYMMDD("2026AB2e"); }), 13);
  EXPECT_EQ(ErrorOf([] { DateFromTexts("2e97", "AB", "CD"); }), 6);
  EXPECT_EQ(ErrorOf([] { DateFromTexts("2026", "AB", "2e97"); }), 13);
  EXPECT_EQ(ErrorOf([] { DateFromTexts("2026", "2e97", "AB"); }), 6);
}

TEST_F(DateFromYYYYMMDDTest, IsValidReadsThePartsInThatOrderToo) {
  EXPECT_EQ(ErrorOf([] { IsValidYYYYMMDD("2e97AB01"); }), 6);
  EXPECT_EQ(ErrorOf([] { IsValidYYYYMMDD("2026ABCD"); }), 13);
}

TEST_F(DateFromYYYYMMDDTest, PartsThatAreNoNumberAreError13) {
  for (const char* text : {"", "2026", "202606", "2026AB15", "abcdefgh"})
    EXPECT_EQ(ErrorOf([&] { DateFromYYYYMMDD(text); }), 13) << text;
}

using IsValidYYYYMMDDTest = ModuleTest;

TEST_F(IsValidYYYYMMDDTest, TakesDatesFromTwoYearsBackToTwoYearsAhead) {
  for (const char* text : {"20260615", "20240101", "20281231", "20240229", "20280229"})
    EXPECT_TRUE(IsValidYYYYMMDD(text)) << text;
  for (const char* text : {"20231231", "20290101"}) EXPECT_FALSE(IsValidYYYYMMDD(text)) << text;
}

TEST_F(IsValidYYYYMMDDTest, RefusesLeapDayOfACommonYear) {
  EXPECT_FALSE(IsValidYYYYMMDD("20260229"));
}

TEST_F(IsValidYYYYMMDDTest, RefusesWhatIsNoDateOrNotEightLong) {
  for (const char* text : {"", "2026061", "202606150", "2026061515", "20261301", "20260631", "20260600", " 2026615"})
    EXPECT_FALSE(IsValidYYYYMMDD(text)) << text;
}

TEST_F(IsValidYYYYMMDDTest, PartsThatAreNoNumberAreError13) {
  for (const char* text : {"2026AB15", "ABCD0615", "202606XY", "2026061X"})
    EXPECT_EQ(ErrorOf([&] { IsValidYYYYMMDD(text); }), 13) << text;
  EXPECT_EQ(ErrorOf([] { IsValidYYYYMMDD("2026AB1"); }), 0);
}

TEST_F(IsValidYYYYMMDDTest, ADateBeyondTheLastYearIsError5) {
  EXPECT_EQ(ErrorOf([] { IsValidYYYYMMDD("99999999"); }), 5);
}

using YearIsNotCurrentTest = ModuleTest;

TEST_F(YearIsNotCurrentTest, SaysNothingInTheCurrentYear) {
  EXPECT_EQ(YearIsNotCurrent("20260101", "'Due Date'"), kFalse);
  EXPECT_TRUE(toolkit.boxes.empty());
}

TEST_F(YearIsNotCurrentTest, AsksAndIsTrueWhenTheAnswerIsNo) {
  toolkit.answers = {MessageAnswer::No};
  EXPECT_EQ(YearIsNotCurrent("20250101", "'End of Remitting Period'"), kTrue);
  ASSERT_EQ(toolkit.boxes.size(), 1u);
  EXPECT_EQ(toolkit.boxes[0].text,
            "The year for 'End of Remitting Period' entered does not correspond to the current year.\r\n"
            "Are you sure you want to use it?");
  EXPECT_EQ(toolkit.boxes[0].title, "Date Warning");
  EXPECT_EQ(toolkit.boxes[0].style, MessageStyle::Exclamation);
  EXPECT_EQ(toolkit.boxes[0].buttons, MessageButtons::YesNo);
}

TEST_F(YearIsNotCurrentTest, IsFalseWhenTheAnswerIsYes) {
  toolkit.answers = {MessageAnswer::Yes};
  EXPECT_EQ(YearIsNotCurrent("20250101", "x"), kFalse);
  EXPECT_EQ(toolkit.boxes.size(), 1u);
}

TEST_F(YearIsNotCurrentTest, AsksAboutAnEmptyTextToo) {
  EXPECT_EQ(YearIsNotCurrent("", "x"), kFalse);
  EXPECT_EQ(toolkit.boxes.size(), 1u);
}

TEST_F(DollarsFromCentsTest, LeavesOutTheZeroBeforeThePoint) {
  EXPECT_EQ(DollarsFromCents("12345"), "123.45");
  EXPECT_EQ(DollarsFromCents("1200"), "12");
  EXPECT_EQ(DollarsFromCents("5"), ".05");
  EXPECT_EQ(DollarsFromCents("99"), ".99");
  EXPECT_EQ(DollarsFromCents("-5"), "-.05");
}

TEST_F(DollarsFromCentsTest, ReadsANumberAtTheStartElseZero) {
  EXPECT_EQ(DollarsFromCents("abc"), "0");
  EXPECT_EQ(DollarsFromCents(""), "0");
  EXPECT_EQ(DollarsFromCents("12.5abc"), ".125");
}

TEST_F(ImplicitCents, ATextWithoutTheSeparatorCountsCents) {
  EXPECT_EQ(WithImplicitCents(1234.0, "1234"), 12.34);
  EXPECT_EQ(WithImplicitCents(Money::FromDouble(1234), "1234"), Money::FromDouble(12.34));
  EXPECT_EQ(WithImplicitCents(1.0, "1,000"), 0.01);
}

TEST_F(ImplicitCents, ATextWithTheSeparatorIsDollars) {
  EXPECT_EQ(WithImplicitCents(1234.5, "1234.5"), 1234.5);
  EXPECT_EQ(WithImplicitCents(Money::FromDouble(1234), "1234."), Money::FromDouble(1234));
}

TEST_F(ImplicitCents, FollowTheSeparatorThatTheModuleFoundLast) {
  SetLocale(FrenchCanada());
  EXPECT_EQ(WithImplicitCents(125.0, "125.00"), 1.25);
  EXPECT_EQ(WithImplicitCents(125.0, "125,00"), 125.0);
  ModuleToChange().locale = EnglishCanada();
  EXPECT_EQ(WithImplicitCents(125.0, "125.00"), 1.25);
}

TEST_F(ImplicitCents, AFractionIsANumberBehindTheSeparatorThatIsNotZero) {
  EXPECT_TRUE(HasFraction("5000.50"));
  EXPECT_TRUE(HasFraction(".01"));
  for (const char* text : {"5000", "5000.", "5000.00", "5,50", ""}) EXPECT_FALSE(HasFraction(text)) << text;
  SetLocale(FrenchCanada());
  EXPECT_TRUE(HasFraction("5,50"));
  EXPECT_FALSE(HasFraction("5.50"));
}

using FileExistsTest = ModuleTest;

TEST_F(FileExistsTest, TakesAnEmptyFileAndRefusesAMissingOne) {
  const TemporaryFolder folder;
  EXPECT_TRUE(FileExists(folder.Write("empty.pc4", "")));
  EXPECT_FALSE(FileExists(folder.Path("missing.pc4")));
  EXPECT_FALSE(FileExists(folder.Path("nowhere/missing.pc4")));
  EXPECT_FALSE(FileExists(""));
}

}  // namespace
}  // namespace fiscalon
