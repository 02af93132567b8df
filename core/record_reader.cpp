#include "core/record_reader.h"

#include <string>

namespace fiscalon {

namespace {

template <size_t Slot>
FreeFormatSlotView CutSlot(std::string_view record) {
  return {TextIn(record, FieldNamed(kFreeFormatLayout, "FieldNum", Slot)),
          TextIn(record, FieldNamed(kFreeFormatLayout, "FieldValue", Slot))};
}

}  // namespace

GovernmentFieldViews CutGovernmentFormat(std::string_view record) {
  return {.periodStartDate = TextIn(record, FieldNamed(kGovernmentLayout, "PeriodStartDate")),
          .periodEndDate = TextIn(record, FieldNamed(kGovernmentLayout, "PeriodEndDate")),
          .periodDueDate = TextIn(record, FieldNamed(kGovernmentLayout, "PeriodDueDate")),
          .filler1 = TextIn(record, FieldNamed(kGovernmentLayout, "Filler1")),
          .contactName = TextIn(record, FieldNamed(kGovernmentLayout, "ContactName")),
          .contactTitle = TextIn(record, FieldNamed(kGovernmentLayout, "ContactTitle")),
          .filler2 = TextIn(record, FieldNamed(kGovernmentLayout, "Filler2"))};
}

std::array<FreeFormatSlotView, kSlotsPerRecord> CutFreeFormat(std::string_view record) {
  return {CutSlot<0>(record), CutSlot<1>(record), CutSlot<2>(record), CutSlot<3>(record)};
}

void CutRecords(const PC4s& records, clsPC4GovFormats& govFormats, clsPC4FreeFormats& freeFormats) {
  for (const PC4& record : records) {
    if (const RecordKind kind = KindOf(record.Description()); kind == RecordKind::Government) {
      const GovernmentFieldViews fields = CutGovernmentFormat(record.Description());
      govFormats.Add(std::string(fields.periodStartDate), std::string(fields.periodEndDate),
                     std::string(fields.periodDueDate), std::string(fields.filler1), std::string(fields.contactName),
                     std::string(fields.contactTitle), std::string(fields.filler2));
    } else if (kind == RecordKind::FreeFormat) {
      for (const FreeFormatSlotView& slot : CutFreeFormat(record.Description()))
        freeFormats.Add(std::string(slot.fieldNum), std::string(slot.fieldValue));
    }
  }
}

}  // namespace fiscalon
