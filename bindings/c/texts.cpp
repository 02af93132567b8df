#include "bindings/c/texts.h"

#include <algorithm>

#include "bindings/c/failure.h"
#include "core/platform/code_page.h"

namespace fiscalon::c {

std::string FromHost(std::string_view utf8) {
  if (IsAscii(utf8))
    return std::string(utf8);
  std::string text = FromUtf8(utf8);
  // What has come through whole comes back as it was.
  const std::string back = ToUtf8(text);
  if (back != utf8) {
    const auto parted = std::ranges::mismatch(utf8, back).in1 - utf8.begin();
    Fail(FISCALON_ERROR_TEXT, "The text is no UTF-8, or has a character that Windows-1252 lacks, at its byte " +
                                  std::to_string(parted + 1) + ".");
  }
  return text;
}

std::string FromHost(const char* utf8) {
  if (utf8 == nullptr)
    Fail(FISCALON_ERROR_NULL_POINTER, "NULL was given for a text.");
  return FromHost(std::string_view(utf8));
}

std::string FromHostOrEmpty(const char* utf8) {
  return utf8 == nullptr ? std::string() : FromHost(utf8);
}

std::string ToHost(std::string_view text) {
  if (text.find('\0') != text.npos)
    Fail(FISCALON_ERROR_TEXT, "The text has a zero within, which would end it.");
  return ToUtf8(text);
}

}  // namespace fiscalon::c
