#include "core/platform/files.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <utility>

#include "core/platform/code_page.h"
#include "core/platform/runtime_error.h"

namespace fiscalon {

namespace {

constexpr mode_t kNewFileMode = 0666;

/// The path as the system takes it; a NUL inside would silently name another file.
std::string SystemPath(std::string_view path) {
  if (path.find('\0') != path.npos)
    Raise(error_number::kPathFileAccessError);
  return ToUtf8(path);
}

[[noreturn]] void RaiseWriteError(int systemError) {
  const bool full = systemError == ENOSPC || systemError == EDQUOT;
  Raise(full ? error_number::kDiskFull : error_number::kPathFileAccessError);
}

[[noreturn]] void RaiseOpenError(int systemError, std::string_view path) {
  const bool missing = (systemError == ENOENT && !path.empty()) || systemError == ENOTDIR;
  if (missing)
    Raise(error_number::kPathNotFound);
  RaiseWriteError(systemError);
}

[[noreturn]] void RaiseDeleteError(int systemError) {
  switch (systemError) {
    case ENOENT:
      Raise(error_number::kFileNotFound);
    case ENOTDIR:
      Raise(error_number::kPathNotFound);
    case EACCES:
    case EPERM:
      Raise(error_number::kPermissionDenied);
    default:
      Raise(error_number::kPathFileAccessError);
  }
}

class SystemOutputFile : public OutputFile {
 public:
  explicit SystemOutputFile(int descriptor) : descriptor_(descriptor) {}
  ~SystemOutputFile() override {
    if (descriptor_ >= 0)
      ::close(descriptor_);
  }
  SystemOutputFile(const SystemOutputFile&) = delete;
  SystemOutputFile& operator=(const SystemOutputFile&) = delete;

  void Print(std::string_view bytes) override {
    while (!bytes.empty()) {
      const ssize_t written = ::write(descriptor_, bytes.data(), bytes.size());
      if (written >= 0)
        bytes.remove_prefix(static_cast<size_t>(written));
      else if (errno != EINTR)
        RaiseWriteError(errno);
    }
  }

  void Close() override {
    const int descriptor = std::exchange(descriptor_, -1);
    // An interrupted close has closed all the same.
    if (descriptor >= 0 && ::close(descriptor) != 0 && errno != EINTR)
      RaiseWriteError(errno);
  }

 private:
  int descriptor_;
};

}  // namespace

bool SystemFiles::Exists(std::string_view path) const {
  if (path.find('\0') != path.npos)
    return false;
  struct stat status = {};
  return ::stat(SystemPath(path).c_str(), &status) == 0 && !S_ISDIR(status.st_mode);
}

void SystemFiles::Delete(std::string_view path) {
  const std::string systemPath = SystemPath(path);
  struct stat status = {};
  if (::lstat(systemPath.c_str(), &status) != 0)
    RaiseDeleteError(errno);
  if (!S_ISREG(status.st_mode) && !S_ISLNK(status.st_mode))
    Raise(error_number::kPathFileAccessError);
  if (::unlink(systemPath.c_str()) != 0)
    RaiseDeleteError(errno);
}

std::unique_ptr<OutputFile> SystemFiles::Open(std::string_view path, OpenMode mode) {
  const std::string systemPath = SystemPath(path);
  const int placement = mode == OpenMode::Append ? O_APPEND : O_TRUNC;
  int descriptor = -1;
  do {
    descriptor = ::open(systemPath.c_str(), O_WRONLY | O_CREAT | O_CLOEXEC | placement, kNewFileMode);
  } while (descriptor < 0 && errno == EINTR);
  if (descriptor < 0)
    RaiseOpenError(errno, path);
  return std::make_unique<SystemOutputFile>(descriptor);
}

}  // namespace fiscalon
