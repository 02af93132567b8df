#include "tools/fiscalon/record_lines.h"

#include <algorithm>

namespace fiscalon {
namespace {

constexpr char kQuote = '"';

void TakeQuotesOff(RecordLine& line) {
  line.opensWithQuote = line.record.starts_with(kQuote);
  if (line.opensWithQuote)
    line.record.remove_prefix(1);
  line.closesWithQuote = line.record.ends_with(kQuote);
  if (line.closesWithQuote)
    line.record.remove_suffix(1);
}

}  // namespace

std::vector<RecordLine> SplitRecordLines(std::string_view bytes) {
  constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
  std::vector<RecordLine> lines;
  const bool marked = bytes.starts_with(kByteOrderMark);
  if (marked)
    bytes.remove_prefix(kByteOrderMark.size());
  for (bool first = marked; !bytes.empty() || first; first = false) {
    const size_t end = bytes.find('\n');
    RecordLine line{.number = lines.size() + 1, .record = bytes.substr(0, end)};
    line.hasLineEnd = end != std::string_view::npos;
    line.hasByteOrderMark = first;
    if (line.hasLineEnd && line.record.ends_with('\r'))
      line.record.remove_suffix(1);
    TakeQuotesOff(line);
    lines.push_back(line);
    bytes.remove_prefix(line.hasLineEnd ? end + 1 : bytes.size());
  }
  return lines;
}

std::string LineOf(const PC4& member) {
  if (member.TheDate().empty() && member.Amount().empty())
    return member.Description();
  return member.TheDate() + '\t' + member.Amount() + '\t' + member.Description();
}

}  // namespace fiscalon
