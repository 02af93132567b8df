#include "core/platform/mapped_file.h"

#include <fcntl.h>
#include <stdio.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

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
  return std::unique_ptr<MappedFile>(
      new MappedFile({static_cast<const char*>(bytes), size}, ::fcntl(descriptor, F_DUPFD_CLOEXEC, 0)));
}

void MappedFile::ReturnPages(std::string_view part) const {
  // The system knows whole pages. Neighbours on the first and the last one are found again, too.
  const auto pageBytes = static_cast<size_t>(::sysconf(_SC_PAGESIZE));
  const size_t before = static_cast<size_t>(part.data() - bytes_.data()) % pageBytes;
  ::madvise(const_cast<char*>(part.data()) - before, before + part.size(), MADV_DONTNEED);
}

MappedFile::Stamp MappedFile::Now() const {
  constexpr int64_t kNanoseconds = 1'000'000'000;
  struct stat status = {};
  if (::fstat(descriptor_, &status) != 0)
    return {};
  return {.size = static_cast<uint64_t>(status.st_size),
          .written = status.st_mtim.tv_sec * kNanoseconds + status.st_mtim.tv_nsec};
}

bool MappedFile::HasChanged() const {
  return Now() != mapped_;
}

MappedFile::~MappedFile() {
  if (descriptor_ >= 0)
    ::close(descriptor_);
  ::munmap(const_cast<char*>(bytes_.data()), bytes_.size());
}

}  // namespace fiscalon
