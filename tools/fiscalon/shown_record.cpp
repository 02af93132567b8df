#include "tools/fiscalon/shown_record.h"

#include "core/records/placed_fields.h"
#include "core/records/record_line.h"
#include "core/records/record_reader.h"
#include "tools/fiscalon/record_checks.h"
#include "tools/fiscalon/record_meaning.h"

namespace fiscalon {
namespace {

/// Takes records apart one by one, in the order in which they stand.
class Taker {
 public:
  explicit Taker(const LaunchRow* screen) : screen_(screen) {}

  void Take(const RecordLine& line) {
    ShownRecord shown = Next(line.record);
    CheckLine(line, shown.problems);
    TakeRecord(std::move(shown));
  }

  void Take(const std::string& record) { TakeRecord(Next(record)); }

  void Take(const PC4& member) {
    if (member.TheDate().empty() && member.Amount().empty())
      Take(member.Description());
    else
      TakeInvoice(member);
  }

  std::vector<ShownRecord> Shown() { return std::move(shown_); }

 private:
  ShownRecord Next(std::string_view record) const {
    return {.number = shown_.size() + 1, .record = std::string(record)};
  }

  void TakeRecord(ShownRecord shown) {
    const PlacedFields placed = PlaceFields(shown.record);
    shown.isRecord = LooksLikeRecord(shown.record);
    CheckRecord(shown.record, placed, shown.problems);
    if (shown.isRecord)
      Understand(shown, placed);
    shown_.push_back(std::move(shown));
  }

  void Understand(ShownRecord& shown, const PlacedFields& placed) {
    const std::string_view record = shown.record;
    shown.kind = KindOf(record);
    shown.seq = TextIn(record, FieldNamed(kRecordHead, "SeqNumber"));
    for (size_t i = kRecordHead.size(); i < placed.fields.size(); ++i)
      shown.fields.push_back(UnderstandField(record, placed.fields[i], screen_, shown.problems));
    for (const Overrun& overrun : placed.overruns) shown.oddities.push_back(NoteOf(overrun));
    order_.Follow(shown);
  }

  void TakeInvoice(const PC4& member) {
    ShownRecord shown = Next(member.TheDate() + member.Amount() + member.Description());
    shown.isInvoice = true;
    int column = 1;
    const auto take = [&](std::string_view name, const std::string& text) {
      const int behind = column + static_cast<int>(text.size());
      shown.fields.push_back(UnderstandField(shown.record, {column, behind - 1, name}, screen_, shown.problems));
      column = behind;
    };
    take("InvoiceDate", member.TheDate());
    take("InvoiceAmount", member.Amount());
    take("InvoiceNumber", member.Description());
    shown_.push_back(std::move(shown));
  }

  const LaunchRow* screen_;
  OrderCheck order_;
  std::vector<ShownRecord> shown_;
};

}  // namespace

std::vector<ShownRecord> TakeApart(std::string_view bytes, const LaunchRow* screen) {
  Taker taker(screen);
  while (!bytes.empty()) taker.Take(TakeRecordLine(bytes));
  return taker.Shown();
}

std::vector<ShownRecord> TakeApart(const std::vector<std::string>& records, const LaunchRow* screen) {
  Taker taker(screen);
  for (const std::string& record : records) taker.Take(record);
  return taker.Shown();
}

std::vector<ShownRecord> TakeApart(const PC4s& records, const LaunchRow* screen) {
  Taker taker(screen);
  for (const PC4& member : records) taker.Take(member);
  return taker.Shown();
}

size_t ProblemsIn(const std::vector<ShownRecord>& records) {
  size_t count = 0;
  for (const ShownRecord& record : records) count += record.problems.size();
  return count;
}

size_t OdditiesIn(const std::vector<ShownRecord>& records) {
  size_t count = 0;
  for (const ShownRecord& record : records) count += record.oddities.size();
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
