#include "validation/byte_source.h"

#include <gtest/gtest.h>

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <fstream>
#include <memory>
#include <string>
#include <string_view>

#include "tests/support/page_faults_on_posix.h"
#include "tests/support/temporary_folder.h"
#include "validation/batch_error.h"

namespace fiscalon {
namespace {

TEST(ByteSource, ReturnsItsPagesInShares) {
  const TemporaryFolder folder;
  constexpr size_t kThird = 4 << 20;
  const auto source = ByteSource::Open(folder.Write("batch.pc4", std::string(3 * kThird, '1')));
  const std::string_view bytes = source->Peek(0);
  for (size_t share = 0; share < 3; ++share) {
    FaultsOfLookingAt(bytes);
    source->ReturnPages(share, 3);
    const std::string_view third = bytes.substr(share * kThird, kThird);
    const long returned = FaultsOfLookingAt(third);
    EXPECT_GT(returned, FaultsOfLookingAt(third)) << share;
  }
  source->Skip(bytes.size());
  source->ReturnPages(0, 1);
  const long returned = FaultsOfLookingAt(bytes);
  EXPECT_GT(returned, FaultsOfLookingAt(bytes));
  EXPECT_TRUE(bytes == std::string(3 * kThird, '1'));
}

TEST(ByteSource, ReturnsThePagesOfAStretchOnly) {
  const TemporaryFolder folder;
  constexpr size_t kHalf = 4 << 20;
  const auto source = ByteSource::Open(folder.Write("batch.pc4", std::string(2 * kHalf, '1')));
  const std::string_view bytes = source->Peek(0);
  const auto stretch = ByteSource::Stretch(*source, bytes.substr(0, kHalf), bytes.substr(kHalf));
  FaultsOfLookingAt(bytes);
  stretch->ReturnPages(0, 1);
  const long kept = FaultsOfLookingAt(bytes.substr(0, kHalf));
  EXPECT_GT(FaultsOfLookingAt(bytes.substr(kHalf)), kept);
}

TEST(ByteSource, ReturnsNothingOfABufferOrAPipe) {
  const std::string buffer(1 << 20, '1');
  const auto source = ByteSource::Of(buffer, "batch.pc4");
  const auto stretch = ByteSource::Stretch(*source, {}, buffer);
  for (const ByteSource* const any : {source.get(), stretch.get()}) any->ReturnPages(0, 1);
  EXPECT_EQ(std::ranges::count(buffer, '1'), 1 << 20);
  ByteSource::Open("/dev/null")->ReturnPages(0, 1);
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
