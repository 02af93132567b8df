#include "core/platform/mapped_file.h"

#include <io.h>
#include <stdio.h>
#include <windows.h>

#include <cstdint>
#include <limits>

namespace fiscalon {

std::unique_ptr<MappedFile> MappedFile::Of(std::FILE* file) {
  const auto handle = reinterpret_cast<HANDLE>(::_get_osfhandle(::_fileno(file)));
  LARGE_INTEGER size = {};
  if (handle == INVALID_HANDLE_VALUE || ::GetFileType(handle) != FILE_TYPE_DISK || !::GetFileSizeEx(handle, &size))
    return nullptr;
  if (size.QuadPart == 0 || static_cast<uint64_t>(size.QuadPart) > std::numeric_limits<size_t>::max())
    return nullptr;
  const HANDLE mapping = ::CreateFileMappingW(handle, nullptr, PAGE_READONLY, 0, 0, nullptr);
  if (mapping == nullptr)
    return nullptr;
  // The view keeps the mapping.
  const void* const bytes = ::MapViewOfFile(mapping, FILE_MAP_READ, 0, 0, 0);
  ::CloseHandle(mapping);
  if (bytes == nullptr)
    return nullptr;
  const int again = ::_dup(::_fileno(file));
  if (again < 0) {
    ::UnmapViewOfFile(bytes);
    return nullptr;
  }
  return std::unique_ptr<MappedFile>(
      new MappedFile({static_cast<const char*>(bytes), static_cast<size_t>(size.QuadPart)}, again));
}

std::optional<std::string_view> MappedFile::Read(std::string_view part, std::string& /*storage*/) const {
  return part;
}

MappedFile::Stamp MappedFile::Now() const {
  BY_HANDLE_FILE_INFORMATION information = {};
  if (!::GetFileInformationByHandle(reinterpret_cast<HANDLE>(::_get_osfhandle(descriptor_)), &information))
    return {};
  return {.size = uint64_t{information.nFileSizeHigh} << 32 | information.nFileSizeLow,
          .written = static_cast<int64_t>(uint64_t{information.ftLastWriteTime.dwHighDateTime} << 32 |
                                          information.ftLastWriteTime.dwLowDateTime)};
}

MappedFile::~MappedFile() {
  ::_close(descriptor_);
  ::UnmapViewOfFile(bytes_.data());
}

}  // namespace fiscalon
