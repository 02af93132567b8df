#include "tools/fiscalon/shown_record.h"

#include "core/records/record_reader.h"
#include "tools/fiscalon/record_checks.h"
#include "tools/fiscalon/record_lines.h"
#include "tools/fiscalon/record_meaning.h"

namespace fiscalon {
namespace {

std::vector<ShownRecord> TakeApart(const std::vector<RecordLine>& lines, const LaunchRow* screen) {
  std::vector<ShownRecord> records;
  OrderCheck order;
  for (const RecordLine& line : lines) {
    ShownRecord record{.number = line.number, .record = std::string(line.record)};
    record.isRecord = LooksLikeRecord(line.record);
    CheckLine(line, record.problems);
    CheckRecord(line.record, record.problems);
    if (record.isRecord) {
      record.kind = KindOf(line.record);
      record.seq = TextIn(line.record, FieldNamed(kRecordHead, "SeqNumber"));
      const auto layout = LayoutOf(record.kind);
      for (size_t i = kRecordHead.size(); i < layout.size(); ++i)
        record.fields.push_back(UnderstandField(line.record, layout[i], screen, record.problems));
      order.Follow(record);
    }
    records.push_back(std::move(record));
  }
  return records;
}

}  // namespace

std::vector<ShownRecord> TakeApart(std::string_view bytes, const LaunchRow* screen) {
  return TakeApart(SplitRecordLines(bytes), screen);
}

std::vector<ShownRecord> TakeApart(const std::vector<std::string>& records, const LaunchRow* screen) {
  std::vector<RecordLine> lines;
  lines.reserve(records.size());
  for (const std::string& record : records) lines.push_back({.number = lines.size() + 1, .record = record});
  return TakeApart(lines, screen);
}

size_t ProblemsIn(const std::vector<ShownRecord>& records) {
  size_t count = 0;
  for (const ShownRecord& record : records) count += record.problems.size();
  return count;
}

std::string_view NameOf(RecordKind kind) {
  switch (kind) {
    case RecordKind::Government:
      return "government format";
    case RecordKind::FreeFormat:
      return "free format";
    case RecordKind::GenericDetails:
      return "generic details";
    case RecordKind::PrintableLine:
      return "printable line";
    case RecordKind::InvoiceRow:
      return "invoice row";
    case RecordKind::StatementRow:
      return "statement row";
  }
  return {};
}

}  // namespace fiscalon
