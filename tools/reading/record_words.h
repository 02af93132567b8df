#pragma once

#include <string>

#include "tools/reading/shown_record.h"

/// What desks call a record and its places, in UTF-8.
namespace fiscalon {

/// "Record 2: free format, sequence "0001"", "Line 3: no record"
std::string HeadingOf(const ShownRecord& record);

/// "11-28", or "9" for a single column; empty for the record as a whole.
std::string PlaceOf(int from, int to);

}  // namespace fiscalon
