#include "core/platform/mapped_file.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <filesystem>
#include <string>

#include "tests/support/temporary_folder.h"

namespace fiscalon {
namespace {

std::unique_ptr<MappedFile> MapPath(const std::string& path) {
  std::FILE* const file = std::fopen(path.c_str(), "rb");
  auto mapped = MappedFile::Of(file);
  std::fclose(file);
  return mapped;
}

TEST(MappedFile, HoldsEveryByte) {
  const TemporaryFolder folder;
  const std::string bytes("PC4\0\r\n\xE9", 7);
  const auto mapped = MapPath(folder.Write("records.pc4", bytes));
  ASSERT_TRUE(mapped);
  EXPECT_EQ(mapped->Bytes(), bytes);
}

TEST(MappedFile, OutlivesTheFilesName) {
  const TemporaryFolder folder;
  const std::string path = folder.Write("records.pc4", "PC40001T");
  const auto mapped = MapPath(path);
  ASSERT_TRUE(mapped);
  std::filesystem::remove(path);
  EXPECT_EQ(mapped->Bytes(), "PC40001T");
}

TEST(MappedFile, IsNoneOfAnEmptyFileAFolderOrADevice) {
  const TemporaryFolder folder;
  EXPECT_FALSE(MapPath(folder.Write("empty", "")));
  EXPECT_FALSE(MapPath(folder.Path()));
  EXPECT_FALSE(MapPath("/dev/null"));
}

}  // namespace
}  // namespace fiscalon
