#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace fiscalon {

/// Bytes that are read from their start to their end, once: a mapped file, a pipe, or a host's own buffer.
class ByteSource {
 public:
  /// A file by its path in the system's own encoding; "-" is standard input. A file is mapped, so that any
  /// size takes no memory of its own. Throws `BatchError` where it can't be opened.
  static std::unique_ptr<ByteSource> Open(const std::string& path);

  /// A buffer that stays where it is. The name stands in messages.
  static std::unique_ptr<ByteSource> Of(std::string_view bytes, std::string name);

  /// A stretch of a file, which this stands before. Both stay where they are, as long as the file is open.
  static std::unique_ptr<ByteSource> Stretch(const ByteSource& file, std::string_view before, std::string_view bytes);

  virtual ~ByteSource() = default;

  /// How messages call it.
  const std::string& Name() const { return name_; }

  /// The next bytes, at least that many unless the end comes first. The view holds until the next call of a
  /// member; where `Stays` is true, as long as the source. Throws `BatchError` where reading fails.
  virtual std::string_view Peek(size_t atLeast) = 0;
  /// Goes on behind bytes that `Peek` has shown.
  virtual void Skip(size_t count) = 0;
  /// Whether what `Peek` shows lasts as long as the source.
  virtual bool Stays() const = 0;
  /// Throws `BatchError` where a file has been written to since it was opened: nothing that was read of it counts then.
  virtual void RefuseChange() const {}
  /// How many bytes there are in all, where that is known.
  virtual std::optional<size_t> Size() const = 0;
  /// Whether a file starts here, rather than a stretch of it.
  virtual bool IsFromTheStart() const { return true; }
  /// How many lines the file has before these bytes. They are counted when this is asked.
  virtual uint64_t LinesBefore() const { return 0; }

  /// What `Peek` has shown, as long as that holds: read into `storage` where that is quicker than to look at it there,
  /// as it is for a file whose pages are small. Where the source stays, threads may call it side by side. Throws
  /// `BatchError` where reading fails, or the file has become shorter.
  std::string_view Load(std::string_view shown, std::string& storage) const;

 protected:
  /// The name stands in messages.
  explicit ByteSource(std::string name) : name_(std::move(name)) {}

 private:
  std::string name_;
};

}  // namespace fiscalon
