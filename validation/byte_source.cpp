#include "validation/byte_source.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstring>

#include "core/platform/input.h"
#include "core/platform/mapped_file.h"
#include "validation/batch_error.h"

namespace fiscalon {

namespace {

[[noreturn]] void Fail(const std::string& name, const std::string& what) {
  const int reason = errno;
  throw BatchError(name, what + ": " + std::strerror(reason));
}

/// Bytes that lie in one piece.
class Memory : public ByteSource {
 public:
  /// The file is that which the bytes are mapped from, if they are.
  Memory(std::string_view bytes, std::string name, std::shared_ptr<const MappedFile> file)
      : ByteSource(std::move(name)), file_(std::move(file)), bytes_(bytes), rest_(bytes) {}

  /// The file that a source is mapped from; null where it is not.
  static std::shared_ptr<const MappedFile> FileOf(const ByteSource& source) {
    const auto* const memory = dynamic_cast<const Memory*>(&source);
    return memory == nullptr ? nullptr : memory->file_;
  }

  std::string_view Read(std::string_view shown, std::string& storage) const {
    if (!file_)
      return shown;
    const std::optional<std::string_view> read = file_->Read(shown, storage);
    if (!read)
      Fail(Name(), "can't be read");
    if (read->size() < shown.size())
      throw BatchError(Name(), "the file became shorter while it was read");
    return *read;
  }

  std::string_view Peek(size_t) override { return rest_; }
  void Skip(size_t count) override { rest_.remove_prefix(count); }
  bool Stays() const override { return true; }
  void RefuseChange() const override {
    if (file_ && file_->HasChanged())
      throw BatchError(Name(), "the file changed while it was read");
  }
  std::optional<size_t> Size() const override { return bytes_.size(); }

 private:
  std::shared_ptr<const MappedFile> file_;
  std::string_view bytes_;
  std::string_view rest_;
};

/// Bytes that lie behind others of the same file.
class MiddleOfMemory : public Memory {
 public:
  MiddleOfMemory(const ByteSource& file, std::string_view before, std::string_view bytes)
      : Memory(bytes, file.Name(), FileOf(file)), file_(file), before_(before) {}

  void RefuseChange() const override { file_.RefuseChange(); }

  bool IsFromTheStart() const override { return before_.empty(); }
  uint64_t LinesBefore() const override {
    return static_cast<uint64_t>(std::count(before_.begin(), before_.end(), '\n'));
  }

 private:
  const ByteSource& file_;
  std::string_view before_;
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

}  // namespace

std::unique_ptr<ByteSource> ByteSource::Open(const std::string& path) {
  if (path == "-")
    return std::make_unique<Stream>(stdin, "standard input");
  std::FILE* const file = OpenInput(path);
  if (!file)
    Fail(path, "can't be opened");
  if (const std::shared_ptr<const MappedFile> mapped = MappedFile::Of(file)) {
    std::fclose(file);
    return std::make_unique<Memory>(mapped->Bytes(), path, mapped);
  }
  return std::make_unique<Stream>(file, path);
}

std::unique_ptr<ByteSource> ByteSource::Of(std::string_view bytes, std::string name) {
  return std::make_unique<Memory>(bytes, std::move(name), nullptr);
}

std::unique_ptr<ByteSource> ByteSource::Stretch(const ByteSource& file, std::string_view before,
                                                std::string_view bytes) {
  return std::make_unique<MiddleOfMemory>(file, before, bytes);
}

std::string_view ByteSource::Load(std::string_view shown, std::string& storage) const {
  // Not virtual: programs have sources of their own, whose layout stays.
  const auto* const memory = dynamic_cast<const Memory*>(this);
  return memory == nullptr ? shown : memory->Read(shown, storage);
}

}  // namespace fiscalon
