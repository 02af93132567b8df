#include "core/records/field_names.h"

#include <gtest/gtest.h>

namespace fiscalon {

constexpr FieldName kTaxReturn[] = {{"01", "Sales", FieldKind::WholeDollars}, {"03", "End", FieldKind::Date}};
constexpr FieldName kInstalment[] = {{"01", "Instalment", FieldKind::Amount}};
constexpr ScreenFields kTable[] = {{"61", kTaxReturn}, {"62", kInstalment}};

// In the place of the screens' own.
std::span<const ScreenFields> FieldTable() {
  return kTable;
}

namespace {

TEST(FieldNames, AreThoseOfTheScreen) {
  EXPECT_EQ(FieldNameOf("61", "01"), "Sales");
  EXPECT_EQ(FieldNameOf("61", "03"), "End");
  EXPECT_EQ(FieldNameOf("62", "01"), "Instalment");
  EXPECT_EQ(FieldNamesOf("61").size(), 2U);
}

TEST(FieldNames, AreEmptyForWhatAScreenDoesNotUse) {
  EXPECT_EQ(FieldNameOf("61", "02"), "");
  EXPECT_EQ(FieldNameOf("62", "03"), "");
  EXPECT_EQ(FieldNameOf("63", "01"), "");
  EXPECT_TRUE(FieldNamesOf("63").empty());
  EXPECT_TRUE(FieldNamesOf("").empty());
}

TEST(FieldNames, AreFoundWithTheirKind) {
  EXPECT_EQ(FindField("61", "03")->kind, FieldKind::Date);
  EXPECT_EQ(FindField("62", "01")->kind, FieldKind::Amount);
  EXPECT_EQ(FindField("61", "02"), nullptr);
  EXPECT_EQ(FindField("63", "01"), nullptr);
}

}  // namespace
}  // namespace fiscalon
