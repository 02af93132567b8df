#pragma once

#include <ole2.h>

#include <string>
#include <string_view>

/// The edge between hosts' texts, in UTF-16, and the library's, in Windows-1252.
namespace fiscalon::component {

/// The text of a host; NULL is the empty text. A character that the code page lacks becomes "?".
std::string FromHost(BSTR text);

/// A text for a host, which frees it.
BSTR ToHost(std::string_view text);

}  // namespace fiscalon::component
