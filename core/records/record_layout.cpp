#include "core/records/record_layout.h"

namespace fiscalon {

std::span<const RecordField> LayoutOf(RecordKind kind) {
  switch (kind) {
    case RecordKind::Government:
      return kGovernmentLayout;
    case RecordKind::FreeFormat:
      return kFreeFormatLayout;
    case RecordKind::GenericDetails:
      return kGenericDetailsLayout;
    case RecordKind::PrintableLine:
      return kPrintableLineLayout;
    case RecordKind::InvoiceRow:
      return kInvoiceRowLayout;
    case RecordKind::StatementRow:
      return kStatementRowLayout;
  }
  return {};
}

}  // namespace fiscalon
