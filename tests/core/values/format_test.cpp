#include "core/values/format.h"

#include <gtest/gtest.h>

#include <limits>

#include "core/values/to_money.h"
#include "tests/support/raises.h"

namespace fiscalon {
namespace {

using namespace std::string_literals;

std::string Shown(double value, std::string_view pattern) {
  return Format(value, pattern, EnglishCanada());
}
std::string ShownText(std::string_view text, std::string_view pattern, const Locale& locale = EnglishCanada()) {
  return Format(text, pattern, locale);
}

TEST(Format, FillsThePlacesWithZeros) {
  EXPECT_EQ(Shown(12345, "000000000000000000"), "000000000000012345");
  EXPECT_EQ(Shown(5, "0.00"), "5.00");
  EXPECT_EQ(Shown(0.5, "#0.00"), "0.50");
  EXPECT_EQ(Shown(0, "0"), "0");
}

TEST(Format, ShowsAllDigitsBeyondThePlaces) {
  EXPECT_EQ(Shown(12345, "00"), "12345");
  EXPECT_EQ(Shown(1e20, "000000000000000000"), "100000000000000000000");
}

TEST(Format, RoundsTheDigitsPeopleSeeHalvesAway) {
  EXPECT_EQ(Shown(1.005, "0.00"), "1.01");
  EXPECT_EQ(Shown(2.5, "0"), "3");
  EXPECT_EQ(Shown(-2.5, "0"), "-3");
  EXPECT_EQ(Shown(9.995, "0.00"), "10.00");
  EXPECT_EQ(Format(Money::FromUnits(50), "0.00", EnglishCanada()), "0.01");
  EXPECT_EQ(Format(Money::FromUnits(49), "0.00", EnglishCanada()), "0.00");
}

TEST(Format, KeepsTheMinusBeforeEverything) {
  EXPECT_EQ(Shown(-12, " 000000000"), "- 000000012");
  EXPECT_EQ(Shown(-12, "$0.00"), "-$12.00");
  EXPECT_EQ(Shown(-12, "00000000-"), "-00000012-");
}

TEST(Format, KeepsTheMinusWhereTheDigitsRoundToZero) {
  EXPECT_EQ(Shown(-0.001, "0.00"), "-0.00");
  EXPECT_EQ(Format(Money::FromUnits(-1), "0.00", EnglishCanada()), "-0.00");
  EXPECT_EQ(Format(Money::FromUnits(-1), "Currency", EnglishUnitedStates()), "($0.00)");
  EXPECT_EQ(ShownText("-0", "0.00"), "-0.00");
  EXPECT_EQ(Shown(-0.0, "0.00"), "0.00");
}

TEST(Format, GroupsByThree) {
  EXPECT_EQ(Shown(0, "#,###,###0.00"), "0.00");
  EXPECT_EQ(Shown(999, "#,###,###0.00"), "999.00");
  EXPECT_EQ(Shown(1000, "#,###,###0.00"), "1,000.00");
  EXPECT_EQ(Shown(1234567.891, "#,###,###0.00"), "1,234,567.89");
  EXPECT_EQ(Shown(7, "0,000"), "0,007");
  EXPECT_EQ(Shown(1e15, "#,##0"), "1,000,000,000,000,000");
}

TEST(Format, UsesTheLocalesSeparators) {
  EXPECT_EQ(Format(1234567.5, "#,##0.00", FrenchCanada()),
            "1\xA0"
            "234\xA0"
            "567,50");
  Locale bare = EnglishCanada();
  bare.group = "";
  EXPECT_EQ(Format(1234567.5, "#,##0.00", bare), "1234567.50");
}

TEST(Format, HasTheLocalesFormOfAnAmount) {
  EXPECT_EQ(Format(1234.5, "Currency", EnglishCanada()), "$1,234.50");
  EXPECT_EQ(Format(-1234.5, "Currency", EnglishCanada()), "-$1,234.50");
  EXPECT_EQ(Format(-1234.5, "Currency", EnglishUnitedStates()), "($1,234.50)");
  EXPECT_EQ(Format(1234.5, "Currency", FrenchCanada()),
            "1\xA0"
            "234,50 $");
  EXPECT_EQ(Format(-1234.5, "Currency", FrenchCanada()),
            "(1\xA0"
            "234,50 $)");
}

TEST(Format, ShowsCurrencyWithTheMoneysOwnSeparatorsAndDigits) {
  Locale locale = FrenchCanada();
  locale.moneyDecimal = "'";
  locale.moneyGroup = ".";
  EXPECT_EQ(Format(1234.5, "Currency", locale), "1.234'50 $");
  EXPECT_EQ(Format(1234.5, "#,##0.00", locale),
            "1\xA0"
            "234,50");
  locale.moneyDigits = 3;
  EXPECT_EQ(Format(-1234.5, "Currency", locale), "(1.234'500 $)");
  locale.moneyDigits = 0;
  EXPECT_EQ(Format(1234.5, "Currency", locale), "1.235 $");
  EXPECT_EQ(Format(0.25, "Currency", locale), "0 $");
}

TEST(Format, ShowsOptionalPlacesOnlyWhereTheyCount) {
  EXPECT_EQ(Shown(0.5, "#.##"), ".5");
  EXPECT_EQ(Shown(12, "#.0#"), "12.0");
  EXPECT_EQ(Shown(12.345, "0.0##"), "12.345");
  EXPECT_EQ(Shown(0.001, "0.##"), "0.");
  EXPECT_EQ(Shown(0, "#"), "");
  EXPECT_EQ(Shown(1.5, ".00"), "1.50");
  // A place behind a zero counts as one.
  EXPECT_EQ(Shown(5, "0#"), "05");
}

TEST(Format, LeavesOtherCharactersAsTheyStand) {
  EXPECT_EQ(Shown(12, "No. 0!"), "No. 12!");
  EXPECT_EQ(Shown(12, "total"), "total");
  EXPECT_EQ(Shown(12.5, "0.0 (0)"), "12.5 (0)");
}

TEST(Format, LeavesABrokenNumberWithAnExponentAloneUnderAComma) {
  EXPECT_EQ(Format(1.25e20, "0.00", FrenchCanada()), "1.25E+20");
  EXPECT_EQ(Format(1.0 / 30, "0.00", FrenchCanada()), "3.33333333333333E-02");
  EXPECT_EQ(Format(1e20, "0", FrenchCanada()), "100000000000000000000");
  EXPECT_EQ(Format(1e-20, "0.00", FrenchCanada()), "0,00");
  EXPECT_EQ(Format(1.0 / 30, "0.00", EnglishCanada()), "0.03");
}

TEST(Format, OfWhatIsNoNumberRaisesOverflow) {
  EXPECT_EQ(ErrorOf([] { Shown(std::numeric_limits<double>::infinity(), "0.00"); }), 6);
  EXPECT_EQ(ErrorOf([] { Shown(std::numeric_limits<double>::quiet_NaN(), "0.00"); }), 6);
}

TEST(Format, ShowsATextThatIsANumberUnderTheLocale) {
  EXPECT_EQ(ShownText("1,234.5", "0.00"), "1234.50");
  EXPECT_EQ(ShownText("($12.345)", "0.00"), "-12.35");
  EXPECT_EQ(ShownText("12,345", "0.00", FrenchCanada()), "12,35");
  EXPECT_EQ(ShownText("12-", "0.00", FrenchCanada()), "-12,00");
}

TEST(Format, ShowsATextWithAPointUnderAComma) {
  EXPECT_EQ(ShownText("123.45", "Currency", FrenchCanada()), "123,45 $");
  EXPECT_EQ(ShownText(" -.5e1 ", "0.00", FrenchCanada()), "-5,00");
  EXPECT_EQ(ToMoney(ShownText("123.45", "Currency", FrenchCanada()), FrenchCanada()), Money::FromUnits(1234500));
}

TEST(Format, LeavesATextThatIsNoNumberAlone) {
  for (const char* text : {"", " ", "abc", "12abc", "1.2.3", "1e", "- 5x"}) EXPECT_EQ(ShownText(text, "0.00"), text);
  for (const char* text : {"(12.5)", "12.5-", "- 12.5", "$12.5", "\t12.5", "1.2.3", "."})
    EXPECT_EQ(ShownText(text, "0.00", FrenchCanada()), text);
}

TEST(Format, ShowsAllDigitsOfAText) {
  EXPECT_EQ(ShownText("12345678901234567890.125", "0.00"), "12345678901234567890.13");
  EXPECT_EQ(ShownText("0.12499999999999999999999999", "0.00"), "0.12");
  EXPECT_EQ(ShownText("1e300", "0"), "1" + std::string(300, '0'));
}

TEST(Format, IsBoundedWhateverTheText) {
  EXPECT_EQ(ShownText("1e-400", "0.00"), "0.00");
  EXPECT_EQ(ShownText("1e-999999999999999999", "0.00"), "0.00");
  EXPECT_EQ(ShownText("1e309", "0.00"), "1e309");
  EXPECT_EQ(ShownText("1.8e308", "0.00"), "1.8e308");
  EXPECT_EQ(ShownText("1e999999999999999999", "0.00"), "1e999999999999999999");
  EXPECT_EQ(ShownText("1.7e308", "0.00"), "17" + std::string(307, '0') + ".00");
}

TEST(FormatDate, ShowsYearMonthAndDay) {
  EXPECT_EQ(FormatDate({2026, 6, 5}, "YYYYMMDD"), "20260605");
  EXPECT_EQ(FormatDate({2026, 12, 31}, "YYYYMM"), "202612");
  EXPECT_EQ(FormatDate({100, 1, 1}, "YYYYMMDD"), "01000101");
  EXPECT_EQ(FormatDate({2026, 6, 5}, "DD/MM/YYYY"), "05/06/2026");
}

constexpr DateTime kAfternoon = {{2026, 6, 5}, 13, 5, 9};

TEST(GeneralDate, HasTheFormOfEachLocale) {
  EXPECT_EQ(GeneralDate(kAfternoon, EnglishCanada()), "2026-06-05 1:05:09 p.m.");
  EXPECT_EQ(GeneralDate(kAfternoon, EnglishUnitedStates()), "6/5/2026 1:05:09 PM");
  EXPECT_EQ(GeneralDate(kAfternoon, FrenchCanada()), "2026-06-05 13:05:09");
}

TEST(GeneralDate, TellsMidnightAndNoonAsTwelve) {
  EXPECT_EQ(GeneralDate({{2026, 6, 5}, 0, 0, 0}, EnglishCanada()), "2026-06-05 12:00:00 a.m.");
  EXPECT_EQ(GeneralDate({{2026, 6, 5}, 11, 59, 59}, EnglishCanada()), "2026-06-05 11:59:59 a.m.");
  EXPECT_EQ(GeneralDate({{2026, 6, 5}, 12, 0, 0}, EnglishCanada()), "2026-06-05 12:00:00 p.m.");
  EXPECT_EQ(GeneralDate({{2026, 6, 5}, 0, 0, 0}, FrenchCanada()), "2026-06-05 00:00:00");
}

std::string ShownAs(const std::string& pattern) {
  Locale locale = EnglishUnitedStates();
  locale.generalDate = pattern;
  return GeneralDate(kAfternoon, locale);
}

TEST(GeneralDate, KnowsTheTokensThatUsersLocalesHave) {
  EXPECT_EQ(ShownAs("%y %m %d %e"), "26 06 05  5");
  EXPECT_EQ(ShownAs("%-y %-m %-d %-e"), "26 6 5 5");
  // June 5, 2026 is a Friday.
  EXPECT_EQ(ShownAs("%A %a %B %b"), "Friday Fri June Jun");
  EXPECT_EQ(ShownAs("%H %I %k %l"), "13 01 13  1");
  EXPECT_EQ(ShownAs("%-H %-I %-k %-l"), "13 1 13 1");
  EXPECT_EQ(ShownAs("%M %S %p %%"), "05 09 PM %");
  EXPECT_EQ(ShownAs("%-M %-S"), "5 9");
  EXPECT_EQ(ShownAs("%"), "%");
  EXPECT_EQ(ShownAs("%d%-"), "05-");
}

TEST(GeneralDate, FillsYearsUpWithZeros) {
  Locale locale;
  locale.generalDate = "%Y %y";
  EXPECT_EQ(GeneralDate({{105, 6, 5}, 0, 0, 0}, locale), "0105 05");
}

}  // namespace
}  // namespace fiscalon
