#include "core/platform/files.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <csignal>
#include <cstdlib>
#include <filesystem>

#include "core/platform/code_page.h"
#include "tests/support/raises.h"
#include "tests/support/temporary_folder.h"

namespace fiscalon {
namespace {

using namespace std::string_literals;

/// Gives the superuser's rights away for as long as the object lives: a superuser is refused nothing.
class WithoutPrivilege {
 public:
  WithoutPrivilege() : changed_(::geteuid() == 0 && ::seteuid(kNobody) == 0) {}
  ~WithoutPrivilege() {
    if (changed_ && ::seteuid(0) != 0)
      std::abort();
  }
  WithoutPrivilege(const WithoutPrivilege&) = delete;
  WithoutPrivilege& operator=(const WithoutPrivilege&) = delete;

 private:
  static constexpr uid_t kNobody = 65534;
  bool changed_;
};

class SystemFilesTest : public testing::Test {
 protected:
  int32_t OpenError(const std::string& path, OpenMode mode = OpenMode::Output) {
    return ErrorOf([&] { files.Open(path, mode); });
  }
  int32_t DeleteError(const std::string& path) {
    return ErrorOf([&] { files.Delete(path); });
  }

  TemporaryFolder folder;
  SystemFiles files;
};

TEST_F(SystemFilesTest, AFileExistsEvenIfItIsEmpty) {
  EXPECT_TRUE(files.Exists(folder.Write("records.txt", "PC4")));
  EXPECT_TRUE(files.Exists(folder.Write("empty.txt", "")));
}

TEST_F(SystemFilesTest, NothingElseExists) {
  EXPECT_FALSE(files.Exists(folder.Path("missing.txt")));
  EXPECT_FALSE(files.Exists(folder.Path()));
  EXPECT_FALSE(files.Exists(""));
  EXPECT_FALSE(files.Exists(folder.Path("missing/records.txt")));
  EXPECT_FALSE(files.Exists(folder.Write("records.txt", "PC4") + "\0.txt"s));
}

TEST_F(SystemFilesTest, OutputStartsTheFileAfresh) {
  folder.Write("records.txt", "what was there before");
  const auto file = files.Open(folder.Path("records.txt"), OpenMode::Output);
  file->Print("one\r\n");
  file->Print("two\r\n");
  file->Close();
  EXPECT_EQ(folder.Read("records.txt"), "one\r\ntwo\r\n");
}

TEST_F(SystemFilesTest, AppendGoesOnBehindWhatIsThere) {
  files.Open(folder.Path("error.log"), OpenMode::Append)->Print("one\r\n");
  files.Open(folder.Path("error.log"), OpenMode::Append)->Print("two\r\n");
  EXPECT_EQ(folder.Read("error.log"), "one\r\ntwo\r\n");
}

TEST_F(SystemFilesTest, ALineIsWithTheSystemWhenPrintReturns) {
  const auto file = files.Open(folder.Path("records.txt"), OpenMode::Output);
  file->Print("one\r\n");
  EXPECT_EQ(folder.Read("records.txt"), "one\r\n");
  file->Print("two\r\n");
  EXPECT_EQ(folder.Read("records.txt"), "one\r\ntwo\r\n");
}

TEST_F(SystemFilesTest, APathIsInTheCodePage) {
  files.Open(FromUtf8(folder.Path("Côté.txt")), OpenMode::Output)->Print("x");
  EXPECT_EQ(folder.Read("Côté.txt"), "x");
  EXPECT_TRUE(files.Exists(FromUtf8(folder.Path("Côté.txt"))));
  files.Delete(FromUtf8(folder.Path("Côté.txt")));
  EXPECT_FALSE(files.Exists(FromUtf8(folder.Path("Côté.txt"))));
}

TEST_F(SystemFilesTest, PrintAfterCloseIsAnErrorAndASecondCloseIsNone) {
  const auto file = files.Open(folder.Path("records.txt"), OpenMode::Output);
  file->Close();
  EXPECT_EQ(ErrorOf([&] { file->Print("x"); }), 75);
  EXPECT_EQ(ErrorOf([&] { file->Close(); }), 0);
}

TEST_F(SystemFilesTest, OpenTellsAMissingFolderFromOtherFailures) {
  folder.Write("file.txt", "");
  EXPECT_EQ(OpenError(folder.Path("missing/records.txt")), 76);
  EXPECT_EQ(OpenError(folder.Path("file.txt/records.txt")), 76);
  EXPECT_EQ(OpenError(""), 75);
  EXPECT_EQ(OpenError(folder.Path()), 75);
  EXPECT_EQ(OpenError(folder.Path("a\0b"s)), 75);
}

TEST_F(SystemFilesTest, OpenWithoutPermissionIsError75) {
  folder.Write("locked.txt", "");
  ::chmod(folder.Path("locked.txt").c_str(), 0400);
  ::chmod(folder.Path().c_str(), 0755);
  const WithoutPrivilege now;
  EXPECT_EQ(OpenError(folder.Path("locked.txt")), 75);
  EXPECT_EQ(OpenError(folder.Path("locked.txt"), OpenMode::Append), 75);
}

TEST_F(SystemFilesTest, AFullDiskIsError61) {
  const auto file = files.Open("/dev/full", OpenMode::Output);
  EXPECT_EQ(ErrorOf([&] { file->Print("x"); }), 61);
}

TEST_F(SystemFilesTest, PrintWritesTheRestAfterAShortWrite) {
  // A limit on the size of files makes the system take what fits and refuse the rest.
  struct sigaction ignore = {};
  struct sigaction before = {};
  ignore.sa_handler = SIG_IGN;
  ::sigaction(SIGXFSZ, &ignore, &before);
  rlimit old = {};
  ::getrlimit(RLIMIT_FSIZE, &old);
  const rlimit limit = {.rlim_cur = 4, .rlim_max = old.rlim_max};
  ::setrlimit(RLIMIT_FSIZE, &limit);
  const auto file = files.Open(folder.Path("records.txt"), OpenMode::Output);
  const int32_t error = ErrorOf([&] { file->Print("123456"); });
  ::setrlimit(RLIMIT_FSIZE, &old);
  ::sigaction(SIGXFSZ, &before, nullptr);
  EXPECT_EQ(error, 75);
  EXPECT_EQ(folder.Read("records.txt"), "1234");
}

TEST_F(SystemFilesTest, DeleteRemovesAFile) {
  const std::string path = folder.Write("records.txt", "x");
  files.Delete(path);
  EXPECT_FALSE(files.Exists(path));
}

TEST_F(SystemFilesTest, DeleteOfALinkLeavesWhatItPointsAt) {
  const std::string target = folder.Write("records.txt", "x");
  ASSERT_EQ(::symlink(target.c_str(), folder.Path("link").c_str()), 0);
  files.Delete(folder.Path("link"));
  EXPECT_FALSE(files.Exists(folder.Path("link")));
  EXPECT_TRUE(files.Exists(target));
}

TEST_F(SystemFilesTest, DeleteRefusesWhatIsNoFile) {
  folder.Write("file.txt", "");
  ASSERT_EQ(::mkdir(folder.Path("inner").c_str(), 0700), 0);
  ASSERT_EQ(::mkfifo(folder.Path("pipe").c_str(), 0600), 0);
  EXPECT_EQ(DeleteError(folder.Path("missing.txt")), 53);
  EXPECT_EQ(DeleteError(""), 53);
  EXPECT_EQ(DeleteError(folder.Path("file.txt/records.txt")), 76);
  EXPECT_EQ(DeleteError(folder.Path("inner")), 75);
  EXPECT_EQ(DeleteError(folder.Path("pipe")), 75);
  EXPECT_EQ(DeleteError(folder.Path("file.txt") + "\0x"s), 75);
  EXPECT_TRUE(files.Exists(folder.Path("file.txt")));
}

TEST_F(SystemFilesTest, DeleteWithoutPermissionIsError70) {
  folder.Write("records.txt", "");
  ::chmod(folder.Path().c_str(), 0555);
  {
    const WithoutPrivilege now;
    EXPECT_EQ(DeleteError(folder.Path("records.txt")), 70);
  }
  ::chmod(folder.Path().c_str(), 0755);
}

TEST_F(SystemFilesTest, AnOpenFileIsNotHandedToOtherPrograms) {
  const int next = ::dup(0);
  ::close(next);
  const auto file = files.Open(folder.Path("records.txt"), OpenMode::Output);
  EXPECT_NE(::fcntl(next, F_GETFD) & FD_CLOEXEC, 0);
}

TEST(ParentFolder, IsThePathWithoutItsLastPart) {
  EXPECT_EQ(Files::ParentFolder("/a/b/c"), "/a/b");
  EXPECT_EQ(Files::ParentFolder("a/b"), "a");
  EXPECT_EQ(Files::ParentFolder("C:\\levies\\out.txt"), "C:\\levies");
  EXPECT_EQ(Files::ParentFolder("a\\b/c"), "a\\b");
  EXPECT_EQ(Files::ParentFolder("/a/b/"), "/a");
  EXPECT_EQ(Files::ParentFolder("a//b"), "a");
}

TEST(ParentFolder, OfAnEntryOfTheRootIsTheRoot) {
  EXPECT_EQ(Files::ParentFolder("/a"), "/");
  EXPECT_EQ(Files::ParentFolder("//a"), "/");
}

TEST(ParentFolder, IsEmptyWhereThereIsNone) {
  EXPECT_EQ(Files::ParentFolder("x"), "");
  EXPECT_EQ(Files::ParentFolder("x/"), "");
  EXPECT_EQ(Files::ParentFolder("/"), "");
  EXPECT_EQ(Files::ParentFolder(""), "");
}

TEST(JoinPath, SetsExactlyOneSeparator) {
  EXPECT_EQ(Files::JoinPath("/logs", "error.log"), "/logs/error.log");
  EXPECT_EQ(Files::JoinPath("/logs/", "error.log"), "/logs/error.log");
  EXPECT_EQ(Files::JoinPath("/logs", "/error.log"), "/logs/error.log");
  EXPECT_EQ(Files::JoinPath("/logs/", "/error.log"), "/logs/error.log");
  EXPECT_EQ(Files::JoinPath("C:\\logs\\", "error.log"), "C:\\logs\\error.log");
  EXPECT_EQ(Files::JoinPath("/", "error.log"), "/error.log");
}

TEST(JoinPath, WithAnEmptySideIsTheOther) {
  EXPECT_EQ(Files::JoinPath("", "error.log"), "error.log");
  EXPECT_EQ(Files::JoinPath("/logs", ""), "/logs");
}

TEST(CurrentFolder, IsTheFolderOfTheProcess) {
  EXPECT_EQ(Files::CurrentFolder(), FromUtf8(std::filesystem::current_path().string()));
}

TEST(NativePath, TurnsBackslashesIntoTheSeparator) {
  EXPECT_EQ(NativePath("\\Zelmor\\PBP.txt"), "/Zelmor/PBP.txt");
  EXPECT_EQ(NativePath("error.log"), "error.log");
}

}  // namespace
}  // namespace fiscalon
