#include "core/platform/mapped_file.h"

#include <stdio.h>
#include <sys/mman.h>
#include <sys/stat.h>

namespace fiscalon {

std::unique_ptr<MappedFile> MappedFile::Of(std::FILE* file) {
  const int descriptor = ::fileno(file);
  struct stat status = {};
  if (::fstat(descriptor, &status) != 0 || !S_ISREG(status.st_mode) || status.st_size == 0)
    return nullptr;
  const auto size = static_cast<size_t>(status.st_size);
  void* const bytes = ::mmap(nullptr, size, PROT_READ, MAP_PRIVATE, descriptor, 0);
  if (bytes == MAP_FAILED)
    return nullptr;
  ::madvise(bytes, size, MADV_SEQUENTIAL);
  return std::unique_ptr<MappedFile>(new MappedFile({static_cast<const char*>(bytes), size}));
}

MappedFile::~MappedFile() {
  ::munmap(const_cast<char*>(bytes_.data()), bytes_.size());
}

}  // namespace fiscalon
