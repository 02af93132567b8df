#pragma once

#include <string>
#include <string_view>

#include "tools/reading/shown_record.h"

namespace fiscalon {

/// Appends a record as one line of JSON, without a line end: the same facts as the printed form, for machines. Texts
/// are UTF-8, meanings the same under any locale, and the line is JSON whatever bytes the record holds.
void AppendJson(std::string& out, const ShownRecord& record);

/// Appends a string of JSON. What is not UTF-8 in it is replaced.
void AppendJsonString(std::string& out, std::string_view utf8);

}  // namespace fiscalon
