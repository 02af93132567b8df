#pragma once

#include <string>
#include <string_view>

/// The edge between the system's UTF-16 and the library's texts.
namespace fiscalon {

/// A text of the code page in UTF-16. Every byte has a character, see `ToUtf8`.
std::wstring ToWide(std::string_view text);

/// The text in the code page. A character that has no place there becomes "?".
std::string FromWide(std::wstring_view wide);

std::wstring Utf8ToWide(std::string_view utf8);

/// Half a surrogate pair becomes U+FFFD.
std::string WideToUtf8(std::wstring_view wide);

}  // namespace fiscalon
