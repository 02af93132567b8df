#include "component/texts.h"

#include <new>

#include "core/platform/code_page.h"

namespace fiscalon::component {

std::string FromHost(const OLECHAR* text, size_t length) {
  if (length == 0)
    return {};
  const auto units = static_cast<int>(length);
  const int bytes = WideCharToMultiByte(CP_UTF8, 0, text, units, nullptr, 0, nullptr, nullptr);
  std::string utf8(static_cast<size_t>(bytes), '\0');
  WideCharToMultiByte(CP_UTF8, 0, text, units, utf8.data(), bytes, nullptr, nullptr);
  return FromUtf8(utf8);
}

std::string FromHost(BSTR text) {
  return FromHost(text, SysStringLen(text));
}

std::wstring Wide(std::string_view text) {
  if (text.empty())
    return {};
  const std::string utf8 = ToUtf8(text);
  const auto bytes = static_cast<int>(utf8.size());
  const int units = MultiByteToWideChar(CP_UTF8, 0, utf8.data(), bytes, nullptr, 0);
  std::wstring wide(static_cast<size_t>(units), L'\0');
  MultiByteToWideChar(CP_UTF8, 0, utf8.data(), bytes, wide.data(), units);
  return wide;
}

BSTR ToHost(std::string_view text) {
  const std::wstring wide = Wide(text);
  const BSTR copy = SysAllocStringLen(wide.data(), static_cast<UINT>(wide.size()));
  if (copy == nullptr)
    throw std::bad_alloc();
  return copy;
}

}  // namespace fiscalon::component
