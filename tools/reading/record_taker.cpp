#include "tools/reading/record_taker.h"

#include <algorithm>

#include "core/records/placed_fields.h"
#include "core/records/record_reader.h"
#include "tools/reading/record_meaning.h"

namespace fiscalon {
namespace {

/// Nothing is known of what stands around a record that is not held whole.
void SayItIsTooLong(ShownRecord& shown) {
  shown.record.resize(std::min(shown.record.size(), kLongestLine));
  shown.problems.push_back(
      {.text = Filled("a line of {1} characters; only the first {2} are looked at",
                      AsGiven(std::to_string(shown.length)), AsGiven(std::to_string(shown.record.size())))});
}

}  // namespace

void RecordTaker::Take(const RecordLine& line, uint64_t hidden, ShownRecord& shown) {
  Begin(line.record, shown);
  shown.length += hidden;
  if (hidden == 0)
    CheckLine(line, shown);
  else
    SayItIsTooLong(shown);
  TakeRecord(shown);
}

void RecordTaker::Take(std::string_view record, ShownRecord& shown) {
  Begin(record, shown);
  TakeRecord(shown);
}

void RecordTaker::Take(const PC4& member, ShownRecord& shown) {
  if (member.TheDate().empty() && member.Amount().empty())
    Take(member.DescriptionView(), shown);
  else
    TakeInvoice(member, shown);
}

void RecordTaker::Begin(std::string_view record, ShownRecord& shown) {
  shown.number = nextNumber_++;
  shown.record = record;
  shown.length = record.size();
  shown.isRecord = shown.isInvoice = false;
  shown.kind = {};
  shown.fields.clear();
  shown.problems.clear();
  shown.oddities.clear();
}

void RecordTaker::TakeRecord(ShownRecord& shown) {
  shown.isRecord = LooksLikeRecord(shown.record);
  if (shown.isRecord)
    shown.kind = KindOf(shown.record);
  if (shown.length <= kRecordLength) {
    const std::span<const RecordField> fields = LayoutOf(shown.kind);
    CheckRecord(shown, kRecordLength);
    TakeFields(fields, shown);
  } else {
    const PlacedFields placed = PlaceFields(shown.record);
    CheckRecord(shown, placed.Length());
    TakeFields(placed.fields, shown);
    for (const Overrun& overrun : placed.overruns) shown.oddities.push_back(NoteOf(overrun));
  }
  if (shown.isRecord)
    order_.Follow(shown);
  if (checks_)
    checks_->Follow(shown);
}

void RecordTaker::TakeFields(std::span<const RecordField> fields, ShownRecord& shown) {
  if (!shown.isRecord || fields.empty())
    return;
  const std::span<const RecordField> rows = fields.subspan(kRecordHead.size());
  if (shown.length == kRecordLength)
    return known_[shown.kind].Follow(rows, screen_, shown);
  SlotBefore slot;
  for (const RecordField& row : rows)
    shown.fields.push_back(UnderstandField(shown.record, row, RoleOf(row.name), screen_, slot, shown.problems));
}

void RecordTaker::TakeInvoice(const PC4& member, ShownRecord& shown) {
  Begin(member.TheDate() + member.Amount() + member.Description(), shown);
  shown.isInvoice = true;
  int column = 1;
  const auto take = [&](std::string_view name, const std::string& text) {
    SlotBefore slot;
    const int behind = column + static_cast<int>(text.size());
    const RecordField row{column, behind - 1, name};
    shown.fields.push_back(UnderstandField(shown.record, row, RoleOf(name), screen_, slot, shown.problems));
    column = behind;
  };
  take("InvoiceDate", member.TheDate());
  take("InvoiceAmount", member.Amount());
  take("InvoiceNumber", member.Description());
}

}  // namespace fiscalon
