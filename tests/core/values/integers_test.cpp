#include "core/values/integers.h"

#include <gtest/gtest.h>

#include <limits>

#include "tests/support/raises.h"

namespace fiscalon {
namespace {

TEST(ToInt32, RoundsHalvesToEven) {
  EXPECT_EQ(ToInt32(0.5), 0);
  EXPECT_EQ(ToInt32(1.5), 2);
  EXPECT_EQ(ToInt32(2.5), 2);
  EXPECT_EQ(ToInt32(-2.5), -2);
  EXPECT_EQ(ToInt32(-3.5), -4);
}

TEST(ToInt32, RaisesOverflowOutOfRange) {
  EXPECT_EQ(ToInt32(2147483647.25), 2147483647);
  EXPECT_EQ(ToInt32(-2147483648.5), std::numeric_limits<int32_t>::min());
  for (const double value : {2147483647.5, -2147483649.0, 1e300, std::numeric_limits<double>::infinity(),
                             std::numeric_limits<double>::quiet_NaN()})
    EXPECT_EQ(ErrorOf([&] { ToInt32(value); }), 6) << value;
}

TEST(ToInt16, OfAFloatHasSixteenBits) {
  EXPECT_EQ(ToInt16(32767.25), 32767);
  EXPECT_EQ(ToInt16(-32768.5), -32768);
  EXPECT_EQ(ErrorOf([] { ToInt16(32767.5); }), 6);
  EXPECT_EQ(ErrorOf([] { ToInt16(-32769.0); }), 6);
}

TEST(ToInt16, OfATextReadsAsAmountsAreRead) {
  EXPECT_EQ(ToInt16("2026", EnglishCanada()), 2026);
  EXPECT_EQ(ToInt16(" 06 ", EnglishCanada()), 6);
  EXPECT_EQ(ToInt16("(1,234)", EnglishCanada()), -1234);
  EXPECT_EQ(ToInt16("2,5", FrenchCanada()), 2);
  EXPECT_EQ(ToInt16("3,5", FrenchCanada()), 4);
  EXPECT_EQ(ToInt16("1e3", EnglishCanada()), 1000);
}

TEST(ToInt16, OfATextThatIsNoNumberIsATypeMismatch) {
  for (const char* text : {"", "  ", "20a6", "0x10", "1.2.3"})
    EXPECT_EQ(ErrorOf([&] { ToInt16(text, EnglishCanada()); }), 13) << text;
}

TEST(ToInt16, OfATextOutOfRangeIsAnOverflow) {
  EXPECT_EQ(ToInt16("32767.4", EnglishCanada()), 32767);
  for (const char* text : {"32768", "-32769", "32767.5", "1e300", "99999999999999999999"})
    EXPECT_EQ(ErrorOf([&] { ToInt16(text, EnglishCanada()); }), 6) << text;
}

TEST(CheckedAdd, RaisesOverflowOutOfRange) {
  constexpr int16_t k16 = std::numeric_limits<int16_t>::max();
  constexpr int32_t k32 = std::numeric_limits<int32_t>::max();
  EXPECT_EQ(CheckedAdd(int16_t{32766}, int16_t{1}), k16);
  EXPECT_EQ(CheckedAdd(int32_t{k16}, 1), 32768);
  EXPECT_EQ(ErrorOf([] { CheckedAdd(k16, int16_t{1}); }), 6);
  EXPECT_EQ(ErrorOf([] { CheckedAdd(k32, 1); }), 6);
}

TEST(CheckedSubtract, RaisesOverflowOutOfRange) {
  constexpr int16_t k16 = std::numeric_limits<int16_t>::min();
  constexpr int32_t k32 = std::numeric_limits<int32_t>::min();
  EXPECT_EQ(CheckedSubtract(int16_t{-32767}, int16_t{1}), k16);
  EXPECT_EQ(CheckedSubtract(k32 + 1, 1), k32);
  EXPECT_EQ(ErrorOf([] { CheckedSubtract(k16, int16_t{1}); }), 6);
  EXPECT_EQ(ErrorOf([] { CheckedSubtract(k32, 1); }), 6);
}

}  // namespace
}  // namespace fiscalon
