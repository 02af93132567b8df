#include "core/platform/mapped_file.h"

#include <gtest/gtest.h>

#include "tests/core/platform/map_path.h"
#include "tests/support/temporary_folder.h"

namespace fiscalon {
namespace {

TEST(MappedFile, HoldsEveryByte) {
  const TemporaryFolder folder;
  const std::string bytes("PC4\0\r\n\xE9", 7);
  const auto mapped = MapPath(folder.Write("records.pc4", bytes));
  ASSERT_TRUE(mapped);
  EXPECT_EQ(mapped->Bytes(), bytes);
}

TEST(MappedFile, IsNoneOfAnEmptyFile) {
  const TemporaryFolder folder;
  EXPECT_FALSE(MapPath(folder.Write("empty", "")));
}

}  // namespace
}  // namespace fiscalon
