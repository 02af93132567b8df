#pragma once

#include <string>

#include "core/platform/locale.h"
#include "tools/fiscalon/shown_record.h"

namespace fiscalon {

/// What stands in a field, in words for the user (UTF-8): "11 of 30 characters", "12345, as cents $123.45".
std::string RemarkOn(const ShownField& field, const Locale& locale);

/// What is always blank is passed over, unless something stands in it.
bool IsWorthALine(const ShownField& field);

}  // namespace fiscalon
