#pragma once

#include <array>
#include <cstddef>
#include <span>
#include <string_view>

/// Where the fields of a PC4 record lie. Each kind has one table; writing, cutting, checking and naming go
/// by it, and no column number stands anywhere else (docs/decisions/0004-records-as-constexpr-layout-tables.md).
namespace fiscalon {

/// How a field gets its width when a record is written.
enum class Fill {
  Literal,   ///< the text named in the table
  Sequence,  ///< the payment's `SeqNumber`, exactly as the host gave it
  Kind,      ///< the record kind's letter
  Given,     ///< as it stands, blanks behind; a longer text is not cut and shifts what follows
  Trimmed,   ///< trimmed, blanks behind; error 5 where the text is longer than the field
  Printed,   ///< as it stands, blanks behind; error 5 where the text is longer than the field
  Fitted,    ///< trimmed, blanks behind or cut to the width
  Blank,     ///< always blanks
};

/// One row of a table: columns count from 1, both ends included.
struct RecordField {
  int from = 0;
  int to = 0;
  std::string_view name = {};
  Fill fill = Fill::Blank;

  constexpr size_t Offset() const { return static_cast<size_t>(from) - 1; }
  constexpr size_t Width() const { return static_cast<size_t>(to - from + 1); }
  /// The same field so many columns to the right.
  constexpr RecordField Moved(int columns) const { return {from + columns, to + columns, name, fill}; }
};

inline constexpr size_t kRecordLength = 160;
inline constexpr std::string_view kRecordMark = "PC4";

/// The letter in column 8.
enum class RecordKind : char {
  Government = 'T',
  FreeFormat = 'F',
  GenericDetails = 'G',
  PrintableLine = 'P',
  InvoiceRow = 'R',
  StatementRow = 'I',
};

inline constexpr size_t kSlotsPerRecord = 4;
inline constexpr size_t kInvoicesPerRow = 2;
inline constexpr size_t kStatementsPerRow = 3;

inline constexpr std::array kRecordHead{
    RecordField{1, 3, kRecordMark, Fill::Literal},
    RecordField{4, 7, "SeqNumber", Fill::Sequence},
    RecordField{8, 8, "Kind", Fill::Kind},
};

/// The columns of the head.
inline constexpr size_t kHeadLength = kRecordHead.back().to;

/// A table behind the head, its first `entry` rows standing `Times` times, one behind the other; the rest
/// are the tail.
template <size_t Times, size_t Entry, size_t Tail>
constexpr auto LayOut(const std::array<RecordField, Entry>& entry, const std::array<RecordField, Tail>& tail) {
  std::array<RecordField, kRecordHead.size() + Times * Entry + Tail> layout{};
  size_t row = 0;
  for (const RecordField& field : kRecordHead) layout[row++] = field;
  const int width = entry.back().to - entry.front().from + 1;
  for (size_t time = 0; time < Times; ++time) {
    for (const RecordField& field : entry) {
      layout[row++] = field.Moved(static_cast<int>(time) * width);
    }
  }
  for (const RecordField& field : tail) layout[row++] = field;
  return layout;
}

/// Whether the rows follow each other without gap or overlap from column 1 to the last of the record.
constexpr bool CoversRecord(std::span<const RecordField> layout, size_t length = kRecordLength) {
  int next = 1;
  for (const RecordField& field : layout) {
    if (field.from != next || field.to < field.from)
      return false;
    next = field.to + 1;
  }
  return static_cast<size_t>(next) == length + 1;
}

/// "T": one per payment, always first.
inline constexpr auto kGovernmentLayout = LayOut<1>(
    std::array{
        RecordField{9, 16, "PeriodStartDate", Fill::Given},
        RecordField{17, 24, "PeriodEndDate", Fill::Given},
        RecordField{25, 32, "PeriodDueDate", Fill::Given},
        RecordField{33, 40, "Filler1", Fill::Given},
        RecordField{41, 70, "ContactName", Fill::Trimmed},
        RecordField{71, 90, "ContactTitle", Fill::Trimmed},
        RecordField{91, 100, "Filler2", Fill::Given},
    },
    std::array{RecordField{101, 160, "", Fill::Blank}});
static_assert(CoversRecord(kGovernmentLayout));

/// "F": four slots of a number and a value.
inline constexpr auto kFreeFormatLayout = LayOut<kSlotsPerRecord>(
    std::array{
        RecordField{9, 10, "FieldNum", Fill::Given},
        RecordField{11, 28, "FieldValue", Fill::Given},
    },
    std::array{
        RecordField{89, 100, "", Fill::Blank},
        RecordField{101, 160, "", Fill::Blank},
    });
static_assert(CoversRecord(kFreeFormatLayout));

/// "G": an amount in cents and its details.
inline constexpr auto kGenericDetailsLayout = LayOut<1>(
    std::array{
        RecordField{9, 26, "Amount", Fill::Given},
        RecordField{27, 76, "Details", Fill::Trimmed},
    },
    std::array{
        RecordField{77, 100, "", Fill::Blank},
        RecordField{101, 160, "", Fill::Blank},
    });
static_assert(CoversRecord(kGenericDetailsLayout));

/// "P": one line of text.
inline constexpr auto kPrintableLineLayout =
    LayOut<1>(std::array{RecordField{9, 78, "Line", Fill::Printed}}, std::array{
                                                                         RecordField{79, 100, "", Fill::Blank},
                                                                         RecordField{101, 160, "", Fill::Blank},
                                                                     });
static_assert(CoversRecord(kPrintableLineLayout));

/// "R": two invoices, each 45 columns.
inline constexpr auto kInvoiceRowLayout = LayOut<kInvoicesPerRow>(
    std::array{
        RecordField{9, 16, "InvoiceDate", Fill::Fitted},
        RecordField{17, 26, "InvoiceAmount", Fill::Given},
        RecordField{27, 53, "InvoiceNumber", Fill::Fitted},
    },
    std::array{
        RecordField{99, 100, "", Fill::Blank},
        RecordField{101, 160, "", Fill::Blank},
    });
static_assert(CoversRecord(kInvoiceRowLayout));

/// "I": three statement entries, each 30 columns.
inline constexpr auto kStatementRowLayout = LayOut<kStatementsPerRow>(
    std::array{
        RecordField{9, 16, "Item1", Fill::Fitted},
        RecordField{17, 25, "Amount", Fill::Given},
        RecordField{26, 35, "Item2", Fill::Fitted},
        RecordField{36, 38, "", Fill::Blank},
    },
    std::array{
        RecordField{99, 100, "", Fill::Blank},
        RecordField{101, 160, "", Fill::Blank},
    });
static_assert(CoversRecord(kStatementRowLayout));

/// The columns of an "F" record that holds the body of a "G" record too.
inline constexpr size_t kJoinedLength = 2 * kRecordLength - kHeadLength;

using JoinedLayout =
    std::array<RecordField, kFreeFormatLayout.size() + kGenericDetailsLayout.size() - kRecordHead.size()>;

/// The row of an "F" record's table behind its first slots, each a number and a value.
constexpr size_t RowBehindSlots(size_t count) {
  return kRecordHead.size() + 2 * count;
}

/// An "F" record with the body of a "G" record behind its first slots, the rest of the "F" record behind that: the
/// collection of one screen joins the two like this.
constexpr JoinedLayout JoinDetailsBehind(size_t count) {
  const size_t open = RowBehindSlots(count);
  const int slotColumns = kFreeFormatLayout[open].from - kFreeFormatLayout[kRecordHead.size()].from;
  JoinedLayout layout{};
  size_t row = 0;
  for (; row < open; ++row) layout[row] = kFreeFormatLayout[row];
  for (size_t i = kRecordHead.size(); i < kGenericDetailsLayout.size(); ++i)
    layout[row++] = kGenericDetailsLayout[i].Moved(slotColumns);
  for (size_t i = open; i < kFreeFormatLayout.size(); ++i)
    layout[row++] = kFreeFormatLayout[i].Moved(static_cast<int>(kJoinedLength - kRecordLength));
  return layout;
}

/// Details are joined to one, two or three slots: behind no slot and behind four they have a record of their own.
inline constexpr std::array kJoinedLayouts{JoinDetailsBehind(1), JoinDetailsBehind(2), JoinDetailsBehind(3)};
static_assert(CoversRecord(kJoinedLayouts[0], kJoinedLength) && CoversRecord(kJoinedLayouts[1], kJoinedLength) &&
              CoversRecord(kJoinedLayouts[2], kJoinedLength));

/// The n-th row (from 0) of that name in a table. A name that the table lacks does not compile.
consteval RecordField FieldNamed(std::span<const RecordField> layout, std::string_view name, size_t n = 0) {
  for (const RecordField& field : layout) {
    if (field.name == name && n-- == 0)
      return field;
  }
  throw "no such field in this record";
}

/// A record's table; empty for a letter that is no record kind.
std::span<const RecordField> LayoutOf(RecordKind kind);

/// The text in a field's columns: shorter, or empty, where the record ends before them.
constexpr std::string_view TextIn(std::string_view record, const RecordField& field) {
  return field.Offset() < record.size() ? record.substr(field.Offset(), field.Width()) : std::string_view{};
}

}  // namespace fiscalon
