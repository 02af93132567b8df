#include "core/platform/windows/file_trouble.h"

namespace fiscalon {
namespace {

/// `ERROR_DISK_QUOTA_EXCEEDED`, which not all headers have.
constexpr DWORD kDiskQuotaExceeded = 1295;

}  // namespace

FileTrouble TroubleOf(DWORD systemError) {
  switch (systemError) {
    case ERROR_FILE_NOT_FOUND:
    case ERROR_PATH_NOT_FOUND:
    case ERROR_DIRECTORY:
    case ERROR_INVALID_DRIVE:
    case ERROR_BAD_NETPATH:
    case ERROR_BAD_NET_NAME:
      return FileTrouble::NothingThere;
    case ERROR_ALREADY_EXISTS:
    case ERROR_FILE_EXISTS:
      return FileTrouble::NameTaken;
    case ERROR_ACCESS_DENIED:
    case ERROR_SHARING_VIOLATION:
    case ERROR_LOCK_VIOLATION:
    case ERROR_WRITE_PROTECT:
      return FileTrouble::Refused;
    case ERROR_DISK_FULL:
    case ERROR_HANDLE_DISK_FULL:
    case kDiskQuotaExceeded:
      return FileTrouble::DiskFull;
    case ERROR_INVALID_NAME:
    case ERROR_FILENAME_EXCED_RANGE:
      return FileTrouble::BadName;
    default:
      return FileTrouble::Other;
  }
}

}  // namespace fiscalon
