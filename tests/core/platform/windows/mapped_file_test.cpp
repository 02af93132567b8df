#include "core/platform/mapped_file.h"

#include <gtest/gtest.h>

#include "tests/core/platform/map_path.h"
#include "tests/support/temporary_folder.h"

namespace fiscalon {
namespace {

TEST(MappedFile, IsNoneOfADevice) {
  EXPECT_FALSE(MapPath("NUL"));
}

TEST(MappedFile, IsFoundByANameOfAnyAlphabet) {
  const TemporaryFolder folder;
  const auto mapped = MapPath(folder.Write("Ω Côté.pc4", "PC40001T"));
  ASSERT_TRUE(mapped);
  EXPECT_EQ(mapped->Bytes(), "PC40001T");
}

}  // namespace
}  // namespace fiscalon
