#include "core/records/record_line.h"

#include "core/wording/places.h"

namespace fiscalon {

RecordLine TakeRecordLine(std::string_view& bytes) {
  const size_t newline = bytes.find('\n');
  const bool ends = newline != std::string_view::npos;
  RecordLine line{.bytes = bytes.substr(0, ends ? newline + 1 : newline), .record = bytes.substr(0, newline)};
  bytes.remove_prefix(line.bytes.size());
  const bool hasCr = line.record.ends_with('\r');
  if (hasCr)
    line.record.remove_suffix(1);
  if (ends)
    line.end = hasCr ? LineEnd::CrLf : LineEnd::Lf;
  else if (hasCr)
    line.end = LineEnd::Cr;
  line.hasByteOrderMark = line.record.starts_with(kByteOrderMark);
  if (line.hasByteOrderMark)
    line.record.remove_prefix(kByteOrderMark.size());
  line.opensWithQuote = line.record.starts_with(kRecordQuote);
  if (line.opensWithQuote)
    line.record.remove_prefix(1);
  line.closesWithQuote =
      line.record.ends_with(kRecordQuote) && (line.opensWithQuote || line.record.size() != kRecordLength);
  if (line.closesWithQuote)
    line.record.remove_suffix(1);
  return line;
}

std::vector<RecordLine> RecordLinesOf(std::string_view bytes) {
  std::vector<RecordLine> lines;
  while (!bytes.empty()) lines.push_back(TakeRecordLine(bytes));
  return lines;
}

std::vector<std::string_view> WrongAround(const RecordLine& line) {
  std::vector<std::string_view> wrong;
  if (line.hasByteOrderMark)
    wrong.emplace_back("a byte-order mark; record files have none");
  if (line.opensWithQuote && !line.closesWithQuote)
    wrong.emplace_back("the quote in front has none behind; the line has {1} more characters");
  if (line.closesWithQuote && !line.opensWithQuote)
    wrong.emplace_back("the quote behind has none in front");
  if (line.end == LineEnd::Cr)
    wrong.emplace_back("half a line end, CR without LF; the file was cut off there");
  return wrong;
}

std::string WrongWith(const RecordLine& line) {
  if (const auto around = WrongAround(line); !around.empty())
    return WithPlaces(around.front(), {std::to_string(line.record.size())});
  if (line.record.empty())
    return "an empty line";
  if (const size_t nul = line.record.find('\0'); nul != line.record.npos)
    return "a NUL byte in column " + std::to_string(nul + 1);
  if (!HasRecordHead(line.record))
    return "no record: a record begins with PC4, a sequence number and a kind";
  return {};
}

}  // namespace fiscalon
