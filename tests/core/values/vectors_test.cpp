#include <gtest/gtest.h>

#include "core/platform/locale.h"
#include "core/platform/runtime_error.h"
#include "core/values/calendar.h"
#include "core/values/format.h"
#include "core/values/integers.h"
#include "core/values/number_text.h"
#include "core/values/to_money.h"
#include "tests/vectors/vector_file.h"

namespace fiscalon {
namespace {

/// The result of a conversion, or the words for the run-time error it raises.
template <typename Conversion>
std::string Outcome(const char* error, Conversion&& conversion) {
  try {
    return conversion();
  } catch (const RuntimeError&) {
    return error;
  }
}

Money MoneyOf(const std::string& amount) {
  return Money::FromUnits(UnitsOf(amount));
}

TEST(Vectors, FormatShowsEachRow) {
  for (const VectorRow& row : ReadVectors("format.tsv", 5)) {
    const Locale locale = *NamedLocale(row.cells[0]);
    const std::string& pattern = row.cells[1];
    const std::string& kind = row.cells[2];
    const std::string& input = row.cells[3];
    const std::string shown = kind == "double"  ? Format(FloatOf(input), pattern, locale)
                              : kind == "money" ? Format(MoneyOf(input), pattern, locale)
                                                : Format(input, pattern, locale);
    EXPECT_EQ(shown, row.cells[4]) << row.place;
  }
}

TEST(Vectors, ToMoneyReadsEachRow) {
  for (const VectorRow& row : ReadVectors("to_money.tsv", 4)) {
    const std::string units =
        Outcome("error", [&] { return std::to_string(ToMoney(row.cells[1], *NamedLocale(row.cells[0])).Units()); });
    EXPECT_EQ(units, row.cells[2] == "ok" ? std::to_string(UnitsOf(row.cells[3])) : "error") << row.place;
  }
}

TEST(Vectors, IsNumericJudgesEachRow) {
  for (const VectorRow& row : ReadVectors("numeric_test.tsv", 3))
    EXPECT_EQ(IsNumeric(row.cells[1], *NamedLocale(row.cells[0])), row.cells[2] == "yes") << row.place;
}

TEST(Vectors, MoneyOfAFloatIsThatOfEachRow) {
  for (const VectorRow& row : ReadVectors("money_from_float.tsv", 2))
    EXPECT_EQ(Money::FromDouble(FloatOf(row.cells[0])).Units(), UnitsOf(row.cells[1])) << row.place;
}

TEST(Vectors, NumberTextIsThatOfEachRow) {
  for (const VectorRow& row : ReadVectors("number_text.tsv", 2))
    EXPECT_EQ(NumberText(FloatOf(row.cells[0])), row.cells[1]) << row.place;
}

TEST(Vectors, DateFromPartsIsThatOfEachRow) {
  for (const VectorRow& row : ReadVectors("date_from_parts.tsv", 4)) {
    const std::string date = Outcome("error", [&] {
      return FormatDate(DateFromParts(std::stoi(row.cells[0]), std::stoi(row.cells[1]), std::stoi(row.cells[2])),
                        "YYYYMMDD");
    });
    EXPECT_EQ(date, row.cells[3]) << row.place;
  }
}

TEST(Vectors, IntegersOfAFloatAreThoseOfEachRow) {
  for (const VectorRow& row : ReadVectors("integer_from_float.tsv", 3)) {
    const double value = FloatOf(row.cells[0]);
    EXPECT_EQ(Outcome("overflow", [&] { return std::to_string(ToInt32(value)); }), row.cells[1]) << row.place;
    EXPECT_EQ(Outcome("overflow", [&] { return std::to_string(ToInt16(value)); }), row.cells[2]) << row.place;
  }
}

}  // namespace
}  // namespace fiscalon
