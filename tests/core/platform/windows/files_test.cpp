#include "core/platform/files.h"

#include <gtest/gtest.h>
#include <windows.h>

#include "core/platform/code_page.h"
#include "core/platform/windows/system_path.h"
#include "tests/core/platform/system_files_test.h"

namespace fiscalon {
namespace {

/// A file that another program has open, for as long as the object lives.
class HeldFile {
 public:
  HeldFile(const std::string& path, DWORD sharing)
      : file_(::CreateFileW(SystemPath(path).c_str(), GENERIC_READ, sharing, nullptr, OPEN_EXISTING, 0, nullptr)) {}
  ~HeldFile() { ::CloseHandle(file_); }
  HeldFile(const HeldFile&) = delete;
  HeldFile& operator=(const HeldFile&) = delete;

  bool IsHeld() const { return file_ != INVALID_HANDLE_VALUE; }

 private:
  HANDLE file_;
};

TEST_F(SystemFilesTest, OpenWithoutPermissionIsError75) {
  const std::string path = folder.Write("locked.txt", "x");
  ASSERT_TRUE(::SetFileAttributesW(SystemPath(path).c_str(), FILE_ATTRIBUTE_READONLY));
  const HANDLE file = ::CreateFileW(SystemPath(path).c_str(), GENERIC_WRITE, 0, nullptr, OPEN_EXISTING, 0, nullptr);
  if (file != INVALID_HANDLE_VALUE) {
    ::CloseHandle(file);
    ::SetFileAttributesW(SystemPath(path).c_str(), FILE_ATTRIBUTE_NORMAL);
    GTEST_SKIP() << "the system lets this user write to a file that may not be written to";
  }
  EXPECT_EQ(OpenError(path), 75);
  EXPECT_EQ(OpenError(path, OpenMode::Append), 75);
  ::SetFileAttributesW(SystemPath(path).c_str(), FILE_ATTRIBUTE_NORMAL);
  EXPECT_EQ(folder.Read("locked.txt"), "x");
}

TEST_F(SystemFilesTest, OpenOfAFileThatAnotherProgramHoldsIsError75) {
  const std::string path = folder.Write("held.txt", "x");
  const HeldFile held(path, FILE_SHARE_READ);
  ASSERT_TRUE(held.IsHeld());
  EXPECT_EQ(OpenError(path), 75);
}

TEST_F(SystemFilesTest, OpenOnADriveThatIsNotThereIsError76) {
  ASSERT_EQ(::GetLogicalDrives() & (1U << ('Q' - 'A')), 0U) << "the test takes Q for a drive that is not there";
  EXPECT_EQ(OpenError("Q:\\records.txt"), 76);
  EXPECT_EQ(DeleteError("Q:\\records.txt"), 53);
  EXPECT_FALSE(files.Exists("Q:\\records.txt"));
}

TEST_F(SystemFilesTest, ANameThatTheSystemRefusesIsError75) {
  EXPECT_EQ(OpenError(folder.Path() + "\\a\"b.txt"), 75);
  EXPECT_EQ(OpenError(folder.Path() + "\\a*b.txt"), 75);
}

TEST_F(SystemFilesTest, DeleteOfAFileThatAnotherProgramHoldsIsError70) {
  const std::string path = folder.Write("held.txt", "x");
  {
    const HeldFile held(path, FILE_SHARE_READ | FILE_SHARE_WRITE);
    ASSERT_TRUE(held.IsHeld());
    EXPECT_EQ(DeleteError(path), 70);
  }
  EXPECT_TRUE(files.Exists(path));
}

TEST_F(SystemFilesTest, AFileThatIsOpenCanBeRead) {
  const auto file = files.Open(folder.Path("records.txt"), OpenMode::Output);
  file->Print("one\r\n");
  EXPECT_TRUE(HeldFile(folder.Path("records.txt"), FILE_SHARE_READ | FILE_SHARE_WRITE).IsHeld());
}

TEST_F(SystemFilesTest, OutputLeavesAHiddenFileHidden) {
  const std::string path = folder.Write("hidden.txt", "what was there before");
  ASSERT_TRUE(::SetFileAttributesW(SystemPath(path).c_str(), FILE_ATTRIBUTE_HIDDEN));
  files.Open(path, OpenMode::Output)->Print("new");
  EXPECT_NE(::GetFileAttributesW(SystemPath(path).c_str()) & FILE_ATTRIBUTE_HIDDEN, 0U);
  ::SetFileAttributesW(SystemPath(path).c_str(), FILE_ATTRIBUTE_NORMAL);
  EXPECT_EQ(folder.Read("hidden.txt"), "new");
}

TEST_F(SystemFilesTest, APathMayBeOfAnyLength) {
  // Three names of 100 characters are more than the 260 that an unmarked path may have.
  std::string path = folder.Path();
  for (const char letter : {'a', 'b', 'c'}) {
    path += '\\' + std::string(100, letter);
    ASSERT_TRUE(::CreateDirectoryW(SystemPath(path).c_str(), nullptr)) << path;
  }
  path += "\\records.txt";
  files.Open(path, OpenMode::Output)->Print("x");
  EXPECT_TRUE(files.Exists(path));
  files.Delete(path);
  EXPECT_FALSE(files.Exists(path));
}

TEST(JoinPath, SetsExactlyOneSeparator) {
  EXPECT_EQ(Files::JoinPath("C:\\logs", "error.log"), "C:\\logs\\error.log");
  EXPECT_EQ(Files::JoinPath("C:\\logs\\", "\\error.log"), "C:\\logs\\error.log");
  EXPECT_EQ(Files::JoinPath("C:/logs/", "error.log"), "C:/logs/error.log");
}

TEST(NativePath, KeepsBackslashes) {
  EXPECT_EQ(NativePath("\\Zelmor\\PBP.txt"), "\\Zelmor\\PBP.txt");
}

}  // namespace
}  // namespace fiscalon
