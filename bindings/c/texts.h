#pragma once

#include <string>
#include <string_view>

/// Texts between hosts, who have UTF-8, and the library's code page.
namespace fiscalon::c {

/// The text in the code page. Throws FISCALON_ERROR_NULL_POINTER for NULL, FISCALON_ERROR_TEXT for what is no UTF-8 or
/// has no place in the code page.
std::string FromHost(const char* utf8);
std::string FromHost(std::string_view utf8);
/// The same, where NULL stands for an empty text.
std::string FromHostOrEmpty(const char* utf8);

/// The text in UTF-8. Throws FISCALON_ERROR_TEXT where a zero within would end it for the host.
std::string ToHost(std::string_view text);

}  // namespace fiscalon::c
