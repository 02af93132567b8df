#include "core/records/record_composer.h"

#include <algorithm>
#include <initializer_list>

#include "core/platform/runtime_error.h"
#include "core/values/integers.h"
#include "core/values/text.h"

namespace fiscalon {

namespace {

std::string Blanks(int32_t count) {
  if (count < 0)
    Raise(error_number::kInvalidProcedureCall);
  return std::string(static_cast<size_t>(count), ' ');
}

/// The text and the blanks behind it. Error 5 where the text is longer than the field.
std::string FilledUp(std::string_view text, const RecordField& field) {
  const auto width = static_cast<int32_t>(field.Width());
  return std::string(text) + Blanks(CheckedSubtract(width, static_cast<int32_t>(text.size())));
}

/// Puts a record together, row by row of its table.
class Composer {
 public:
  Composer(RecordKind kind, std::string_view seqNumber) : Composer(kind, seqNumber, LayoutOf(kind)) {}
  Composer(RecordKind kind, std::string_view seqNumber, std::span<const RecordField> layout)
      : kind_(kind), layout_(layout), seqNumber_(seqNumber) {
    record_.reserve(kRecordLength);
  }

  /// Fills the next field, with the rows before it that need no value.
  Composer& Put(std::string_view value) {
    PutFixedRows();
    if (row_ < layout_.size())
      PutField(layout_[row_++], value);
    return *this;
  }

  /// The record, with blanks in all fields that were not put. It is one line whatever the texts hold: a line end from a
  /// host's name would forge a second record. The widths counted the characters as they were.
  std::string Finish() {
    PutFixedRows();
    while (row_ < layout_.size()) record_.append(layout_[row_++].Width(), ' ');
    return OnOneLine(std::move(record_));
  }

 private:
  void PutFixedRows() {
    for (; row_ < layout_.size(); ++row_) {
      const RecordField& field = layout_[row_];
      switch (field.fill) {
        case Fill::Literal:
          record_ += field.name;
          break;
        case Fill::Sequence:
          record_ += seqNumber_;
          break;
        case Fill::Kind:
          record_ += static_cast<char>(kind_);
          break;
        case Fill::Blank:
          record_.append(field.Width(), ' ');
          break;
        default:
          return;
      }
    }
  }

  void PutField(const RecordField& field, std::string_view value) {
    switch (field.fill) {
      case Fill::Trimmed:
        record_ += FilledUp(Trim(value), field);
        break;
      case Fill::Printed:
        record_ += FilledUp(value, field);
        break;
      case Fill::Fitted:
        record_ += PadRight(Trim(value), static_cast<int16_t>(field.Width()), " ");
        break;
      default:
        record_ += value;
        record_.append(field.Width() - std::min(field.Width(), value.size()), ' ');
    }
  }

  RecordKind kind_;
  std::span<const RecordField> layout_;
  std::string_view seqNumber_;
  size_t row_ = 0;
  std::string record_;
};

void PutSlots(Composer& record, std::span<const FreeFormatSlot> slots) {
  for (const FreeFormatSlot& slot : slots.first(std::min(slots.size(), kSlotsPerRecord)))
    record.Put(slot.fieldNum).Put(slot.fieldValue);
}

template <typename Text>
std::span<const Text> AsSpan(std::initializer_list<Text> list) {
  return {list.begin(), list.size()};
}

std::string Fitted(std::string_view text, const RecordField& field) {
  return OnOneLine(PadRight(Trim(text), static_cast<int16_t>(field.Width()), " "));
}

}  // namespace

std::string ComposeGovernmentFormat(std::string_view seqNumber, const GovernmentFields& fields) {
  return Composer(RecordKind::Government, seqNumber)
      .Put(fields.periodStartDate)
      .Put(fields.periodEndDate)
      .Put(fields.periodDueDate)
      .Put(fields.filler1)
      .Put(fields.contactName)
      .Put(fields.contactTitle)
      .Put(fields.filler2)
      .Finish();
}

std::string ComposeFreeFormat(std::string_view seqNumber, std::span<const FreeFormatSlot> slots) {
  Composer record(RecordKind::FreeFormat, seqNumber);
  PutSlots(record, slots);
  return record.Finish();
}

std::string ComposeFreeFormat(std::string_view seqNumber, std::initializer_list<FreeFormatSlot> slots) {
  return ComposeFreeFormat(seqNumber, AsSpan(slots));
}

std::vector<std::string> ComposeFreeFormats(std::string_view seqNumber, std::span<const FreeFormatSlot> slots) {
  std::vector<std::string> records;
  for (size_t first = 0; first < slots.size(); first += kSlotsPerRecord)
    records.push_back(ComposeFreeFormat(seqNumber, slots.subspan(first)));
  return records;
}

std::vector<std::string> ComposeFreeFormats(std::string_view seqNumber, std::initializer_list<FreeFormatSlot> slots) {
  return ComposeFreeFormats(seqNumber, AsSpan(slots));
}

std::string ComposeFreeFormatWithDetails(std::string_view seqNumber, std::span<const FreeFormatSlot> slots,
                                         std::string_view amount, std::string_view details) {
  if (slots.empty() || slots.size() > kJoinedLayouts.size())
    Raise(error_number::kInvalidProcedureCall);
  Composer record(RecordKind::FreeFormat, seqNumber, kJoinedLayouts[slots.size() - 1]);
  PutSlots(record, slots);
  return record.Put(amount).Put(details).Finish();
}

std::string ComposeGenericDetails(std::string_view seqNumber, std::string_view amount, std::string_view details) {
  return Composer(RecordKind::GenericDetails, seqNumber).Put(amount).Put(details).Finish();
}

std::string ComposePrintableLine(std::string_view seqNumber, std::string_view line) {
  return Composer(RecordKind::PrintableLine, seqNumber).Put(line).Finish();
}

InvoiceEntry MakeInvoiceEntry(std::string_view date, std::string_view amount, std::string_view number) {
  const Money cents = Cents(Trim(amount));
  return {Fitted(date, FieldNamed(kInvoiceRowLayout, "InvoiceDate")),
          DigitsOf(cents, cents < Money{} ? "000000000" : " 000000000"),
          Fitted(number, FieldNamed(kInvoiceRowLayout, "InvoiceNumber"))};
}

StatementEntry MakeStatementEntry(std::string_view item1, std::string_view amount, std::string_view item2) {
  return {Fitted(item1, FieldNamed(kStatementRowLayout, "Item1")), DigitsOf(Cents(Trim(amount)), "000000000"),
          Fitted(item2, FieldNamed(kStatementRowLayout, "Item2"))};
}

std::string ComposeInvoiceRow(std::string_view seqNumber, std::span<const InvoiceEntry> entries) {
  Composer row(RecordKind::InvoiceRow, seqNumber);
  for (const InvoiceEntry& entry : entries.first(std::min(entries.size(), kInvoicesPerRow)))
    row.Put(entry.date).Put(entry.amount).Put(entry.number);
  return row.Finish();
}

std::string ComposeStatementRow(std::string_view seqNumber, std::span<const StatementEntry> entries) {
  Composer row(RecordKind::StatementRow, seqNumber);
  for (const StatementEntry& entry : entries.first(std::min(entries.size(), kStatementsPerRow)))
    row.Put(entry.item1).Put(entry.amount).Put(entry.item2);
  return row.Finish();
}

std::string QuotedLine(std::string_view record) {
  return '"' + std::string(record) + "\"\r\n";
}

}  // namespace fiscalon
