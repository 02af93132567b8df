#include "core/platform/windows/system_path.h"

#include <windows.h>

#include "core/platform/windows/wide_text.h"

namespace fiscalon {

namespace {

/// Up to here a path needs no mark; some calls keep twelve characters of `MAX_PATH` for a name in a folder.
constexpr size_t kShort = MAX_PATH - 12;

}  // namespace

std::wstring SystemPath(std::string_view utf8) {
  std::wstring path = Utf8ToWide(utf8);
  if (path.size() < kShort || path.starts_with(L"\\\\?\\"))
    return path;
  // The mark of a long path works on one that is whole and plain.
  std::wstring whole(::GetFullPathNameW(path.c_str(), 0, nullptr, nullptr), L'\0');
  whole.resize(::GetFullPathNameW(path.c_str(), static_cast<DWORD>(whole.size()), whole.data(), nullptr));
  if (whole.empty())
    return path;
  return whole.starts_with(L"\\\\") ? L"\\\\?\\UNC\\" + whole.substr(2) : L"\\\\?\\" + whole;
}

}  // namespace fiscalon
