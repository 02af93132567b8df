#include "component/registry.h"

#include <memory>

#include "component/failure.h"
#include "core/platform/windows/wide_text.h"

namespace fiscalon::component {

namespace {

struct CloseKey {
  using pointer = HKEY;
  void operator()(HKEY key) const { RegCloseKey(key); }
};
using Key = std::unique_ptr<HKEY, CloseKey>;

bool IsMissing(LSTATUS status) {
  return status == ERROR_FILE_NOT_FOUND || status == ERROR_PATH_NOT_FOUND;
}

std::string ReasonOf(LSTATUS status) {
  wchar_t* text = nullptr;
  const DWORD length =
      FormatMessageW(FORMAT_MESSAGE_ALLOCATE_BUFFER | FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS,
                     nullptr, static_cast<DWORD>(status), 0, reinterpret_cast<LPWSTR>(&text), 0, nullptr);
  std::string reason = FromWide({text, length});
  LocalFree(text);
  while (!reason.empty() && (reason.back() == '\n' || reason.back() == '\r' || reason.back() == ' ')) reason.pop_back();
  return reason.empty() ? "error " + std::to_string(status) : reason;
}

}  // namespace

void Registry::Check(LSTATUS status, const char* what, const std::wstring& path) const {
  if (status == ERROR_SUCCESS)
    return;
  const std::wstring place = name_ + L"\\" + path;
  std::string description = std::string(what) + " " + FromWide(place) + ": " + ReasonOf(status);
  if (status == ERROR_ACCESS_DENIED)
    description += " Register as an administrator, or for one user: regsvr32 /n /i:user fiscalon.dll";
  throw ComponentError(HRESULT_FROM_WIN32(static_cast<DWORD>(status)), description);
}

void Registry::Write(const std::wstring& path, const std::wstring& name, const std::wstring& text) const {
  HKEY opened = nullptr;
  Check(RegCreateKeyExW(root_, path.c_str(), 0, nullptr, 0, KEY_WRITE, nullptr, &opened, nullptr), "Cannot make", path);
  const Key key(opened);
  const auto bytes = static_cast<DWORD>((text.size() + 1) * sizeof(wchar_t));
  Check(RegSetValueExW(opened, name.c_str(), 0, REG_SZ, reinterpret_cast<const BYTE*>(text.c_str()), bytes),
        "Cannot write", path);
}

void Registry::Remove(const std::wstring& path) const {
  const LSTATUS emptied = RegDeleteTreeW(root_, path.c_str());
  if (!IsMissing(emptied))
    Check(emptied, "Cannot remove", path);
}

void Registry::RemoveIfEmpty(const std::wstring& path) const {
  HKEY opened = nullptr;
  if (RegOpenKeyExW(root_, path.c_str(), 0, KEY_READ, &opened) != ERROR_SUCCESS)
    return;
  DWORD keys = 0;
  DWORD values = 0;
  const LSTATUS asked = RegQueryInfoKeyW(opened, nullptr, nullptr, nullptr, &keys, nullptr, nullptr, &values, nullptr,
                                         nullptr, nullptr, nullptr);
  RegCloseKey(opened);
  // A branch that the system itself keeps may refuse, and an empty folder more does no harm.
  if (asked == ERROR_SUCCESS && keys == 0 && values == 0)
    RegDeleteKeyW(root_, path.c_str());
}

bool Registry::Has(const std::wstring& path) const {
  HKEY opened = nullptr;
  if (RegOpenKeyExW(root_, path.c_str(), 0, KEY_READ, &opened) != ERROR_SUCCESS)
    return false;
  RegCloseKey(opened);
  return true;
}

}  // namespace fiscalon::component
