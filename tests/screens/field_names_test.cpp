#include "core/records/field_names.h"

#include <gtest/gtest.h>

#include <string>

#include "core/launch.h"

namespace fiscalon {
namespace {

TEST(FieldTable, NamesTheFieldsOfAScreenByNumber) {
  EXPECT_EQ(FieldNameOf("03", "02"), "End of Remitting Period");
  EXPECT_EQ(FieldNameOf("05", "08"), "Refund claimed (114)");
  EXPECT_EQ(FieldNameOf("18", "10"), "GST account number");
  EXPECT_EQ(FieldNameOf("27", "01"), "Month for which non-resident tax was withheld");
}

TEST(FieldTable, HasNothingOfScreensWithoutSuchRecords) {
  EXPECT_EQ(FieldNameOf("03", "05"), "");
  EXPECT_TRUE(FieldNamesOf("10").empty());
  EXPECT_TRUE(FieldNamesOf("26").empty());
}

TEST(FieldTable, TellsWhatTheValuesAre) {
  const auto kind = [](std::string_view screen, std::string_view number) { return FindField(screen, number)->kind; };
  EXPECT_EQ(kind("01", "11"), FieldKind::Text);
  EXPECT_EQ(kind("01", "12"), FieldKind::Amount);
  EXPECT_EQ(kind("02", "02"), FieldKind::Date);
  EXPECT_EQ(kind("03", "01"), FieldKind::Amount);
  EXPECT_EQ(kind("03", "03"), FieldKind::WholeDollars);
  EXPECT_EQ(kind("03", "04"), FieldKind::Count);
  EXPECT_EQ(kind("04", "01"), FieldKind::Year);
  EXPECT_EQ(kind("05", "01"), FieldKind::WholeDollars);
  EXPECT_EQ(kind("05", "06"), FieldKind::Amount);
  EXPECT_EQ(kind("07", "12"), FieldKind::Text);
  EXPECT_EQ(kind("14", "01"), FieldKind::Count);
  EXPECT_EQ(kind("14", "02"), FieldKind::Count);
  EXPECT_EQ(kind("18", "09"), FieldKind::Amount);
  EXPECT_EQ(kind("18", "10"), FieldKind::Text);
  EXPECT_EQ(kind("18", "11"), FieldKind::Date);
  EXPECT_EQ(kind("18", "12"), FieldKind::Date);
  EXPECT_EQ(kind("20", "05"), FieldKind::Count);
  EXPECT_EQ(kind("27", "01"), FieldKind::Month);
}

// The rest of the screens collect nothing but amounts.
TEST(FieldTable, HasAmountsOnTheOtherScreens) {
  for (const std::string_view code : {"06", "15", "16", "17", "19", "25", "28"})
    for (const FieldName& field : FieldNamesOf(code))
      EXPECT_EQ(field.kind, FieldKind::Amount) << code << ' ' << field.number;
}

TEST(FieldTable, StandsInTheOrderOfCodesAndNumbers) {
  std::string_view before;
  for (const ScreenFields& screen : FieldTable()) {
    EXPECT_LT(before, screen.code);
    EXPECT_NE(FindLaunchRow(screen.code), nullptr) << screen.code;
    before = screen.code;
    int number = 0;
    for (const FieldName& field : screen.names) {
      ++number;
      EXPECT_EQ(field.number, (number < 10 ? "0" : "") + std::to_string(number)) << screen.code;
      EXPECT_FALSE(field.name.empty()) << screen.code;
    }
    EXPECT_GT(number, 0) << screen.code;
  }
}

}  // namespace
}  // namespace fiscalon
