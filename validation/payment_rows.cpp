#include "validation/payment_rows.h"

#include <algorithm>
#include <charconv>
#include <vector>

#include "core/platform/code_page.h"
#include "validation/batch_error.h"

namespace fiscalon {

namespace {

constexpr size_t kColumns = 4;
constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
/// Far more than four fields take. What is longer is no row, and is not taken into memory as one.
constexpr size_t kLongestRow = size_t{64} << 10;
/// The largest amount that `Money` holds.
constexpr int64_t kLargestAmount = 92'233'720'368'547'758;

/// A line without its end.
std::string_view WithoutEnd(std::string_view line) {
  if (line.ends_with('\n'))
    line.remove_suffix(1);
  if (line.ends_with('\r'))
    line.remove_suffix(1);
  return line;
}

/// Takes a field in quotes; `at` goes from the first quote to behind the last. Two quotes inside stand for one.
/// False where the field has no end.
bool TakeQuotedField(std::string_view line, size_t& at, std::string& field) {
  for (;;) {
    const size_t quote = line.find('"', at + 1);
    if (quote == line.npos)
      return false;
    field += line.substr(at + 1, quote - at - 1);
    at = quote + 1;
    if (at == line.size() || line[at] != '"')
      return true;
    field += '"';
  }
}

void TakeBareField(std::string_view line, size_t& at, std::string& field) {
  const size_t end = std::min(line.find_first_of(",\"", at), line.size());
  field = line.substr(at, end - at);
  at = end;
}

/// The fields of a CSV line, in Windows-1252. False where a quote is out of place.
bool SplitFields(std::string_view line, std::vector<std::string>& fields) {
  for (size_t at = 0;; ++at) {
    std::string& field = fields.emplace_back();
    if (!line.substr(at).starts_with('"'))
      TakeBareField(line, at, field);
    else if (!TakeQuotedField(line, at, field))
      return false;
    if (!IsAscii(field))
      field = FromUtf8(field);
    if (at == line.size())
      return true;
    if (line[at] != ',')
      return false;
  }
}

/// Whether a line is the header of a payments list, with or without quotes.
bool IsHeader(std::string_view line) {
  std::vector<std::string> names;
  std::string unquoted;
  if (!SplitFields(line, names))
    return false;
  for (const std::string& name : names) unquoted += (unquoted.empty() ? "" : ",") + name;
  return unquoted == kPaymentsHeader;
}

/// How the first line of a list must look, or what stands in its place: what other programs make of a list when they
/// save it, told by the first bytes. Empty where it is the header.
std::string WrongWithStart(std::string_view start) {
  constexpr std::string_view kUtf16[] = {"\xFF\xFE", "\xFE\xFF"};
  const std::string header(kPaymentsHeader);
  if (start.starts_with(kByteOrderMark))
    return "a byte-order mark; save the list without it";
  if (start.starts_with(kUtf16[0]) || start.starts_with(kUtf16[1]) || start.substr(0, 2).find('\0') != start.npos)
    return "the list is in UTF-16; save it in UTF-8";
  const std::string_view line = WithoutEnd(start.substr(0, std::min(start.find('\n'), start.size() - 1) + 1));
  if (const size_t end = line.find('\r'); end != line.npos && IsHeader(line.substr(0, end)))
    return "the lines end with CR alone; save the list with LF or CR LF";
  for (const auto& [separator, name] : {std::pair{';', "semicolons"}, std::pair{'\t', "tabs"}}) {
    std::string commas(line.substr(0, 2 * header.size()));
    std::replace(commas.begin(), commas.end(), separator, ',');
    if (commas != line && IsHeader(commas))
      return std::string("its fields are separated by ") + name + "; save the list with commas";
  }
  return line.size() <= 2 * header.size() && IsHeader(line) ? "" : "the first line is not " + header;
}

/// How many line ends there are in so many characters, at most 255. Written so that compilers make it a few
/// wide instructions.
constexpr size_t kChunk = 128;
size_t CountLineEnds(const char* chunk) {
  unsigned char count = 0;
  for (size_t i = 0; i < kChunk; ++i) count = static_cast<unsigned char>(count + (chunk[i] == '\n' ? 1 : 0));
  return count;
}

/// How many bytes the first `count` lines take, and in `count` how many they are. A last line without an end
/// counts when `isWhole`.
size_t LengthOfLines(std::string_view bytes, size_t& count, bool isWhole) {
  size_t at = 0;
  size_t lines = 0;
  // What may be the last line is looked at by itself, since it may have no end.
  while (at + kChunk < bytes.size()) {
    const size_t more = CountLineEnds(bytes.data() + at);
    if (lines + more >= count)
      break;
    lines += more;
    at += kChunk;
  }
  while (lines < count && at < bytes.size()) {
    const size_t end = bytes.find('\n', at);
    if (end == bytes.npos && !isWhole)
      break;
    at = end == bytes.npos ? bytes.size() : end + 1;
    ++lines;
  }
  count = lines;
  return at;
}

}  // namespace

std::string ReadCents(std::string_view text, int64_t& cents) {
  const char* const end = text.data() + text.size();
  const auto [stop, error] = std::from_chars(text.data(), end, cents);
  if (error == std::errc::result_out_of_range ||
      (error == std::errc{} && stop == end && (cents > kLargestAmount || cents < -kLargestAmount))) {
    cents = 0;
    return "the amount " + Quoted(text) + " is out of range";
  }
  if (error != std::errc{} || stop != end) {
    cents = 0;
    return "the amount " + Quoted(text) + " is no whole number of cents";
  }
  return {};
}

void RowReader::Read(std::string_view bytes) {
  rest_ = bytes;
  texts_.clear();
}

std::string RowReader::Next(PaymentRow& row) {
  row = {};
  const size_t length = std::min(rest_.find('\n'), rest_.size() - 1) + 1;
  const std::string_view line = WithoutEnd(rest_.substr(0, length));
  rest_.remove_prefix(length);
  if (line.empty())
    return "an empty row";
  if (line.size() > kLongestRow)
    return "a row of " + std::to_string(line.size()) + " characters";
  if (line.find('\0') != line.npos)
    return "a NUL byte";
  std::vector<std::string> fields;
  if (!SplitFields(line, fields))
    return "a quote out of place";
  if (fields.size() != kColumns)
    return "a row of " + std::to_string(fields.size()) + " fields; it has " + std::string(kPaymentsHeader);
  std::string_view* const texts[] = {&row.seq, &row.screen, &row.biller};
  for (size_t i = 0; i < std::size(texts); ++i) *texts[i] = texts_.emplace_back(std::move(fields[i]));
  return ReadCents(fields.back(), row.cents);
}

void RowFeed::TakeHeader() {
  // A header in quotes, and room to see what stands in its place.
  constexpr size_t kStart = 256;
  if (const std::string problem = WrongWithStart(source_.Peek(kStart).substr(0, kStart)); !problem.empty())
    throw BatchError({BatchProblem{source_.Name(), 1, problem}});
  std::string storage;
  size_t count = 1;
  Take(count, storage);
}

std::string_view RowFeed::Take(size_t& count, std::string& storage) {
  constexpr size_t kBytesPerRow = 32;
  constexpr size_t kLongestStretch = size_t{16} << 20;
  const size_t wantedRows = count;
  for (size_t wanted = (count + 1) * kBytesPerRow;; wanted *= 2) {
    if (wanted > kLongestStretch)
      throw BatchError({BatchProblem{source_.Name(), line_, "the row is too long, or never ends"}});
    std::string_view bytes = source_.Peek(wanted);
    const bool isWhole = bytes.size() < wanted;
    count = wantedRows;
    const size_t length = LengthOfLines(bytes, count, isWhole || source_.Stays());
    if (count == wantedRows || isWhole || source_.Stays()) {
      if (!source_.Stays()) {
        storage = bytes.substr(0, length);
        bytes = storage;
      }
      source_.Skip(length);
      line_ += count;
      return bytes;
    }
  }
}

}  // namespace fiscalon
