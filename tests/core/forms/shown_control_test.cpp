#include "core/forms/shown_control.h"

#include <gtest/gtest.h>

namespace fiscalon {
namespace {

// A front end says of a control only what its kind has.
TEST(ShownControl, IsEmptyAndTakesInputUnlessItSaysOtherwise) {
  const ShownControl shown;
  EXPECT_EQ(shown.text, "");
  EXPECT_EQ(shown.selection, "");
  EXPECT_EQ(shown.items, 0);
  EXPECT_FALSE(shown.checked);
  EXPECT_FALSE(shown.locked);
  EXPECT_TRUE(shown.enabled);
  EXPECT_TRUE(shown.visible);
}

}  // namespace
}  // namespace fiscalon
