#include "core/platform/mapped_file.h"

#include <errno.h>
#include <fcntl.h>
#include <stdio.h>
#include <sys/mman.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

namespace fiscalon {

namespace {

/// Systems map a few pages around the one that is looked at, and some map a file in much larger pieces. What is mapped
/// in pieces beyond this is quicker to look at than to read.
constexpr size_t kSmallPiece = size_t{128} << 10;

/// How often this thread has looked at a page that was not mapped yet.
long PageFaults() {
  rusage usage = {};
  ::getrusage(RUSAGE_THREAD, &usage);
  return usage.ru_minflt + usage.ru_majflt;
}

void LookAt(const char& byte) {
  [[maybe_unused]] const char seen = static_cast<const volatile char&>(byte);
}

/// Whether the system, asked for the start of a part, maps a good deal of it at once.
bool IsInALargePiece(std::string_view part) {
  LookAt(part.front());
  const long before = PageFaults();
  LookAt(part[kSmallPiece]);
  return PageFaults() == before;
}

}  // namespace

std::unique_ptr<MappedFile> MappedFile::Of(std::FILE* file) {
  const int descriptor = ::fileno(file);
  struct stat status = {};
  if (::fstat(descriptor, &status) != 0 || !S_ISREG(status.st_mode) || status.st_size == 0)
    return nullptr;
  const auto size = static_cast<size_t>(status.st_size);
  void* const bytes = ::mmap(nullptr, size, PROT_READ, MAP_PRIVATE, descriptor, 0);
  if (bytes == MAP_FAILED)
    return nullptr;
  const int again = ::fcntl(descriptor, F_DUPFD_CLOEXEC, 0);
  if (again < 0) {
    ::munmap(bytes, size);
    return nullptr;
  }
  ::madvise(bytes, size, MADV_SEQUENTIAL);
  return std::unique_ptr<MappedFile>(new MappedFile({static_cast<const char*>(bytes), size}, again));
}

std::optional<std::string_view> MappedFile::Read(std::string_view part, std::string& storage) const {
  // Neighbours are mostly alike, and to ask each part would take longer than to read it.
  constexpr unsigned kAlike = 16;
  const off_t from = part.data() - bytes_.data();
  // Pages that a shorter file has no longer can't be looked at.
  if (part.size() > kSmallPiece && static_cast<uint64_t>(from) + part.size() <= Now().size) {
    if (partsRead_++ % kAlike == 0)
      isInLargePieces_ = IsInALargePiece(part);
    if (isInLargePieces_)
      return part;
  }
  storage.resize(part.size());
  size_t read = 0;
  while (read < part.size()) {
    const ssize_t more =
        ::pread(descriptor_, storage.data() + read, part.size() - read, from + static_cast<off_t>(read));
    if (more < 0 && errno == EINTR)
      continue;
    if (more < 0)
      return std::nullopt;
    if (more == 0)
      break;
    read += static_cast<size_t>(more);
  }
  return std::string_view(storage).substr(0, read);
}

MappedFile::Stamp MappedFile::Now() const {
  constexpr int64_t kNanoseconds = 1'000'000'000;
  struct stat status = {};
  if (::fstat(descriptor_, &status) != 0)
    return {};
  return {.size = static_cast<uint64_t>(status.st_size),
          .written = status.st_mtim.tv_sec * kNanoseconds + status.st_mtim.tv_nsec};
}

MappedFile::~MappedFile() {
  ::close(descriptor_);
  ::munmap(const_cast<char*>(bytes_.data()), bytes_.size());
}

}  // namespace fiscalon
