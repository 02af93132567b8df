#include "core/platform/temporary_folder.h"

#include <gtest/gtest.h>

namespace fiscalon {
namespace {

TEST(MakeTemporaryFolder, MakesAnEmptyOneEachTime) {
  const std::filesystem::path one = MakeTemporaryFolder();
  const std::filesystem::path other = MakeTemporaryFolder();
  EXPECT_NE(one, other);
  EXPECT_TRUE(std::filesystem::is_empty(one));
  EXPECT_TRUE(std::filesystem::remove(one));
  EXPECT_TRUE(std::filesystem::remove(other));
}

}  // namespace
}  // namespace fiscalon
