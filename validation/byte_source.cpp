#include "validation/byte_source.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstring>

#include "validation/batch_error.h"

#if __has_include(<sys/mman.h>)
#include <fcntl.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>
#endif

namespace fiscalon {

namespace {

[[noreturn]] void Fail(const std::string& name, const std::string& what) {
  const int reason = errno;
  throw BatchError(name, what + ": " + std::strerror(reason));
}

/// Bytes that lie in one piece.
class Memory : public ByteSource {
 public:
  Memory(std::string_view bytes, std::string name) : ByteSource(std::move(name)), all_(bytes), rest_(bytes) {}

  std::string_view Peek(size_t) override { return rest_; }
  void Skip(size_t count) override { rest_.remove_prefix(count); }
  bool Stays() const override { return true; }
  std::optional<size_t> Size() const override { return all_.size(); }

 protected:
  std::string_view all_;

 private:
  std::string_view rest_;
};

/// Bytes that come through a pipe.
class Stream : public ByteSource {
 public:
  Stream(std::FILE* file, std::string name) : ByteSource(std::move(name)), file_(file) {}
  ~Stream() override {
    if (file_ != stdin)
      std::fclose(file_);
  }

  std::string_view Peek(size_t atLeast) override {
    while (buffer_.size() - start_ < atLeast && !atEnd_) Fill(atLeast);
    return std::string_view(buffer_).substr(start_);
  }
  void Skip(size_t count) override { start_ += count; }
  bool Stays() const override { return false; }
  std::optional<size_t> Size() const override { return std::nullopt; }

 private:
  void Fill(size_t atLeast) {
    buffer_.erase(0, start_);
    start_ = 0;
    const size_t held = buffer_.size();
    buffer_.resize(std::max(atLeast, held + BUFSIZ));
    const size_t read = std::fread(buffer_.data() + held, 1, buffer_.size() - held, file_);
    buffer_.resize(held + read);
    if (std::ferror(file_))
      Fail(Name(), "can't be read");
    atEnd_ = std::feof(file_) != 0;
  }

  std::FILE* file_;
  std::string buffer_;
  size_t start_ = 0;
  bool atEnd_ = false;
};

#if __has_include(<sys/mman.h>)

class MappedFile : public Memory {
 public:
  using Memory::Memory;
  ~MappedFile() override { ::munmap(const_cast<char*>(all_.data()), all_.size()); }
};

std::unique_ptr<ByteSource> OpenFile(const std::string& path) {
  const int descriptor = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
  struct stat status = {};
  if (descriptor < 0 || ::fstat(descriptor, &status) != 0)
    Fail(path, "can't be opened");
  if (S_ISREG(status.st_mode) && status.st_size > 0) {
    const auto size = static_cast<size_t>(status.st_size);
    void* const bytes = ::mmap(nullptr, size, PROT_READ, MAP_PRIVATE, descriptor, 0);
    if (bytes != MAP_FAILED) {
      ::close(descriptor);
      ::madvise(bytes, size, MADV_SEQUENTIAL);
      return std::make_unique<MappedFile>(std::string_view(static_cast<const char*>(bytes), size), path);
    }
  }
  return std::make_unique<Stream>(::fdopen(descriptor, "rb"), path);
}

#else

std::unique_ptr<ByteSource> OpenFile(const std::string& path) {
  if (std::FILE* const file = std::fopen(path.c_str(), "rb"))
    return std::make_unique<Stream>(file, path);
  Fail(path, "can't be opened");
}

#endif

}  // namespace

std::unique_ptr<ByteSource> ByteSource::Open(const std::string& path) {
  if (path == "-")
    return std::make_unique<Stream>(stdin, "standard input");
  return OpenFile(path);
}

std::unique_ptr<ByteSource> ByteSource::Of(std::string_view bytes, std::string name) {
  return std::make_unique<Memory>(bytes, std::move(name));
}

}  // namespace fiscalon
