#include <string>
#include <vector>

#include "core/records/placed_fields.h"
#include "core/records/record_composer.h"
#include "core/records/record_line.h"
#include "core/records/record_reader.h"
#include "core/values/text.h"
#include "tests/fuzz/law.h"

namespace fiscalon {
namespace {

std::vector<std::string_view> Lines(std::string_view text) {
  std::vector<std::string_view> lines;
  for (const RecordLine& line : RecordLinesOf(text)) {
    Law(line.end != LineEnd::None || line.bytes.end() == text.end(), "only the last line lacks an end");
    lines.push_back(line.record);
  }
  return lines;
}

std::string Body(std::string_view record, size_t from, size_t to) {
  return from < record.size() ? std::string(record.substr(from, to - from)) : std::string();
}

void CheckCutting(std::string_view record) {
  Law((KindOf(record) == RecordKind{}) || KindOf(record) == static_cast<RecordKind>(record[7]),
      "the kind stands in column 8");
  const GovernmentFieldViews fields = CutGovernmentFormat(record);
  std::string joined;
  for (const std::string_view field : {fields.periodStartDate, fields.periodEndDate, fields.periodDueDate,
                                       fields.filler1, fields.contactName, fields.contactTitle, fields.filler2})
    joined += field;
  Law(joined == Body(record, 8, 100), "the fields of a T record are its columns 9 to 100");
  joined.clear();
  for (const FreeFormatSlotView& slot : CutFreeFormat(record)) joined.append(slot.fieldNum).append(slot.fieldValue);
  Law(joined == Body(record, 8, 88), "the slots of an F record are its columns 9 to 88");
}

void CheckPlacing(std::string_view record) {
  const PlacedFields placed = PlaceFields(record);
  Law(placed.fields.empty() || CoversRecord(placed.fields, placed.Length()), "the fields follow each other");
  Law(placed.overruns.empty() || placed.Length() == record.size(), "overruns account for every column");
}

void CheckCutting(const std::vector<std::string_view>& lines) {
  PC4s records;
  int32_t government = 0;
  int32_t free = 0;
  for (const std::string_view line : lines) {
    records.Add("", "", std::string(line));
    government += line.size() >= 8 && line[7] == 'T' ? 1 : 0;
    free += line.size() >= 8 && line[7] == 'F' ? 4 : 0;
  }
  clsPC4GovFormats govFormats;
  clsPC4FreeFormats freeFormats;
  CutRecords(records, govFormats, freeFormats);
  Law(govFormats.Count() == government, "each T record gives one member");
  Law(freeFormats.Count() == free, "each F record gives four members");
}

/// What a record is composed of is read back, with blanks for what would break its line.
void CheckReadingBack(const std::vector<std::string_view>& texts) {
  const auto text = [&](size_t i) { return i < texts.size() ? std::string(texts[i]) : std::string(); };
  const GovernmentFields given{.periodDueDate = text(0).substr(0, 8), .contactName = text(1), .contactTitle = text(2)};
  const auto record =
      ResultOf([&] { return ComposeGovernmentFormat("0001", given); }, error_number::kInvalidProcedureCall);
  if (record) {
    Law(record->size() == kRecordLength, "a T record has 160 columns");
    const GovernmentFieldViews read = CutGovernmentFormat(*record);
    Law(read.periodDueDate.starts_with(OnOneLine(given.periodDueDate)), "a due date is read back");
    Law(OnOneLine(text(1)).find(read.contactName.substr(0, read.contactName.find_last_not_of(' ') + 1)) !=
            std::string::npos,
        "a contact is read back");
  }
  const FreeFormatSlot slot{text(0).substr(0, 2), text(1).substr(0, 18)};
  const std::string slots = ComposeFreeFormat("0001", {slot});
  Law(slots.size() == kRecordLength, "an F record has 160 columns");
  Law(CutFreeFormat(slots)[0].fieldNum.starts_with(OnOneLine(slot.fieldNum)), "a field's number is read back");
  Law(CutFreeFormat(slots)[0].fieldValue.starts_with(OnOneLine(slot.fieldValue)), "a field's value is read back");
}

}  // namespace
}  // namespace fiscalon

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  const std::vector<std::string_view> lines = fiscalon::Lines(fiscalon::TextOf(data, size));
  for (const std::string_view line : lines) {
    fiscalon::CheckCutting(line);
    fiscalon::CheckPlacing(line);
  }
  fiscalon::CheckCutting(lines);
  fiscalon::CheckReadingBack(lines);
  return 0;
}
