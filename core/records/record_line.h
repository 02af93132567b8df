#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "core/records/record_layout.h"

/// The lines of a record file. Screens write each record in double quotes with CR LF behind; files that went through
/// other hands may hold bare records, and end their lines with LF.
namespace fiscalon {

inline constexpr char kRecordQuote = '"';
/// What editors put in front of UTF-8, and record files, which are Windows-1252, never have.
inline constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

/// What a file is told that holds no line, wherever records are to be read from it.
inline constexpr std::string_view kNoRecords = "the file is empty, it holds no records";

/// What ends a line. Only the last one can lack it, which is nothing wrong, or have the first half of it, a CR, which
/// shows that the file was cut off there. The CR is taken off too.
enum class LineEnd { None, Cr, Lf, CrLf };

/// One line as it lies in the file.
struct RecordLine {
  /// The whole line, its end too.
  std::string_view bytes = {};
  /// Without what stands around it: byte-order mark, quotes and line end.
  std::string_view record = {};
  bool hasByteOrderMark = false;
  bool opensWithQuote = false;
  bool closesWithQuote = false;
  LineEnd end = LineEnd::None;

  /// Whether the line is framed as screens write it.
  constexpr bool IsAsWritten() const {
    return !hasByteOrderMark && opensWithQuote && closesWithQuote && end == LineEnd::CrLf;
  }
};

/// Takes the next line off the bytes, which must not be empty. The line points into them. A line without a quote in
/// front that has a record's length as it stands is a record, whatever it ends with.
RecordLine TakeRecordLine(std::string_view& bytes);

/// All lines of a file, which point into its bytes.
std::vector<RecordLine> RecordLinesOf(std::string_view bytes);

/// Whether a text begins as every record does, and is long enough to have a kind.
constexpr bool HasRecordHead(std::string_view record) {
  return record.size() >= kHeadLength && record.starts_with(kRecordMark);
}

/// Everything that is wrong around a record, in words for the user: byte-order mark, quotes, line end. "{1}" in them is
/// how many characters the record has. Whoever reads records goes by it.
std::vector<std::string_view> WrongAround(const RecordLine& line);

/// Why a line can't be read as a record, in words for the user; empty where it can. What is wrong around the record
/// comes first. Lengths are not judged: records of other lengths can be read as far as they go.
std::string WrongWith(const RecordLine& line);

}  // namespace fiscalon
