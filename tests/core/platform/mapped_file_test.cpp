#include "core/platform/mapped_file.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <utility>

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

TEST(MappedFile, ReadsAnyPart) {
  const TemporaryFolder folder;
  std::string bytes;
  for (int number = 0; bytes.size() < 1'000'000; ++number) bytes += std::to_string(number);
  const auto mapped = MapPath(folder.Write("records.pc4", bytes));
  ASSERT_TRUE(mapped);
  std::string storage;
  for (const auto& [from, length] : {std::pair<size_t, size_t>{0, bytes.size()},
                                     {10'000, 300'001},
                                     {10'000, 30'001},
                                     {bytes.size() - 1, 1},
                                     {bytes.size(), 0}}) {
    const auto read = mapped->Read(mapped->Bytes().substr(from, length), storage);
    ASSERT_TRUE(read);
    EXPECT_TRUE(*read == std::string_view(bytes).substr(from, length)) << from;
  }
}

TEST(MappedFile, IsNoneOfAnEmptyFile) {
  const TemporaryFolder folder;
  EXPECT_FALSE(MapPath(folder.Write("empty", "")));
}

TEST(MappedFile, TellsThatItWasWrittenTo) {
  const TemporaryFolder folder;
  const auto mapped = MapPath(folder.Write("records.pc4", "PC4"));
  ASSERT_TRUE(mapped);
  EXPECT_FALSE(mapped->HasChanged());
  std::ofstream(folder.Path("records.pc4"), std::ios::app | std::ios::binary) << "0001";
  EXPECT_TRUE(mapped->HasChanged());
}

TEST(MappedFile, IsWhatItWasUnderAnotherName) {
  const TemporaryFolder folder;
  const auto mapped = MapPath(folder.Write("records.pc4", "PC4"));
  ASSERT_TRUE(mapped);
  std::error_code error;
  std::filesystem::rename(folder.Path("records.pc4"), folder.Path("older.pc4"), error);
  if (error)
    GTEST_SKIP() << "the system gives no mapped file another name: " << error.message();
  EXPECT_FALSE(mapped->HasChanged());
}

}  // namespace
}  // namespace fiscalon
