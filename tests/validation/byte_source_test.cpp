#include "validation/byte_source.h"

#include <gtest/gtest.h>

#include <fcntl.h>
#include <unistd.h>

#include <filesystem>
#include <memory>
#include <string>
#include <string_view>

#include "tests/support/few_files_on_posix.h"
#include "tests/support/temporary_folder.h"
#include "validation/batch_error.h"

namespace fiscalon {
namespace {

TEST(ByteSource, LoadsWhatItHasShown) {
  const TemporaryFolder folder;
  std::string bytes;
  for (int number = 0; bytes.size() < 2'000'000; ++number) bytes += std::to_string(number);
  const auto file = ByteSource::Open(folder.Write("batch.pc4", bytes));
  const std::string_view shown = file->Peek(0);
  const auto stretch = ByteSource::Stretch(*file, shown.substr(0, 700'001), shown.substr(700'001));
  const auto buffer = ByteSource::Of(bytes, "batch.pc4");
  for (const ByteSource* const source : {file.get(), stretch.get()})
    for (const size_t length : {1'299'999u, 1'000u, 1u, 0u}) {
      std::string storage = "what was read before";
      EXPECT_TRUE(source->Load(shown.substr(700'001, length), storage) ==
                  std::string_view(bytes).substr(700'001, length))
          << length;
    }
  std::string storage;
  EXPECT_EQ(buffer->Load(buffer->Peek(0), storage).data(), bytes.data()) << "it lies in memory already";
}

TEST(ByteSource, LoadsNothingOfAPipeButWhatItHasShown) {
  const auto source = ByteSource::Open("/dev/zero");
  const std::string_view shown = source->Peek(3).substr(0, 3);
  std::string storage;
  EXPECT_EQ(source->Load(shown, storage), std::string_view("\0\0\0", 3));
}

TEST(ByteSource, NamesAFileThatHasBecomeShorter) {
  const TemporaryFolder folder;
  const std::string path = folder.Write("batch.pc4", std::string(1'000, '1'));
  const auto source = ByteSource::Open(path);
  const std::string_view shown = source->Peek(0);
  std::filesystem::resize_file(path, 500);
  std::string storage;
  EXPECT_EQ(source->Load(shown.substr(0, 500), storage), std::string(500, '1'));
  try {
    source->Load(shown, storage);
    FAIL();
  } catch (const BatchError& error) {
    EXPECT_EQ(error.what(), path + ": the file became shorter while it was read");
  }
}

TEST(ByteSource, NamesAFileThatCannotBeReadAnyMore) {
  const TemporaryFolder folder;
  const std::string path = folder.Write("batch.pc4", std::string(1'000, '1'));
  const int opened = ::dup(STDERR_FILENO);
  ::close(opened);
  const auto source = ByteSource::Open(path);
  // Behind the one that was opened and is closed again.
  ASSERT_EQ(::close(opened + 1), 0);
  std::string storage;
  try {
    source->Load(source->Peek(0), storage);
    FAIL();
  } catch (const BatchError& error) {
    EXPECT_EQ(error.what(), path + ": can't be read: Bad file descriptor");
  }
}

TEST(ByteSource, ReadsAFileThatTheSystemHasNoRoomForTwice) {
#ifdef __SANITIZE_ADDRESS__
  GTEST_SKIP() << "the sanitizer looks at an object through a pipe of its own";
#endif
  const TemporaryFolder folder;
  const std::string path = folder.Write("batch.pc4", "0123456789");
  const auto source = WithoutRoomForFiles([&] { return ByteSource::Open(path); });
  EXPECT_FALSE(source->Stays());
  EXPECT_EQ(source->Peek(100), "0123456789");
}

TEST(ByteSource, NamesAFileThatCannotBeRead) {
  const TemporaryFolder folder;
  const auto error = [](const std::string& path) {
    try {
      ByteSource::Open(path)->Peek(1);
    } catch (const BatchError& raised) {
      return raised.Problems().front().reason;
    }
    return std::string("none");
  };
  EXPECT_EQ(error(folder.Path("missing")), "can't be opened: No such file or directory");
  EXPECT_EQ(error(folder.Path()), "can't be read: Is a directory");
  EXPECT_EQ(error(folder.Write("empty", "")), "none");
}

TEST(ByteSource, GivesBackWhatItHasOpened) {
  const auto next = [] {
    const int descriptor = ::dup(STDERR_FILENO);
    ::close(descriptor);
    return descriptor;
  };
  const TemporaryFolder folder;
  const int free = next();
  // A device, which is read, and a file, which is mapped.
  ByteSource::Open("/dev/null")->Peek(1);
  ByteSource::Open(folder.Write("list", "1"))->Peek(1);
  EXPECT_EQ(next(), free);
}

TEST(ByteSource, LeavesStandardInputOpen) {
  const auto source = ByteSource::Open("-");
  EXPECT_EQ(source->Name(), "standard input");
  EXPECT_FALSE(source->Stays());
  EXPECT_EQ(source->Size(), std::nullopt);
  EXPECT_TRUE(source->IsFromTheStart());
  EXPECT_EQ(source->LinesBefore(), 0u);
  ByteSource::Open("-").reset();
  EXPECT_NE(::fcntl(STDIN_FILENO, F_GETFD), -1);
}

/// A pipe with these bytes in it, of which it holds 64 KiB.
std::unique_ptr<ByteSource> PipeWith(std::string_view bytes) {
  int ends[2] = {};
  EXPECT_EQ(::pipe(ends), 0);
  EXPECT_EQ(::write(ends[1], bytes.data(), bytes.size()), static_cast<ssize_t>(bytes.size()));
  ::close(ends[1]);
  std::unique_ptr<ByteSource> source = ByteSource::Open("/dev/fd/" + std::to_string(ends[0]));
  ::close(ends[0]);
  return source;
}

TEST(ByteSource, ShowsOfAPipeWhatIsAskedForUnlessItEndsBefore) {
  const auto source = PipeWith("0123456789");
  EXPECT_FALSE(source->Stays());
  EXPECT_EQ(source->Size(), std::nullopt);
  EXPECT_TRUE(source->Peek(4).starts_with("0123"));
  source->Skip(4);
  EXPECT_TRUE(source->Peek(3).starts_with("456"));
  EXPECT_EQ(source->Peek(100'000), "456789");
  source->Skip(6);
  EXPECT_EQ(source->Peek(1), "");
}

TEST(ByteSource, ReadsAPipeOnWhereItWas) {
  std::string bytes;
  for (int number = 10'000; bytes.size() < 60'000; ++number) bytes += std::to_string(number);
  const auto source = PipeWith(bytes);
  std::string read;
  // Sometimes more is asked for than a system reads at once.
  for (size_t step = 1; read.size() < bytes.size(); ++step) {
    const size_t wanted = step % 10 == 0 ? 20'000 : 170;
    const std::string_view shown = source->Peek(wanted);
    ASSERT_TRUE(shown.size() >= wanted || read.size() + shown.size() == bytes.size()) << step;
    const std::string_view taken = shown.substr(0, 100);
    read += taken;
    source->Skip(taken.size());
  }
  EXPECT_TRUE(read == bytes);
}

TEST(ByteSource, KnowsWhatStandsBeforeAStretch) {
  const std::string bytes = "a\nb\ncdefg";
  const auto source = ByteSource::Of(bytes, "list");
  EXPECT_EQ(source->Size(), bytes.size());
  EXPECT_TRUE(source->Stays());
  EXPECT_TRUE(source->IsFromTheStart());
  EXPECT_EQ(source->LinesBefore(), 0u);
  const auto stretch = ByteSource::Stretch(*source, std::string_view(bytes).substr(0, 4), "cde");
  EXPECT_EQ(stretch->Name(), "list");
  EXPECT_EQ(stretch->Size(), 3u);
  EXPECT_TRUE(stretch->Stays());
  EXPECT_FALSE(stretch->IsFromTheStart());
  EXPECT_EQ(stretch->LinesBefore(), 2u);
  EXPECT_EQ(stretch->Peek(1), "cde");
  stretch->Skip(2);
  EXPECT_EQ(stretch->Peek(1), "e");
  EXPECT_TRUE(ByteSource::Stretch(*source, {}, "a")->IsFromTheStart());
}

/// What is said of a source whose file may have changed.
std::string ChangeOf(const ByteSource& source) {
  try {
    source.RefuseChange();
  } catch (const BatchError& error) {
    return error.what();
  }
  return "";
}

TEST(ByteSource, RefusesAFileThatWasWrittenToAndItsStretches) {
  const TemporaryFolder folder;
  const std::string path = folder.Write("list", "0123456789");
  const auto source = ByteSource::Open(path);
  const auto stretch = ByteSource::Stretch(*source, source->Peek(0).substr(0, 5), source->Peek(0).substr(5));
  EXPECT_EQ(ChangeOf(*source), "");
  EXPECT_EQ(ChangeOf(*stretch), "");
  std::ofstream(path, std::ios::app) << "more";
  EXPECT_EQ(ChangeOf(*source), path + ": the file changed while it was read");
  EXPECT_EQ(ChangeOf(*stretch), path + ": the file changed while it was read");
}

TEST(ByteSource, DoesNotRefuseABufferOrAPipe) {
  const std::string bytes = "0123456789";
  const auto buffer = ByteSource::Of(bytes, "list");
  EXPECT_EQ(ChangeOf(*buffer), "");
  EXPECT_EQ(ChangeOf(*ByteSource::Stretch(*buffer, {}, bytes)), "");
  EXPECT_EQ(ChangeOf(*ByteSource::Open("/dev/null")), "");
}

}  // namespace
}  // namespace fiscalon
