#include "core/platform/mapped_file.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

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

TEST(MappedFile, HoldsEveryByteWhosePagesWereReturned) {
  const TemporaryFolder folder;
  std::string bytes;
  for (int number = 0; bytes.size() < 100'000; ++number) bytes += std::to_string(number);
  const auto mapped = MapPath(folder.Write("records.pc4", bytes));
  ASSERT_TRUE(mapped);
  const std::string_view all = mapped->Bytes();
  for (const std::string_view part : {all, all.substr(10'000, 30'001), all.substr(99'999, 1), all.substr(0, 0)}) {
    EXPECT_TRUE(all == bytes);
    mapped->ReturnPages(part);
  }
  EXPECT_TRUE(all == bytes);
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
