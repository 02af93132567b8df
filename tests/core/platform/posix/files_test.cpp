#include "core/platform/files.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <csignal>
#include <cstdlib>

#include "tests/core/platform/system_files_test.h"

namespace fiscalon {
namespace {

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

TEST_F(SystemFilesTest, DeleteOfALinkLeavesWhatItPointsAt) {
  const std::string target = folder.Write("records.txt", "x");
  ASSERT_EQ(::symlink(target.c_str(), folder.Path("link").c_str()), 0);
  files.Delete(folder.Path("link"));
  EXPECT_FALSE(files.Exists(folder.Path("link")));
  EXPECT_TRUE(files.Exists(target));
}

TEST_F(SystemFilesTest, DeleteRefusesAPipe) {
  ASSERT_EQ(::mkfifo(folder.Path("pipe").c_str(), 0600), 0);
  EXPECT_EQ(DeleteError(folder.Path("pipe")), 75);
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

TEST(JoinPath, SetsExactlyOneSeparator) {
  EXPECT_EQ(Files::JoinPath("/logs", "error.log"), "/logs/error.log");
  EXPECT_EQ(Files::JoinPath("/logs/", "error.log"), "/logs/error.log");
  EXPECT_EQ(Files::JoinPath("/logs", "/error.log"), "/logs/error.log");
  EXPECT_EQ(Files::JoinPath("/logs/", "/error.log"), "/logs/error.log");
  EXPECT_EQ(Files::JoinPath("C:\\logs\\", "error.log"), "C:\\logs\\error.log");
  EXPECT_EQ(Files::JoinPath("/", "error.log"), "/error.log");
}

TEST(NativePath, TurnsBackslashesIntoTheSeparator) {
  EXPECT_EQ(NativePath("\\Zelmor\\PBP.txt"), "/Zelmor/PBP.txt");
  EXPECT_EQ(NativePath("error.log"), "error.log");
}

}  // namespace
}  // namespace fiscalon
