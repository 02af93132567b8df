#include "core/platform/mapped_file.h"

#include <gtest/gtest.h>

#include <sys/resource.h>
#include <unistd.h>

#include <cerrno>
#include <filesystem>
#include <fstream>
#include <optional>
#include <string>

#include "tests/core/platform/map_path.h"
#include "tests/support/few_files_on_posix.h"
#include "tests/support/temporary_folder.h"

namespace fiscalon {
namespace {

/// How many pages the system must find for this process while each page of the bytes is looked at.
long FaultsOfLookingAt(std::string_view bytes) {
  const auto faults = [] {
    rusage usage = {};
    ::getrusage(RUSAGE_SELF, &usage);
    return usage.ru_minflt + usage.ru_majflt;
  };
  const long before = faults();
  constexpr size_t kSmallestPage = 4096;
  for (size_t at = 0; at < bytes.size(); at += kSmallestPage)
    static_cast<void>(*static_cast<const volatile char*>(&bytes[at]));
  return faults() - before;
}

TEST(MappedFile, OutlivesTheFilesName) {
  const TemporaryFolder folder;
  const std::string path = folder.Write("records.pc4", "PC40001T");
  const auto mapped = MapPath(path);
  ASSERT_TRUE(mapped);
  std::filesystem::remove(path);
  EXPECT_EQ(mapped->Bytes(), "PC40001T");
}

TEST(MappedFile, LeavesAPartThatIsMappedWhereItIs) {
  const TemporaryFolder folder;
  const auto mapped = MapPath(folder.Write("records.pc4", std::string(1 << 20, '1')));
  ASSERT_TRUE(mapped);
  FaultsOfLookingAt(mapped->Bytes());
  std::string storage;
  const auto read = mapped->Read(mapped->Bytes(), storage);
  ASSERT_TRUE(read);
  EXPECT_EQ(read->data(), mapped->Bytes().data());
  EXPECT_EQ(storage, "");
}

TEST(MappedFile, ReadsWhatLiesInSmallPieces) {
  constexpr size_t kPiece = 4096;
  constexpr size_t kPieces = 256;
  const TemporaryFolder folder;
  const std::string path = folder.Path("records.pc4");
  std::ofstream file(path, std::ios::binary);
  for (size_t piece = 0; piece < kPieces; ++piece) file << std::string(kPiece, '1') << std::flush;
  file.close();
  if (FaultsOfLookingAt(MapPath(path)->Bytes()) < 8)
    GTEST_SKIP() << "the system maps even such a file in large pieces";
  const auto mapped = MapPath(path);
  std::string storage;
  const auto read = mapped->Read(mapped->Bytes(), storage);
  ASSERT_TRUE(read);
  EXPECT_EQ(read->data(), storage.data());
  EXPECT_EQ(storage, std::string(kPieces * kPiece, '1'));
}

TEST(MappedFile, ReadsWhatIsLeftOfAPartInAnyPieces) {
  const TemporaryFolder folder;
  const std::string path = folder.Write("records.pc4", std::string(1 << 20, '1'));
  const auto mapped = MapPath(path);
  ASSERT_TRUE(mapped);
  std::string storage;
  EXPECT_EQ(mapped->Read(mapped->Bytes(), storage), std::string(1 << 20, '1'));
  std::filesystem::resize_file(path, 1'000);
  EXPECT_EQ(mapped->Read(mapped->Bytes(), storage), std::string(1'000, '1'));
}

TEST(MappedFile, ReadsWhatIsLeftOfAPart) {
  const TemporaryFolder folder;
  const std::string path = folder.Write("records.pc4", "PC40001T");
  const auto mapped = MapPath(path);
  ASSERT_TRUE(mapped);
  std::filesystem::resize_file(path, 5);
  std::string storage;
  EXPECT_EQ(mapped->Read(mapped->Bytes().substr(3), storage), "00");
  EXPECT_EQ(mapped->Read(mapped->Bytes().substr(5), storage), "");
}

TEST(MappedFile, ReadsNothingOfAFileThatWasClosed) {
  const TemporaryFolder folder;
  const int opened = ::dup(STDERR_FILENO);
  ::close(opened);
  const auto mapped = MapPath(folder.Write("records.pc4", "PC40001T"));
  ASSERT_TRUE(mapped);
  // Behind the one that was opened and is closed again.
  ASSERT_EQ(::close(opened + 1), 0);
  std::string storage;
  EXPECT_EQ(mapped->Read(mapped->Bytes(), storage), std::nullopt);
  EXPECT_EQ(errno, EBADF);
}

TEST(MappedFile, IsNoneWhereTheSystemHasNoRoomForItOnceMore) {
  const TemporaryFolder folder;
  const std::string path = folder.Write("records.pc4", "PC40001T");
  EXPECT_FALSE(WithoutRoomForFiles([&] { return MapPath(path); }));
  EXPECT_TRUE(MapPath(path));
}

TEST(MappedFile, IsNoneOfAFolderOrADevice) {
  const TemporaryFolder folder;
  EXPECT_FALSE(MapPath(folder.Path()));
  EXPECT_FALSE(MapPath("/dev/null"));
}

}  // namespace
}  // namespace fiscalon
