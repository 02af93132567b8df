#include "core/values/to_money.h"

#include <gtest/gtest.h>

#include "tests/support/raises.h"

namespace fiscalon {
namespace {

constexpr const char* kNotANumber = "13";
constexpr const char* kOutOfRange = "6";

/// The amount in ten-thousandths, or the number of the error; and never a numeric test that says otherwise.
std::string Read(std::string_view text, const Locale& locale = EnglishCanada()) {
  try {
    std::string units = std::to_string(ToMoney(text, locale).Units()) + " units";
    EXPECT_TRUE(IsNumeric(text, locale)) << text;
    return units;
  } catch (const RuntimeError& error) {
    EXPECT_FALSE(IsNumeric(text, locale)) << text;
    return std::to_string(error.Number());
  }
}

TEST(ToMoney, ReadsPlainAmounts) {
  EXPECT_EQ(Read("12.34"), "123400 units");
  EXPECT_EQ(Read("0012"), "120000 units");
  EXPECT_EQ(Read(".5"), "5000 units");
  EXPECT_EQ(Read("5."), "50000 units");
}

TEST(ToMoney, TakesOneSignOnEitherSide) {
  EXPECT_EQ(Read("-5"), "-50000 units");
  EXPECT_EQ(Read("5 -"), "-50000 units");
  EXPECT_EQ(Read("+ 5"), "50000 units");
  for (const char* text : {"-5-", "--5", "+-5", "5--", "-", "+"}) EXPECT_EQ(Read(text), kNotANumber) << text;
}

TEST(ToMoney, TakesParenthesesForANegative) {
  EXPECT_EQ(Read("(5)"), "-50000 units");
  EXPECT_EQ(Read("( $5 $ ) $"), "-50000 units");
  for (const char* text : {"(5", "5)", "()", "((5))", "-(5)", "(-5)", "(5-)", "(5)-", "(5))", ")5("})
    EXPECT_EQ(Read(text), kNotANumber) << text;
}

TEST(ToMoney, TakesOneCurrencySymbolBeforeAndAnyNumberBehind) {
  EXPECT_EQ(Read("$5"), "50000 units");
  EXPECT_EQ(Read("- $ 5"), "-50000 units");
  EXPECT_EQ(Read("$-5"), "-50000 units");
  EXPECT_EQ(Read("5 $$ $"), "50000 units");
  EXPECT_EQ(Read("$$5"), kNotANumber);
  EXPECT_EQ(Read("$"), kNotANumber);
}

TEST(ToMoney, TakesALongerCurrencySymbol) {
  Locale locale = EnglishCanada();
  locale.currencySymbol = "EUR";
  EXPECT_EQ(Read("EUR 5", locale), "50000 units");
  EXPECT_EQ(Read("5EUR", locale), "50000 units");
  EXPECT_EQ(Read("5e1EUR", locale), "500000 units");
  EXPECT_EQ(Read("5EU", locale), kNotANumber);
  locale.currencySymbol = "";
  EXPECT_EQ(Read("$5", locale), kNotANumber);
}

TEST(ToMoney, PassesOverGroupSeparatorsBehindTheFirstDigit) {
  EXPECT_EQ(Read("1,234.50"), "12345000 units");
  EXPECT_EQ(Read("12,34"), "12340000 units");
  EXPECT_EQ(Read("1,,2,"), "120000 units");
  EXPECT_EQ(Read("1.2,5"), "12500 units");
  EXPECT_EQ(Read(",5"), kNotANumber);
  EXPECT_EQ(Read(".,5"), kNotANumber);
}

TEST(ToMoney, UnderANoBreakSpaceAsSeparatorBlanksSeparateToo) {
  EXPECT_EQ(Read("1 234,50", FrenchCanada()), "12345000 units");
  EXPECT_EQ(Read("1\xA0"
                 "234,50 $",
                 FrenchCanada()),
            "12345000 units");
  EXPECT_EQ(Read("1.5", FrenchCanada()), kNotANumber);
  EXPECT_EQ(Read("1\t2", FrenchCanada()), kNotANumber);
}

TEST(ToMoney, HasNoSeparatorsWhereTheLocaleHasNone) {
  Locale locale = EnglishCanada();
  locale.group = "";
  EXPECT_EQ(Read("1234", locale), "12340000 units");
  EXPECT_EQ(Read("1,234", locale), kNotANumber);
}

TEST(ToMoney, ReadsATextWithTheSymbolByTheMoneysOwnSeparatorsFirst) {
  Locale locale = EnglishCanada();
  locale.moneyDecimal = ",";
  locale.moneyGroup = "\xA0";
  EXPECT_EQ(Read("$1\xA0"
                 "234,50",
                 locale),
            "12345000 units");
  EXPECT_EQ(Read("(1 234,50 $)", locale), "-12345000 units");
  EXPECT_EQ(Read("1,234", locale), "12340000 units");
  EXPECT_EQ(Read("1,234 $", locale), "12340 units");
  // What is no amount of money may still be a number.
  EXPECT_EQ(Read("$1,234.50", locale), "12345000 units");
  EXPECT_EQ(Read("$1.2.3", locale), kNotANumber);
}

TEST(ToMoney, AllowsWhiteSpaceAroundButNotInside) {
  EXPECT_EQ(Read("\t\n\v\f\r \xA0"
                 "5\t\n\v\f\r \xA0"),
            "50000 units");
  EXPECT_EQ(Read("1 2"), kNotANumber);
  EXPECT_EQ(Read("1 .2"), kNotANumber);
}

TEST(ToMoney, TakesAnExponent) {
  EXPECT_EQ(Read("1e3"), "10000000 units");
  EXPECT_EQ(Read("1.5E-1"), "1500 units");
  for (const char* text : {"1e", "1e+", "e3", "1e3.5", "1e3,5", "1e 3", "1e3e3", "1d3"})
    EXPECT_EQ(Read(text), kNotANumber) << text;
}

TEST(ToMoney, RoundsTheExactDecimalsHalvesToEven) {
  EXPECT_EQ(Read("0.00005"), "0 units");
  EXPECT_EQ(Read("0.00015"), "2 units");
  EXPECT_EQ(Read("0.00025"), "2 units");
  EXPECT_EQ(Read("0.00025000000000000000000000000000001"), "3 units");
  EXPECT_EQ(Read("0.00025" + std::string(3000, '0') + "1"), "3 units");
  EXPECT_EQ(Read("-0.00015"), "-2 units");
  EXPECT_EQ(Read("0.99995"), "10000 units");
}

TEST(ToMoney, ReachesBothEndsOfTheRange) {
  EXPECT_EQ(Read("922337203685477.5807"), "9223372036854775807 units");
  EXPECT_EQ(Read("-922337203685477.5808"), "-9223372036854775808 units");
  EXPECT_EQ(Read("922337203685477.58074"), "9223372036854775807 units");
  EXPECT_EQ(Read("922337203685477.5808"), kOutOfRange);
  EXPECT_EQ(Read("922337203685477.58075"), kOutOfRange);
  EXPECT_EQ(Read("-922337203685477.5809"), kOutOfRange);
  EXPECT_EQ(Read("1e15"), kOutOfRange);
  EXPECT_EQ(Read("1844674407370955.1616"), kOutOfRange);
}

TEST(ToMoney, IsBoundedWhateverTheSize) {
  EXPECT_EQ(Read("1e-400"), "0 units");
  EXPECT_EQ(Read("1e99999999999999999999"), kOutOfRange);
  EXPECT_EQ(Read("1e-99999999999999999999"), "0 units");
  EXPECT_EQ(Read("0e99999999999999999999"), "0 units");
  EXPECT_EQ(Read(std::string(100000, '9')), kOutOfRange);
  EXPECT_EQ(Read(std::string(100000, '0') + "7"), "70000 units");
  EXPECT_EQ(Read("0." + std::string(100000, '0') + "7e100001"), "70000 units");
}

TEST(ToMoney, RefusesWhatIsNoNumber) {
  for (const char* text : {"", " ", "abc", "12abc", "a12", "0x10", "1/2", "12%", "#1#", "inf", "nan", "."})
    EXPECT_EQ(Read(text), kNotANumber) << text;
  EXPECT_EQ(Read(std::string_view("1\0", 2)), kNotANumber);
}

}  // namespace
}  // namespace fiscalon
