#include "tools/fiscalon/files/file_places.h"

#include <fcntl.h>
#include <io.h>
#include <stdio.h>
#include <sys/stat.h>
#include <windows.h>

#include <cerrno>
#include <cstdint>
#include <filesystem>
#include <memory>

#include "core/platform/utf8_path.h"
#include "core/platform/windows/file_trouble.h"
#include "core/platform/windows/system_path.h"
#include "core/platform/windows/wide_text.h"

namespace fiscalon {
namespace {

constexpr DWORD kShared = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;

struct HandleCloser {
  using pointer = HANDLE;
  void operator()(HANDLE file) const {
    if (file != INVALID_HANDLE_VALUE)
      ::CloseHandle(file);
  }
};
using Handle = std::unique_ptr<HANDLE, HandleCloser>;

int ReasonOf(DWORD systemError) {
  switch (TroubleOf(systemError)) {
    case FileTrouble::NothingThere:
      return ENOENT;
    case FileTrouble::NameTaken:
      return EEXIST;
    case FileTrouble::Refused:
      return EACCES;
    case FileTrouble::DiskFull:
      return ENOSPC;
    case FileTrouble::BadName:
      return EINVAL;
    case FileTrouble::Other:
      break;
  }
  return EIO;
}

/// The result of a call of the system, with its reason in `errno` where it failed.
bool Done(BOOL result) {
  if (!result)
    errno = ReasonOf(::GetLastError());
  return result != FALSE;
}

/// Follows links and asks for no right to read.
Handle OpenToLook(const std::string& path) {
  return Handle(::CreateFileW(SystemPath(path).c_str(), FILE_READ_ATTRIBUTES, kShared, nullptr, OPEN_EXISTING,
                              FILE_FLAG_BACKUP_SEMANTICS, nullptr));
}

std::optional<SeenFile> LookAtHandle(HANDLE file) {
  if (const DWORD type = ::GetFileType(file); type != FILE_TYPE_DISK)
    return SeenFile{.kind = type == FILE_TYPE_PIPE ? FileKind::Pipe : FileKind::Device};
  BY_HANDLE_FILE_INFORMATION information = {};
  if (!Done(::GetFileInformationByHandle(file, &information)))
    return std::nullopt;
  const bool isFolder = (information.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
  return SeenFile{.kind = isFolder ? FileKind::Folder : FileKind::File,
                  .volume = information.dwVolumeSerialNumber,
                  .number = uint64_t{information.nFileIndexHigh} << 32 | information.nFileIndexLow};
}

std::FILE* StreamOf(const std::string& path, int flags) {
  const int descriptor =
      ::_wopen(SystemPath(path).c_str(), _O_WRONLY | _O_BINARY | _O_NOINHERIT | flags, _S_IREAD | _S_IWRITE);
  return descriptor < 0 ? nullptr : ::_wfdopen(descriptor, L"wb");
}

}  // namespace

std::optional<SeenFile> LookAt(const std::string& path) {
  const Handle file = OpenToLook(path);
  if (file.get() != INVALID_HANDLE_VALUE)
    return LookAtHandle(file.get());
  errno = ReasonOf(::GetLastError());
  return errno == ENOENT ? std::optional(SeenFile{}) : std::nullopt;
}

void LookAfresh(const std::string& path) {
  OpenToLook(path);
}

std::optional<SeenFile> LookAtStandardInput() {
  return LookAtHandle(::GetStdHandle(STD_INPUT_HANDLE));
}

std::optional<SeenFile> LookAtStandardOutput() {
  return LookAtHandle(::GetStdHandle(STD_OUTPUT_HANDLE));
}

/// Interrupts cut nothing here: they come on a thread of their own.
size_t OutputTakesAtOnce() {
  return SIZE_MAX;
}

/// Who reads a pipe here has given it its size.
void WidenOutput(size_t /*bytes*/) {}

void TakeOutputBack(size_t count) {
  const HANDLE output = ::GetStdHandle(STD_OUTPUT_HANDLE);
  LARGE_INTEGER end = {}, size = {};
  if (::GetFileType(output) != FILE_TYPE_DISK || !::SetFilePointerEx(output, {}, &end, FILE_CURRENT) ||
      !::GetFileSizeEx(output, &size) || size.QuadPart != end.QuadPart)
    return;
  end.QuadPart -= static_cast<LONGLONG>(count);
  if (::SetFilePointerEx(output, end, nullptr, FILE_BEGIN))
    ::SetEndOfFile(output);
}

bool NamesStandardOutput(const std::string& path) {
  return ::_wcsicmp(Utf8ToWide(path).c_str(), L"CONOUT$") == 0;
}

std::optional<std::string> PlaceOf(const std::string& path) {
  const DWORD attributes = ::GetFileAttributesW(SystemPath(path).c_str());
  if (attributes == INVALID_FILE_ATTRIBUTES || (attributes & FILE_ATTRIBUTE_REPARSE_POINT) == 0)
    return path;
  const Handle target = OpenToLook(path);
  if (target.get() == INVALID_HANDLE_VALUE)
    return path;
  std::wstring place(::GetFinalPathNameByHandleW(target.get(), nullptr, 0, 0), L'\0');
  place.resize(::GetFinalPathNameByHandleW(target.get(), place.data(), static_cast<DWORD>(place.size()), 0));
  return place.empty() ? path : WideToUtf8(place);
}

bool IsSameName(const std::string& a, const std::string& b) {
  const auto whole = [](const std::string& name) {
    std::error_code ignored;
    const auto path = std::filesystem::absolute(Utf8Path(PlaceOf(name).value_or(name)), ignored);
    return path.lexically_normal().make_preferred().wstring();
  };
  return ::CompareStringOrdinal(whole(a).c_str(), -1, whole(b).c_str(), -1, TRUE) == CSTR_EQUAL;
}

bool MayBeWritten(const std::string& path) {
  constexpr int kToWrite = 2;
  return ::_waccess(SystemPath(path).c_str(), kToWrite) == 0;
}

std::FILE* CreateNew(const std::string& path) {
  return StreamOf(path, _O_CREAT | _O_EXCL);
}

/// Nothing tells here which files a run has left behind.
Claim::Claim(std::FILE* /*file*/) {}
Claim::~Claim() = default;
void RemoveAbandoned(const std::string& /*folder*/, std::string_view /*namesBegin*/) {}

std::FILE* OpenThere(const std::string& path) {
  return StreamOf(path, 0);
}

/// `MoveOver` hands on what the older file allows.
void GiveAccess(const std::string& /*older*/, std::FILE* /*newer*/) {}

bool FlushToDisk(std::FILE* file) {
  return ::_commit(::_fileno(file)) == 0;
}

bool MoveOver(const std::string& from, const std::string& to) {
  const std::wstring source = SystemPath(from), target = SystemPath(to);
  // A file system without rights can't hand them on.
  return ::ReplaceFileW(target.c_str(), source.c_str(), nullptr, REPLACEFILE_IGNORE_MERGE_ERRORS, nullptr, nullptr) ||
         Done(::MoveFileExW(source.c_str(), target.c_str(), MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH));
}

bool MoveUnlessTaken(const std::string& from, const std::string& to) {
  return Done(::MoveFileExW(SystemPath(from).c_str(), SystemPath(to).c_str(), MOVEFILE_WRITE_THROUGH));
}

bool MoveAside(const std::string& from, const std::string& to) {
  return ::CreateHardLinkW(SystemPath(to).c_str(), SystemPath(from).c_str(), nullptr) ||
         Done(::MoveFileExW(SystemPath(from).c_str(), SystemPath(to).c_str(), MOVEFILE_WRITE_THROUGH));
}

bool Remove(const std::string& path) {
  return Done(::DeleteFileW(SystemPath(path).c_str()));
}

}  // namespace fiscalon
