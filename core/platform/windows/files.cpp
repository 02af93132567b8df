#include "core/platform/files.h"

#include <windows.h>

#include <algorithm>
#include <limits>
#include <utility>

#include "core/platform/code_page.h"
#include "core/platform/runtime_error.h"
#include "core/platform/windows/file_trouble.h"
#include "core/platform/windows/system_path.h"

namespace fiscalon {

namespace {

constexpr DWORD kShared = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;

/// The path as the system takes it; a NUL inside would silently name another file.
std::wstring NamedPath(std::string_view path) {
  if (path.find('\0') != path.npos)
    Raise(error_number::kPathFileAccessError);
  return SystemPath(ToUtf8(path));
}

bool IsFolder(DWORD attributes) {
  return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

/// Whether what should be a folder of the path is something else. The system has one error for this and for a folder
/// that is not there.
bool LeadsThroughAFile(std::string_view path) {
  for (std::string folder = Files::ParentFolder(path); !folder.empty(); folder = Files::ParentFolder(folder)) {
    const DWORD attributes = ::GetFileAttributesW(NamedPath(folder).c_str());
    if (attributes != INVALID_FILE_ATTRIBUTES)
      return !IsFolder(attributes);
  }
  return false;
}

[[noreturn]] void RaiseWriteError(DWORD systemError) {
  Raise(TroubleOf(systemError) == FileTrouble::DiskFull ? error_number::kDiskFull : error_number::kPathFileAccessError);
}

[[noreturn]] void RaiseOpenError(DWORD systemError, std::string_view path) {
  if (TroubleOf(systemError) == FileTrouble::NothingThere && !path.empty())
    Raise(error_number::kPathNotFound);
  RaiseWriteError(systemError);
}

[[noreturn]] void RaiseDeleteError(DWORD systemError, std::string_view path) {
  switch (TroubleOf(systemError)) {
    case FileTrouble::NothingThere:
      Raise(LeadsThroughAFile(path) ? error_number::kPathNotFound : error_number::kFileNotFound);
    case FileTrouble::Refused:
      Raise(error_number::kPermissionDenied);
    default:
      Raise(error_number::kPathFileAccessError);
  }
}

class SystemOutputFile : public OutputFile {
 public:
  explicit SystemOutputFile(HANDLE file) : file_(file) {}
  ~SystemOutputFile() override {
    if (file_ != INVALID_HANDLE_VALUE)
      ::CloseHandle(file_);
  }
  SystemOutputFile(const SystemOutputFile&) = delete;
  SystemOutputFile& operator=(const SystemOutputFile&) = delete;

  void Print(std::string_view bytes) override {
    while (!bytes.empty()) {
      const auto piece = static_cast<DWORD>(std::min<size_t>(bytes.size(), std::numeric_limits<DWORD>::max()));
      DWORD written = 0;
      if (!::WriteFile(file_, bytes.data(), piece, &written, nullptr))
        RaiseWriteError(::GetLastError());
      bytes.remove_prefix(written);
    }
  }

  void Close() override {
    const HANDLE file = std::exchange(file_, INVALID_HANDLE_VALUE);
    if (file != INVALID_HANDLE_VALUE && !::CloseHandle(file))
      RaiseWriteError(::GetLastError());
  }

 private:
  HANDLE file_;
};

}  // namespace

bool SystemFiles::Exists(std::string_view path) const {
  if (path.find('\0') != path.npos)
    return false;
  // To open it follows links, and asks for no right to read.
  const HANDLE file = ::CreateFileW(NamedPath(path).c_str(), FILE_READ_ATTRIBUTES, kShared, nullptr, OPEN_EXISTING,
                                    FILE_FLAG_BACKUP_SEMANTICS, nullptr);
  if (file == INVALID_HANDLE_VALUE)
    return false;
  BY_HANDLE_FILE_INFORMATION information = {};
  const bool isFolder = ::GetFileInformationByHandle(file, &information) != 0 && IsFolder(information.dwFileAttributes);
  ::CloseHandle(file);
  return !isFolder;
}

void SystemFiles::Delete(std::string_view path) {
  const std::wstring systemPath = NamedPath(path);
  if (IsFolder(::GetFileAttributesW(systemPath.c_str())))
    Raise(error_number::kPathFileAccessError);
  if (!::DeleteFileW(systemPath.c_str()))
    RaiseDeleteError(::GetLastError(), path);
}

std::unique_ptr<OutputFile> SystemFiles::Open(std::string_view path, OpenMode mode) {
  // To append and no more puts each line at the end, whoever else writes.
  const DWORD access = mode == OpenMode::Append ? FILE_APPEND_DATA | SYNCHRONIZE : GENERIC_WRITE;
  const HANDLE file = ::CreateFileW(NamedPath(path).c_str(), access, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr,
                                    OPEN_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
  if (file == INVALID_HANDLE_VALUE)
    RaiseOpenError(::GetLastError(), path);
  auto opened = std::make_unique<SystemOutputFile>(file);
  // Emptied and not made anew, so that a hidden file stays one. What is no disk file has nothing to empty.
  if (mode == OpenMode::Output && ::GetFileType(file) == FILE_TYPE_DISK && !::SetEndOfFile(file))
    RaiseWriteError(::GetLastError());
  return opened;
}

}  // namespace fiscalon
