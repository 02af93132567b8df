#pragma once

#include <string>
#include <string_view>

namespace fiscalon {

/// The system's picture of a date or a time, such as "d/MM/yyyy" or "h:mm:ss tt", as a pattern with the tokens of
/// `GeneralDate`. Texts are in the code page.
std::string PatternOfPicture(std::string_view picture);

}  // namespace fiscalon
