#include "tools/fiscalon/files/line_reader.h"

#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <limits>
#include <utility>

#include "core/platform/input.h"
#include "tools/fiscalon/files/interrupt_watch.h"
#include "tools/fiscalon/files/program_end.h"
#include "tools/reading/shown_record.h"

namespace fiscalon {
namespace {

/// Small enough to stay in the cache until its lines are printed.
constexpr size_t kBufferBytes = size_t{128} << 10;
static_assert(kBufferBytes > 2 * kLongestLine);

/// How many bytes of a file are still to be read; nothing for what is no plain file. Files that the system makes up
/// while they are read have no length.
std::optional<uint64_t> BytesLeft(std::FILE* file) {
  struct stat found = {};
  const int descriptor = ::fileno(file);
  if (::fstat(descriptor, &found) != 0 || !S_ISREG(found.st_mode) || found.st_size == 0)
    return std::nullopt;
  const off_t at = ::lseek(descriptor, 0, SEEK_CUR);
  return static_cast<uint64_t>(std::max<off_t>(found.st_size - std::max<off_t>(at, 0), 0));
}

}  // namespace

void LineReader::Closer::operator()(std::FILE* file) const {
  if (file != stdin)
    std::fclose(file);
}

LineReader::LineReader(const std::string& path, std::function<void()> beforeRead)
    : name_(path == "-" ? "standard input" : path),
      beforeRead_(std::move(beforeRead)),
      file_(path == "-" ? stdin : OpenInput(path)),
      buffer_(kBufferBytes) {
  if (!file_)
    Fail(std::string("can't be read: ") + std::strerror(errno));
  size_ = BytesLeft(file_.get());
}

bool LineReader::Next(ReadLine& line) {
  size_t searched = 0;
  for (;;) {
    const char* const from = buffer_.data() + start_;
    const size_t held = end_ - start_;
    if (const void* newline = std::memchr(from + searched, '\n', held - searched)) {
      std::string_view bytes(from, static_cast<size_t>(static_cast<const char*>(newline) - from) + 1);
      if (bytes.size() > kLongestLine)
        return NextLong(line);
      start_ += bytes.size();
      line = {.line = TakeRecordLine(bytes)};
      return true;
    }
    if (held > kLongestLine)
      return NextLong(line);
    searched = held;
    if (!Fill())
      break;
  }
  CheckSize();
  if (start_ == end_)
    return false;
  std::string_view bytes(buffer_.data() + start_, end_ - start_);
  start_ = end_;
  line = {.line = TakeRecordLine(bytes)};
  return true;
}

/// Of a line that is too long its beginning is kept, and as much of its end as may stand around the record.
bool LineReader::NextLong(ReadLine& line) {
  constexpr size_t kMostBehindRecord = 3;
  std::string behind;
  uint64_t hidden = 0;
  bool ends = false;
  long_.assign(buffer_.data() + start_, kLongestLine);
  start_ += kLongestLine;
  do {
    std::string_view bytes(buffer_.data() + start_, end_ - start_);
    const size_t newline = bytes.find('\n');
    ends = newline != std::string_view::npos;
    bytes = bytes.substr(0, ends ? newline + 1 : newline);
    start_ += bytes.size();
    hidden += behind.size() + bytes.size();
    behind.append(bytes.substr(bytes.size() - std::min(bytes.size(), kMostBehindRecord)));
    behind.erase(0, behind.size() - std::min(behind.size(), kMostBehindRecord));
    hidden -= behind.size();
  } while (!ends && Fill());
  if (!ends)
    CheckSize();
  long_ += behind;
  std::string_view bytes(long_);
  line = {.line = TakeRecordLine(bytes), .hidden = hidden};
  return true;
}

bool LineReader::Fill() {
  if (atEnd_)
    return false;
  std::copy(buffer_.begin() + static_cast<std::ptrdiff_t>(start_), buffer_.begin() + static_cast<std::ptrdiff_t>(end_),
            buffer_.begin());
  end_ -= start_;
  start_ = 0;
  size_t wanted = buffer_.size() - end_;
  // What is added to the file meanwhile is left alone: it may be this very output.
  if (size_)
    wanted = static_cast<size_t>(std::min<uint64_t>(wanted, *size_ - bytesRead_));
  const size_t read = wanted == 0 ? 0 : Read(buffer_.data() + end_, wanted);
  end_ += read;
  bytesRead_ += read;
  atEnd_ = read == 0;
  return !atEnd_;
}

size_t LineReader::Read(char* place, size_t count) {
  beforeRead_();
  if (IsInterrupted() || !WaitToRead(::fileno(file_.get())))
    throw CommandError("interrupted");
  static_assert(kBufferBytes <= std::numeric_limits<unsigned>::max());
  const auto read = ::read(::fileno(file_.get()), place, static_cast<unsigned>(count));
  if (read >= 0)
    return static_cast<size_t>(read);
  if (IsInterrupted())
    throw CommandError("interrupted");
  Fail(std::string("can't be read: ") + std::strerror(errno));
}

void LineReader::CheckSize() const {
  if (!size_)
    return;
  if (bytesRead_ < *size_)
    Fail("the file became shorter while it was read");
  if (BytesLeft(file_.get()).value_or(0) != 0)
    Fail("the file became longer while it was read; what was added is not shown");
}

void LineReader::Fail(const std::string& reason) const {
  if (IsInterrupted())
    throw CommandError("interrupted");
  throw CommandError(name_ + (reason.starts_with("can't") ? " " : ": ") + reason);
}

}  // namespace fiscalon
