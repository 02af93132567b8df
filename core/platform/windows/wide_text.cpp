#include "core/platform/windows/wide_text.h"

#include <windows.h>

#include "core/platform/code_page.h"

namespace fiscalon {

std::wstring ToWide(std::string_view text) {
  return Utf8ToWide(ToUtf8(text));
}

std::string FromWide(std::wstring_view wide) {
  return FromUtf8(WideToUtf8(wide));
}

std::wstring Utf8ToWide(std::string_view utf8) {
  const auto size = static_cast<int>(utf8.size());
  std::wstring wide(utf8.size(), L'\0');
  const int written = ::MultiByteToWideChar(CP_UTF8, 0, utf8.data(), size, wide.data(), size);
  wide.resize(static_cast<size_t>(written));
  return wide;
}

std::string WideToUtf8(std::wstring_view wide) {
  // One unit of UTF-16 takes three bytes at most.
  std::string utf8(wide.size() * 3, '\0');
  const int written = ::WideCharToMultiByte(CP_UTF8, 0, wide.data(), static_cast<int>(wide.size()), utf8.data(),
                                            static_cast<int>(utf8.size()), nullptr, nullptr);
  utf8.resize(static_cast<size_t>(written));
  return utf8;
}

}  // namespace fiscalon
