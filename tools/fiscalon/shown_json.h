#pragma once

#include <iosfwd>
#include <string>
#include <vector>

#include "tools/fiscalon/shown_record.h"

namespace fiscalon {

/// One JSON document of the whole file: the same facts as the printed form, for machines. Texts are UTF-8, meanings
/// the same under any locale.
void PrintJson(std::ostream& out, const std::string& file, const LaunchRow* screen,
               const std::vector<ShownRecord>& records);

}  // namespace fiscalon
