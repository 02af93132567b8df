#pragma once

#include <iosfwd>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "tools/fiscalon/commands/printed_fields.h"
#include "tools/fiscalon/context.h"
#include "tools/reading/field_remark.h"
#include "tools/reading/shown_record.h"

namespace fiscalon {

/// How records are printed for people.
struct ShownStyle {
  Paint paint = Paint(false);
  /// In which amounts are written.
  Locale locale = {};
  /// What a record is counted as: "line" of a file, "record" of a host.
  std::string_view countedAs = "line";
  /// Where a ruler and the text under it are folded; without it they are not.
  std::optional<size_t> width = {};
};

/// Prints records: each under a ruler, its fields by name, what is wrong with it and what is odd about it.
class RecordPrinter {
 public:
  explicit RecordPrinter(const ShownStyle& style);

  void Append(std::string& out, const ShownRecord& record);

 private:
  void AppendHeading(std::string& out, const ShownRecord& record) const;
  void AppendRuled(std::string& out, const ShownRecord& record) const;
  void AppendFields(std::string& out, const ShownRecord& record);
  std::string PaintMarks(const std::string& marks) const;

  ShownStyle style_;
  MoneyWords money_;
  size_t fold_;
  PrintedFields fields_;
};

/// Each of them, one behind the other.
void PrintRecords(std::ostream& out, const std::vector<ShownRecord>& records, const ShownStyle& style);

}  // namespace fiscalon
