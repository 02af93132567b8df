#include "component/texts.h"

#include <new>

#include "core/platform/windows/wide_text.h"

namespace fiscalon::component {

std::string FromHost(BSTR text) {
  return FromWide({text, SysStringLen(text)});
}

BSTR ToHost(std::string_view text) {
  const std::wstring wide = ToWide(text);
  const BSTR copy = SysAllocStringLen(wide.data(), static_cast<UINT>(wide.size()));
  if (copy == nullptr)
    throw std::bad_alloc();
  return copy;
}

}  // namespace fiscalon::component
