#include "core/session.h"

#include <gtest/gtest.h>

#include <limits>

#include "core/module_to_change.h"
#include "tests/support/module_test.h"
#include "tests/support/raises.h"

namespace fiscalon {
namespace {

class LevyraTest : public ModuleTest {
 protected:
  Levyra session;
};

TEST_F(LevyraTest, BeginsEmpty) {
  EXPECT_EQ(session.ZelmorNumber(), "");
  EXPECT_EQ(session.CompCode(), "");
  EXPECT_EQ(session.CompName(), "");
  EXPECT_EQ(session.AccountNumber(), "");
  EXPECT_EQ(session.PaidAmount(), "");
  EXPECT_EQ(session.PaidDate(), "");
  EXPECT_EQ(session.NumberOfInfoCollect(), "");
  EXPECT_EQ(session.GovFilename(), "");
  EXPECT_EQ(session.EnterName(), "");
  EXPECT_EQ(session.EnterTitle(), "");
  EXPECT_EQ(session.APHoldFlg(), 0);
  EXPECT_EQ(session.SeqNumber(), "");
  EXPECT_FALSE(session.ShowGST58());
  EXPECT_EQ(session.BusinessName(), "");
  EXPECT_EQ(session.WriteFile(), 0);
  EXPECT_EQ(session.PC4Records(), nullptr);
}

using TextLet = void (Levyra::*)(std::string_view);
using TextGet = std::string (Levyra::*)() const;
struct TextProperty {
  const char* name = nullptr;
  TextLet let = nullptr;
  TextGet get = nullptr;
};

const std::vector<TextProperty> kPlainTexts = {
    {"ZelmorNumber", &Levyra::ZelmorNumber, &Levyra::ZelmorNumber},
    {"CompCode", &Levyra::CompCode, &Levyra::CompCode},
    {"CompName", &Levyra::CompName, &Levyra::CompName},
    {"AccountNumber", &Levyra::AccountNumber, &Levyra::AccountNumber},
    {"PaidDate", &Levyra::PaidDate, &Levyra::PaidDate},
    {"NumberOfInfoCollect", &Levyra::NumberOfInfoCollect, &Levyra::NumberOfInfoCollect},
    {"GovFilename", &Levyra::GovFilename, &Levyra::GovFilename},
    {"EnterName", &Levyra::EnterName, &Levyra::EnterName},
    {"EnterTitle", &Levyra::EnterTitle, &Levyra::EnterTitle},
    {"SeqNumber", &Levyra::SeqNumber, &Levyra::SeqNumber},
    {"BusinessName", &Levyra::BusinessName, &Levyra::BusinessName},
};

TEST_F(LevyraTest, PlainTextsAreKeptAsTheyAre) {
  const std::string texts[] = {"0001", "  padded  ", std::string("a\r\n\t\"'\\\0b\xe9\x81", 12),
                               std::string(100'000, 'x'), ""};
  for (const TextProperty& property : kPlainTexts) {
    for (const std::string& text : texts) {
      (session.*property.let)(text);
      EXPECT_EQ((session.*property.get)(), text) << property.name;
    }
  }
}

TEST_F(LevyraTest, TextsAreIndependentOfEachOther) {
  for (const TextProperty& property : kPlainTexts) (session.*property.let)(property.name);
  for (const TextProperty& property : kPlainTexts) EXPECT_EQ((session.*property.get)(), property.name);
}

TEST_F(LevyraTest, NumbersAreKeptAsTheyAre) {
  session.APHoldFlg(255);
  EXPECT_EQ(session.APHoldFlg(), 255);
  session.WriteFile(kTrue);
  EXPECT_EQ(session.WriteFile(), -1);
  session.WriteFile(1);
  EXPECT_EQ(session.WriteFile(), 1);
}

TEST_F(LevyraTest, HoldFlagBeyond8BitsOverflows) {
  session.APHoldFlg(7);
  EXPECT_EQ(ErrorOf([&] { session.APHoldFlg(300); }), 6);
  EXPECT_EQ(ErrorOf([&] { session.APHoldFlg(257U); }), 6);
  EXPECT_EQ(ErrorOf([&] { session.APHoldFlg(256LL); }), 6);
  EXPECT_EQ(ErrorOf([&] { session.APHoldFlg(-1); }), 6);
  EXPECT_EQ(ErrorOf([&] { session.APHoldFlg(int8_t{-1}); }), 6);
  EXPECT_EQ(session.APHoldFlg(), 7);
  session.APHoldFlg(true);
  EXPECT_EQ(session.APHoldFlg(), 1);
}

TEST_F(LevyraTest, BooleansAreTrueOrFalseAndNumbersStayNumbers) {
  session.WriteFile(true);
  EXPECT_EQ(session.WriteFile(), kTrue);
  session.WriteFile(false);
  EXPECT_EQ(session.WriteFile(), kFalse);
  Levyra::PlayByPlayEnabled(true);
  EXPECT_EQ(TheModule().playByPlayEnabled, -1);
}

TEST_F(LevyraTest, GetsReturnCopies) {
  session.CompName("Summit Levies");
  const auto& name = session.CompName();
  session.CompName("Harbour Books");
  EXPECT_EQ(name, "Summit Levies");
}

TEST_F(LevyraTest, PaidAmountIsWrittenInCentsAndReadInDollars) {
  const std::pair<const char*, const char*> rows[] = {
      {"12345", "123.45"},
      {"1200", "12"},
      {"5", ".05"},
      {"50", ".5"},
      {"99", ".99"},
      {"100", "1"},
      {"0", "0"},
      {"", "0"},
      {"abc", "0"},
      {"-5", "-.05"},
      {"-12345", "-123.45"},
      {"123.5", "1.235"},
      {"1,234", ".01"},
      {" 1 2\t3\n45 ", "123.45"},
      {"12345abc", "123.45"},
      {"1e3", "10"},
      {"+250", "2.5"},
      {"12\"", ".12"},
  };
  for (const auto& [cents, dollars] : rows) {
    session.PaidAmount(cents);
    EXPECT_EQ(session.PaidAmount(), dollars) << cents;
  }
}

TEST_F(LevyraTest, PaidAmountKnowsNoLocale) {
  SetLocale(FrenchCanada());
  session.PaidAmount("12345");
  EXPECT_EQ(session.PaidAmount(), "123.45");
}

TEST_F(LevyraTest, PaidAmountReadsBadTextsAsFarAsTheyGo) {
  session.PaidAmount(
      std::string_view("12\0"
                       "345",
                       6));
  EXPECT_EQ(session.PaidAmount(), ".12");
  session.PaidAmount(
      "\xe9"
      "12");
  EXPECT_EQ(session.PaidAmount(), "0");
  session.PaidAmount("12");
  session.PaidAmount(session.PaidAmount());
  EXPECT_EQ(session.PaidAmount(), ".0012");
}

TEST_F(LevyraTest, PaidAmountBeyondAllNumbersOverflowsAndChangesNothing) {
  session.PaidAmount("12345");
  EXPECT_EQ(ErrorOf([&] { session.PaidAmount("1e400"); }), 6);
  EXPECT_EQ(session.PaidAmount(), "123.45");
  session.PaidAmount("1e300");
  EXPECT_EQ(session.PaidAmount(), "1E+298");
}

TEST_F(LevyraTest, ZelmorNumberIsCopiedForTheErrorLog) {
  session.ZelmorNumber("10077");
  EXPECT_EQ(TheModule().customerNumber, "10077");
  Levyra other;
  EXPECT_EQ(TheModule().customerNumber, "10077");
  other.ZelmorNumber("2");
  EXPECT_EQ(TheModule().customerNumber, "2");
  EXPECT_EQ(session.ZelmorNumber(), "10077");
}

TEST_F(LevyraTest, SessionNumberKeepsItsLastThreeDigits) {
  const std::pair<double, double> rows[] = {
      {123456.0, 456},      {999, 999},    {1000, 0},       {0, 0},     {-123456, -456},
      {1234.5, 234},        {1235.5, 236}, {-1234.5, -234}, {999.5, 0}, {2147483647.0, 647},
      {-2147483648.0, -648}};
  for (const auto& [given, kept] : rows) {
    Levyra::SessionNumber(given);
    EXPECT_EQ(TheModule().sessionNumber, kept) << given;
  }
}

TEST_F(LevyraTest, SessionNumberBeyond32BitsOverflows) {
  for (const double given : {2147483648.0, -2147483649.0, 1e300, std::numeric_limits<double>::infinity(),
                             std::numeric_limits<double>::quiet_NaN()}) {
    EXPECT_EQ(ErrorOf([&] { Levyra::SessionNumber(given); }), 6) << given;
  }
}

TEST_F(LevyraTest, LogSettingsAreTheProcesss) {
  Levyra::PlayByPlayEnabled(7);
  Levyra::MainPath("/logs");
  EXPECT_EQ(TheModule().playByPlayEnabled, 7);
  EXPECT_EQ(TheModule().mainPath, "/logs");
}

TEST_F(LevyraTest, EachConstructionAsksForTheDecimalSeparator) {
  ModuleToChange().locale = FrenchCanada();
  EXPECT_EQ(TheModule().decimalSeparator, ".");
  const Levyra another;
  EXPECT_EQ(TheModule().decimalSeparator, ",");
  ModuleToChange().locale.decimal = std::string("::\0:", 4);
  const Levyra third;
  EXPECT_EQ(TheModule().decimalSeparator, "::");
}

}  // namespace
}  // namespace fiscalon
