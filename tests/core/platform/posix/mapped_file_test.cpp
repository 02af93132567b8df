#include "core/platform/mapped_file.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "tests/core/platform/map_path.h"
#include "tests/support/page_faults_on_posix.h"
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

TEST(MappedFile, ReturnsThePagesOfAPart) {
  const TemporaryFolder folder;
  const auto mapped = MapPath(folder.Write("records.pc4", std::string(8 << 20, '1')));
  ASSERT_TRUE(mapped);
  const std::string_view first = mapped->Bytes().substr(0, 4 << 20);
  const std::string_view second = mapped->Bytes().substr(4 << 20);
  FaultsOfLookingAt(mapped->Bytes());
  mapped->ReturnPages(second);
  const long kept = FaultsOfLookingAt(first);
  EXPECT_GT(FaultsOfLookingAt(second), kept);
}

TEST(MappedFile, IsNoneOfAFolderOrADevice) {
  const TemporaryFolder folder;
  EXPECT_FALSE(MapPath(folder.Path()));
  EXPECT_FALSE(MapPath("/dev/null"));
}

}  // namespace
}  // namespace fiscalon
