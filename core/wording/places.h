#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace fiscalon {

/// The text with what its places hold, "{1}" the first one.
std::string WithPlaces(std::string_view text, const std::vector<std::string>& held);

/// A caption without the colon at its end and the blanks before it: the name that it is in other texts. In the code
/// page.
std::string WithoutColon(std::string_view caption);

}  // namespace fiscalon
