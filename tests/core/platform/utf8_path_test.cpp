#include "core/platform/utf8_path.h"

#include <gtest/gtest.h>

namespace fiscalon {
namespace {

TEST(Utf8Path, KeepsEveryCharacter) {
  EXPECT_TRUE(Utf8Path("Ω/Côté.txt").filename().u8string() == u8"Côté.txt");
  EXPECT_EQ(Utf8Of(Utf8Path("Ω.txt")), "Ω.txt");
}

}  // namespace
}  // namespace fiscalon
