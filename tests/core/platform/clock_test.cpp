#include "core/platform/clock.h"

#include <gtest/gtest.h>

namespace fiscalon {
namespace {

TEST(FixedClock, StandsStill) {
  const FixedClock clock({{2026, 6, 15}, 13, 5, 9});
  EXPECT_EQ(clock.Now(), (DateTime{{2026, 6, 15}, 13, 5, 9}));
  EXPECT_EQ(clock.Today(), (Date{2026, 6, 15}));
}

TEST(Date, ComparesByTheCalendar) {
  EXPECT_LT((Date{2025, 12, 31}), (Date{2026, 1, 1}));
  EXPECT_LT((Date{2026, 1, 31}), (Date{2026, 2, 1}));
  EXPECT_LT((Date{2026, 2, 1}), (Date{2026, 2, 2}));
  EXPECT_LT((DateTime{{2026, 2, 1}, 23, 59, 59}), (DateTime{{2026, 2, 2}, 0, 0, 0}));
}

}  // namespace
}  // namespace fiscalon
