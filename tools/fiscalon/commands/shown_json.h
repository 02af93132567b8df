#pragma once

#include <string>
#include <string_view>

#include "tools/fiscalon/commands/printed_fields.h"
#include "tools/reading/shown_record.h"

namespace fiscalon {

/// Prints records as JSON: the same facts as the printed form, for machines. Texts are UTF-8, meanings the same under
/// any locale, and it is JSON whatever bytes the record holds.
class JsonPrinter {
 public:
  JsonPrinter();

  /// Appends a record as one line, without a line end.
  void Append(std::string& out, const ShownRecord& record);

 private:
  PrintedFields fields_;
};

/// Appends a string of JSON. What is not UTF-8 in it is replaced.
void AppendJsonString(std::string& out, std::string_view utf8);

}  // namespace fiscalon
