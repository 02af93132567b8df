#include "tools/fiscalon/whole_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstring>
#include <filesystem>
#include <iostream>
#include <optional>
#include <random>
#include <utility>

#include "tools/fiscalon/context.h"

namespace fiscalon {
namespace {

constexpr mode_t kNewFileMode = 0666;

/// A name in the folder of a file that nobody else has: short, whatever the length of the file's own.
std::string NameBeside(const std::string& place) {
  constexpr std::string_view kLetters = "0123456789abcdefghijklmnopqrstuvwxyz";
  constexpr int kLength = 12;
  static std::random_device random;
  std::string name = ".fiscalon-";
  for (int i = 0; i < kLength; ++i) name += kLetters[random() % kLetters.size()];
  return (std::filesystem::path(place).parent_path() / name).string();
}

bool NamesStandardOutput(const std::string& name) {
  return name == "-" || name == "/dev/stdout" || name == "/dev/fd/1" || name == "/proc/self/fd/1";
}

bool IsSameFile(const struct stat& a, const struct stat& b) {
  return a.st_dev == b.st_dev && a.st_ino == b.st_ino;
}

/// Gives one name to a file that has another, unless that name is taken. Systems that can't tell in one step are asked
/// in two.
bool RenameUnlessTaken(const std::string& from, const std::string& to) {
  if (::renameat2(AT_FDCWD, from.c_str(), AT_FDCWD, to.c_str(), RENAME_NOREPLACE) == 0)
    return true;
  if (errno != EINVAL && errno != ENOSYS)
    return false;
  struct stat status = {};
  if (::lstat(to.c_str(), &status) == 0) {
    errno = EEXIST;
    return false;
  }
  return std::rename(from.c_str(), to.c_str()) == 0;
}

/// Gives a file a second name, or where that is not possible another one.
bool MoveAside(const std::string& from, const std::string& to) {
  return ::link(from.c_str(), to.c_str()) == 0 || std::rename(from.c_str(), to.c_str()) == 0;
}

[[noreturn]] void RefuseOlder(const std::string& name) {
  throw CommandError(name + " exists already; --force replaces it");
}

/// Where the links of a path lead: the place of a file that may not exist yet. Nothing where they lead in a circle.
std::optional<std::string> PlaceOf(const std::string& path) {
  // As many links as the system follows.
  constexpr int kMostLinks = 40;
  std::filesystem::path place = path;
  std::error_code error;
  for (int links = 0; std::filesystem::is_symlink(place, error); ++links) {
    const std::filesystem::path target = std::filesystem::read_symlink(place, error);
    if (error || links == kMostLinks)
      return std::nullopt;
    place = place.parent_path() / target;
  }
  return place.string();
}

}  // namespace

WholeFile::WholeFile(std::string name, const std::vector<std::string>& inputs, Older older)
    : name_(std::move(name)), older_(older), isStandardOutput_(NamesStandardOutput(name_)) {
  for (const std::string& input : inputs) RefuseInput(input);
  if (isStandardOutput_)
    return;
  const std::optional<std::string> place = PlaceOf(name_);
  if (!place) {
    errno = ELOOP;
    Fail();
  }
  place_ = *place;
  struct stat there = {};
  const bool exists = ::stat(place_.c_str(), &there) == 0;
  if (!exists && errno != ENOENT)
    Fail();
  if (exists && S_ISDIR(there.st_mode)) {
    errno = EISDIR;
    Fail();
  }
  if (exists && older_ == Older::Refused)
    RefuseOlder(name_);
  if (exists && !S_ISREG(there.st_mode))
    OpenInPlace();
  else
    OpenBeside();
}

WholeFile::~WholeFile() = default;

void WholeFile::RefuseInput(const std::string& input) const {
  struct stat in = {}, out = {};
  const bool known = (input == "-" ? ::fstat(STDIN_FILENO, &in) : ::stat(input.c_str(), &in)) == 0 &&
                     (isStandardOutput_ ? ::fstat(STDOUT_FILENO, &out) : ::stat(name_.c_str(), &out)) == 0;
  if (known && S_ISREG(in.st_mode) && IsSameFile(in, out))
    throw CommandError((isStandardOutput_ ? "standard output" : name_) + " would take the place of " +
                       (input == "-" ? "standard input" : input) + ", which is read");
}

void WholeFile::OpenBeside() {
  struct stat there = {};
  const bool exists = ::stat(place_.c_str(), &there) == 0;
  // A file that may not be written to is not replaced either.
  if (exists && ::access(place_.c_str(), W_OK) != 0)
    Fail();
  int descriptor = -1;
  std::string beside;
  do {
    beside = NameBeside(place_);
    descriptor = ::open(beside.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, kNewFileMode);
  } while (descriptor < 0 && errno == EEXIST);
  if (descriptor < 0)
    Fail();
  beside_ = std::make_unique<FleetingFile>(beside);
  file_.reset(::fdopen(descriptor, "wb"));
  if (!file_)
    Fail();
  if (!exists)
    return;
  // Whoever could read the older file can read the new one, as far as this user may give it away.
  [[maybe_unused]] const int given = ::fchown(descriptor, there.st_uid, there.st_gid);
  ::fchmod(descriptor, there.st_mode & ~static_cast<mode_t>(S_IFMT));
}

void WholeFile::OpenInPlace() {
  const int descriptor = ::open(place_.c_str(), O_WRONLY | O_CLOEXEC);
  if (descriptor < 0)
    Fail();
  file_.reset(::fdopen(descriptor, "wb"));
}

void WholeFile::Fail() const {
  const int reason = errno;
  if (IsInterrupted())
    throw CommandError("interrupted");
  throw CommandError(name_ + " can't be written: " + std::strerror(reason));
}

void WholeFile::Write(std::string_view bytes) {
  if (IsInterrupted())
    throw CommandError("interrupted");
  if (isStandardOutput_)
    std::cout << bytes;
  else if (std::fwrite(bytes.data(), 1, bytes.size(), file_.get()) != bytes.size())
    Fail();
}

void WholeFile::Finish() {
  if (isStandardOutput_) {
    std::cout.flush();
    return;
  }
  if (std::fflush(file_.get()) != 0)
    Fail();
  // Some file systems, and all devices, have nothing to wait for.
  if (beside_ && ::fsync(::fileno(file_.get())) != 0 && errno != EINVAL && errno != ENOSYS && errno != EINTR)
    Fail();
  if (std::fclose(file_.release()) != 0)
    Fail();
}

void WholeFile::TakePlace(Return way) {
  if (!beside_)
    return;
  if (older_ == Older::Refused) {
    if (!RenameUnlessTaken(beside_->Path(), place_)) {
      if (errno == EEXIST)
        RefuseOlder(name_);
      Fail();
    }
  } else {
    if (way == Return::Possible)
      KeepOlder();
    if (std::rename(beside_->Path().c_str(), place_.c_str()) != 0)
      Fail();
  }
  beside_->Keep();
  hasPlace_ = true;
}

void WholeFile::KeepOlder() {
  std::string before = NameBeside(place_);
  if (MoveAside(place_, before))
    before_ = std::make_unique<FleetingFile>(std::move(before));
  else if (errno != ENOENT)
    Fail();
}

void WholeFile::GiveBack() {
  if (before_ && std::rename(before_->Path().c_str(), place_.c_str()) != 0)
    before_->Keep();
  else if (!before_ && hasPlace_)
    ::unlink(place_.c_str());
}

void WholeFile::Commit(const std::vector<WholeFile*>& files) {
  for (WholeFile* const file : files) file->Finish();
  if (IsInterrupted())
    throw CommandError("interrupted");
  try {
    for (WholeFile* const file : files) file->TakePlace(files.size() > 1 ? Return::Possible : Return::Unneeded);
  } catch (const CommandError&) {
    for (WholeFile* const file : files) file->GiveBack();
    throw;
  }
  for (WholeFile* const file : files) file->before_.reset();
}

void WholeFile::Try(const std::string& name) {
  const std::optional<std::string> place = PlaceOf(name);
  struct stat there = {};
  // Opening a pipe would wait for its reader, and what is written to a device stays there.
  if (place && ::stat(place->c_str(), &there) == 0 && !S_ISREG(there.st_mode) && !S_ISDIR(there.st_mode)) {
    if (::access(place->c_str(), W_OK) != 0)
      throw CommandError(name + " can't be written: " + std::strerror(errno));
    return;
  }
  WholeFile{name};
  if (IsInterrupted())
    throw CommandError("interrupted");
}

bool WholeFile::IsSamePlace(const std::string& a, const std::string& b) {
  struct stat one = {}, other = {};
  if (::stat(a.c_str(), &one) == 0 && ::stat(b.c_str(), &other) == 0)
    return IsSameFile(one, other);
  const auto canonical = [](const std::string& name) {
    std::error_code ignored;
    return std::filesystem::weakly_canonical(std::filesystem::absolute(PlaceOf(name).value_or(name)), ignored);
  };
  return canonical(a) == canonical(b);
}

}  // namespace fiscalon
