#include "core/platform/mapped_file.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "tests/core/platform/map_path.h"
#include "tests/support/temporary_folder.h"

namespace fiscalon {
namespace {

TEST(MappedFile, OutlivesTheFilesName) {
  const TemporaryFolder folder;
  const std::string path = folder.Write("records.pc4", "PC40001T");
  const auto mapped = MapPath(path);
  ASSERT_TRUE(mapped);
  std::filesystem::remove(path);
  EXPECT_EQ(mapped->Bytes(), "PC40001T");
}

TEST(MappedFile, IsNoneOfAFolderOrADevice) {
  const TemporaryFolder folder;
  EXPECT_FALSE(MapPath(folder.Path()));
  EXPECT_FALSE(MapPath("/dev/null"));
}

}  // namespace
}  // namespace fiscalon
