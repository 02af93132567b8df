#pragma once

#include <string>
#include <string_view>

namespace fiscalon::terminal {

/// The characters of well-formed UTF-8.
std::u32string DecodedUtf8(std::string_view utf8);
void AppendUtf8(std::string& utf8, char32_t character);

}  // namespace fiscalon::terminal
