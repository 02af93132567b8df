#include "core/records/field_names.h"

#include <gmock/gmock.h>

#include <string>

namespace fiscalon {
namespace {

TEST(FieldNames, NameTheFieldsOfAScreenByNumber) {
  EXPECT_EQ(FieldNameOf("03", "02"), "End of Remitting Period");
  EXPECT_EQ(FieldNameOf("05", "08"), "Refund claimed (114)");
  EXPECT_EQ(FieldNameOf("18", "10"), "GST account number");
  EXPECT_EQ(FieldNameOf("27", "01"), "Month for which non-resident tax was withheld");
}

TEST(FieldNames, AreEmptyForWhatAScreenDoesNotUse) {
  EXPECT_EQ(FieldNameOf("03", "05"), "");
  EXPECT_EQ(FieldNameOf("99", "01"), "");
  EXPECT_TRUE(FieldNamesOf("10").empty());
  EXPECT_TRUE(FieldNamesOf("26").empty());
}

TEST(FieldNames, StandInTheOrderOfTheirNumbers) {
  for (const std::string_view code :
       {"01", "02", "03", "04", "05", "06", "07", "14", "15", "16", "17", "18", "19", "20", "25", "27", "28"}) {
    int number = 0;
    for (const FieldName& field : FieldNamesOf(code)) {
      ++number;
      EXPECT_EQ(field.number, (number < 10 ? "0" : "") + std::to_string(number)) << code;
      EXPECT_FALSE(field.name.empty()) << code;
    }
    EXPECT_GT(number, 0) << code;
  }
}

}  // namespace
}  // namespace fiscalon
