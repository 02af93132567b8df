#pragma once

#include <string>
#include <string_view>

namespace fiscalon {

/// A path as the system's own calls take it, of any length. The given one is UTF-8.
std::wstring SystemPath(std::string_view utf8);

}  // namespace fiscalon
