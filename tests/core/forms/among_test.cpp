#include "core/forms/among.h"

#include <gtest/gtest.h>

#include <vector>

namespace fiscalon {
namespace {

TEST(Among, HasSomebodyInAListForAScope) {
  int one = 1, two = 2;
  std::vector<int*> list = {&one};
  {
    const Among<int> among(list, two);
    EXPECT_EQ(list, (std::vector<int*>{&one, &two}));
  }
  EXPECT_EQ(list, std::vector<int*>{&one});
}

TEST(Among, LeavesAListAloneThatWasClearedMeanwhile) {
  int one = 1, two = 2;
  std::vector<int*> list = {&one};
  {
    const Among<int> among(list, two);
    list.clear();
  }
  EXPECT_TRUE(list.empty());
}

}  // namespace
}  // namespace fiscalon
