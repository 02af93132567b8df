#include "tools/fiscalon/commands/record_picks.h"

#include <charconv>

#include "core/platform/code_page.h"
#include "tools/fiscalon/files/program_end.h"

namespace fiscalon {

RecordPicks::RecordPicks(const PickOptions& options) {
  for (const std::string& kind : options.only) kinds_ += kind;
  if (options.line)
    ReadLines(*options.line);
  if (options.seq)
    ReadSequence(*options.seq);
  areAll_ = kinds_.empty() && !options.line && !options.seq;
}

bool RecordPicks::HoldKind(const ShownRecord& record) const {
  return kinds_.empty() || (record.isRecord && kinds_.find(static_cast<char>(record.kind)) != std::string::npos);
}

void RecordPicks::ReadLines(const std::string& text) {
  const char* const end = text.data() + text.size();
  const auto [dash, error] = std::from_chars(text.data(), end, firstLine_);
  bool isRead = error == std::errc() && firstLine_ > 0;
  if (isRead && dash == end) {
    lastLine_ = firstLine_;
  } else if (isRead && *dash == '-' && dash + 1 != end) {
    const auto [stop, lastError] = std::from_chars(dash + 1, end, lastLine_);
    isRead = lastError == std::errc() && stop == end && lastLine_ >= firstLine_;
  } else {
    isRead = isRead && *dash == '-';
  }
  if (!isRead)
    throw UsageError("--line takes a line or a range of lines, such as 12, 12-20 or 12-, not \"" + text + "\"");
}

void RecordPicks::ReadSequence(const std::string& text) {
  constexpr size_t kCharacters = FieldNamed(kRecordHead, "SeqNumber").Width();
  seq_ = FromUtf8(text);
  if (seq_.size() != kCharacters)
    throw UsageError("--seq takes a sequence number, which has four characters, not \"" + text + "\"");
}

}  // namespace fiscalon
