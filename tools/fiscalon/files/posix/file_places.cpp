#include "tools/fiscalon/files/file_places.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/ioctl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <climits>
#include <cstdint>
#include <filesystem>
#include <memory>

#include "core/platform/utf8_path.h"

namespace fiscalon {
namespace {

constexpr mode_t kNewFileMode = 0666;

SeenFile Seen(const struct stat& status) {
  const FileKind kind = S_ISREG(status.st_mode)                                ? FileKind::File
                        : S_ISDIR(status.st_mode)                              ? FileKind::Folder
                        : S_ISFIFO(status.st_mode) || S_ISSOCK(status.st_mode) ? FileKind::Pipe
                                                                               : FileKind::Device;
  return {.kind = kind, .volume = status.st_dev, .number = status.st_ino};
}

std::optional<SeenFile> LookAtStream(int descriptor) {
  struct stat status = {};
  return ::fstat(descriptor, &status) == 0 ? std::optional(Seen(status)) : std::nullopt;
}

/// A stream of the descriptor, which is closed where there is none to be had.
std::FILE* StreamOf(int descriptor) {
  std::FILE* const file = descriptor < 0 ? nullptr : ::fdopen(descriptor, "wb");
  if (file == nullptr && descriptor >= 0) {
    const int reason = errno;
    ::close(descriptor);
    errno = reason;
  }
  return file;
}

}  // namespace

std::optional<SeenFile> LookAt(const std::string& path) {
  struct stat status = {};
  if (::stat(path.c_str(), &status) == 0)
    return Seen(status);
  return errno == ENOENT ? std::optional(SeenFile{}) : std::nullopt;
}

void LookAfresh(const std::string& path) {
#ifdef AT_STATX_FORCE_SYNC
  struct statx status = {};
  ::statx(AT_FDCWD, path.c_str(), AT_STATX_FORCE_SYNC, STATX_SIZE, &status);
#else
  struct stat status = {};
  ::stat(path.c_str(), &status);
#endif
}

std::optional<SeenFile> LookAtStandardInput() {
  return LookAtStream(STDIN_FILENO);
}

std::optional<SeenFile> LookAtStandardOutput() {
  return LookAtStream(STDOUT_FILENO);
}

size_t OutputTakesAtOnce() {
  struct stat status = {};
  if (::fstat(STDOUT_FILENO, &status) != 0 || (!S_ISFIFO(status.st_mode) && !S_ISSOCK(status.st_mode)))
    return SIZE_MAX;
  // An empty pipe takes as much as it holds; one that has any room so much at least, and all of that or nothing.
  int unread = 0;
  const int capacity = ::fcntl(STDOUT_FILENO, F_GETPIPE_SZ);
  const bool isEmpty = ::ioctl(STDOUT_FILENO, FIONREAD, &unread) == 0 && unread == 0;
  return isEmpty && capacity > PIPE_BUF ? static_cast<size_t>(capacity) : PIPE_BUF;
}

void WidenOutput(size_t bytes) {
  // Nothing but a pipe has such a size.
  const int capacity = ::fcntl(STDOUT_FILENO, F_GETPIPE_SZ);
  if (capacity >= 0 && static_cast<size_t>(capacity) < bytes)
    ::fcntl(STDOUT_FILENO, F_SETPIPE_SZ, static_cast<int>(bytes));
}

void TakeOutputBack(size_t count) {
  const off_t end = ::lseek(STDOUT_FILENO, 0, SEEK_CUR);
  struct stat status = {};
  // What somebody else has written behind it is not ours to take.
  if (end < 0 || ::fstat(STDOUT_FILENO, &status) != 0 || !S_ISREG(status.st_mode) || status.st_size != end)
    return;
  const off_t whole = end - static_cast<off_t>(count);
  if (::ftruncate(STDOUT_FILENO, whole) == 0)
    ::lseek(STDOUT_FILENO, whole, SEEK_SET);
}

bool NamesStandardOutput(const std::string& path) {
  return path == "/dev/stdout" || path == "/dev/fd/1" || path == "/proc/self/fd/1";
}

std::optional<std::string> PlaceOf(const std::string& path) {
  // The links of descriptors name nothing where these are pipes.
  if (const auto there = LookAt(path); there && there->TakesAsItComes())
    return path;
  // As many links as the system follows.
  constexpr int kMostLinks = 40;
  auto place = Utf8Path(path);
  std::error_code error;
  for (int links = 0; std::filesystem::is_symlink(place, error); ++links) {
    const auto target = std::filesystem::read_symlink(place, error);
    if (error || links == kMostLinks) {
      errno = ELOOP;
      return std::nullopt;
    }
    place = place.parent_path() / target;
  }
  return Utf8Of(place);
}

bool IsSameName(const std::string& a, const std::string& b) {
  const auto canonical = [](const std::string& name) {
    std::error_code ignored;
    return std::filesystem::weakly_canonical(std::filesystem::absolute(Utf8Path(PlaceOf(name).value_or(name))),
                                             ignored);
  };
  return canonical(a) == canonical(b);
}

bool MayBeWritten(const std::string& path) {
  return ::access(path.c_str(), W_OK) == 0;
}

/// Whoever finds the file unlocked takes it for abandoned, be it in the moment before it is locked: then it is one that
/// is taken already.
std::FILE* CreateNew(const std::string& path) {
  const int descriptor = ::open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, kNewFileMode);
  struct stat status = {};
  const bool isTaken = descriptor >= 0 && ::flock(descriptor, LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK;
  if (isTaken || (descriptor >= 0 && ::fstat(descriptor, &status) == 0 && status.st_nlink == 0)) {
    ::close(descriptor);
    errno = EEXIST;
    return nullptr;
  }
  return StreamOf(descriptor);
}

Claim::Claim(std::FILE* file) : descriptor_(::fcntl(::fileno(file), F_DUPFD_CLOEXEC, 0)) {}

Claim::~Claim() {
  if (descriptor_ >= 0)
    ::close(descriptor_);
}

/// By the system's own routines: the standard library's iterator ends the program where memory runs out under it.
void RemoveAbandoned(const std::string& folder, std::string_view namesBegin) {
  const std::unique_ptr<DIR, int (*)(DIR*)> entries(::opendir(folder.empty() ? "." : folder.c_str()), ::closedir);
  if (!entries)
    return;
  const int place = ::dirfd(entries.get());
  while (const dirent* const entry = ::readdir(entries.get())) {
    if (!std::string_view(entry->d_name).starts_with(namesBegin))
      continue;
    const int descriptor = ::openat(place, entry->d_name, O_RDONLY | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK);
    if (descriptor >= 0 && ::flock(descriptor, LOCK_EX | LOCK_NB) == 0)
      ::unlinkat(place, entry->d_name, 0);
    if (descriptor >= 0)
      ::close(descriptor);
  }
}

std::FILE* OpenThere(const std::string& path) {
  return StreamOf(::open(path.c_str(), O_WRONLY | O_CLOEXEC));
}

void GiveAccess(const std::string& older, std::FILE* newer) {
  struct stat there = {};
  if (::stat(older.c_str(), &there) != 0)
    return;
  [[maybe_unused]] const int given = ::fchown(::fileno(newer), there.st_uid, there.st_gid);
  ::fchmod(::fileno(newer), there.st_mode & ~static_cast<mode_t>(S_IFMT));
}

bool FlushToDisk(std::FILE* file) {
  // Some file systems have nothing to wait for.
  return ::fsync(::fileno(file)) == 0 || errno == EINVAL || errno == ENOSYS || errno == EINTR;
}

bool MoveOver(const std::string& from, const std::string& to) {
  return std::rename(from.c_str(), to.c_str()) == 0;
}

bool MoveUnlessTaken(const std::string& from, const std::string& to) {
  if (::renameat2(AT_FDCWD, from.c_str(), AT_FDCWD, to.c_str(), RENAME_NOREPLACE) == 0)
    return true;
  // File systems that can't tell in one step are asked in two.
  if (errno != EINVAL && errno != ENOSYS)
    return false;
  struct stat status = {};
  if (::lstat(to.c_str(), &status) == 0) {
    errno = EEXIST;
    return false;
  }
  return MoveOver(from, to);
}

bool MoveAside(const std::string& from, const std::string& to) {
  return ::link(from.c_str(), to.c_str()) == 0 || MoveOver(from, to);
}

bool Remove(const std::string& path) {
  return ::unlink(path.c_str()) == 0;
}

}  // namespace fiscalon
