#include "core/records/record_reader.h"

#include <string>

namespace fiscalon {

void CutRecords(const PC4s& records, clsPC4GovFormats& govFormats, clsPC4FreeFormats& freeFormats) {
  for (const PC4& record : records) {
    if (const RecordKind kind = KindOf(record.DescriptionView()); kind == RecordKind::Government) {
      const GovernmentFieldViews fields = CutGovernmentFormat(record.DescriptionView());
      govFormats.Add(std::string(fields.periodStartDate), std::string(fields.periodEndDate),
                     std::string(fields.periodDueDate), std::string(fields.filler1), std::string(fields.contactName),
                     std::string(fields.contactTitle), std::string(fields.filler2));
    } else if (kind == RecordKind::FreeFormat) {
      for (const FreeFormatSlotView& slot : CutFreeFormat(record.DescriptionView()))
        freeFormats.Add(std::string(slot.fieldNum), std::string(slot.fieldValue));
    }
  }
}

}  // namespace fiscalon
