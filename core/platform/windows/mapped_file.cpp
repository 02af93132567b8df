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
  return std::unique_ptr<MappedFile>(
      new MappedFile({static_cast<const char*>(bytes), static_cast<size_t>(size.QuadPart)}));
}

MappedFile::~MappedFile() {
  ::UnmapViewOfFile(bytes_.data());
}

}  // namespace fiscalon
