#pragma once

#include <array>
#include <string>
#include <vector>

#include "frontends/win32/common_controls.h"
#include "frontends/win32/windows_api.h"

namespace fiscalon::win32 {

/// The windows that a form is made of, as they are seen by any program, to be made again without the form: what the
/// system keeps of windows that are gone is what it keeps of these.
class BareWindows {
 public:
  /// Those of a window that is up.
  explicit BareWindows(HWND window) {
    Add(window, kNone);
    ::EnumChildWindows(
        window,
        [](HWND child, LPARAM self) {
          auto& windows = *reinterpret_cast<BareWindows*>(self);
          windows.Add(child, windows.PlaceOf(::GetParent(child)));
          return TRUE;
        },
        reinterpret_cast<LPARAM>(this));
  }

  /// Makes them, shows them, serves what comes of it, and destroys them.
  void ShowOnce() const {
    std::vector<HWND> made;
    // As new controls look, which are others than those of old.
    const CommonControls look;
    const HDC surface = ::CreateCompatibleDC(nullptr);
    std::array<HFONT, 3> fonts = {};
    for (HFONT& font : fonts) font = ::CreateFontW(-11, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, L"Tahoma");
    for (const Part& part : parts_) {
      const HWND parent = part.parent == kNone ? nullptr : made[part.parent];
      const HWND window = ::CreateWindowExW(part.extendedStyle, part.className.c_str(), L"", part.style & ~WS_VISIBLE,
                                            part.place.left, part.place.top, part.place.right - part.place.left,
                                            part.place.bottom - part.place.top, parent, nullptr, OwnModule(), nullptr);
      ::SendMessageW(window, WM_SETFONT, reinterpret_cast<WPARAM>(fonts.front()), FALSE);
      ::SetWindowTextW(window, part.text.c_str());
      for (const std::wstring& row : part.rows)
        ::SendMessageW(window, part.addRow, 0, reinterpret_cast<LPARAM>(row.c_str()));
      if ((part.style & WS_VISIBLE) != 0 && parent != nullptr)
        ::ShowWindow(window, SW_SHOWNA);
      made.push_back(window);
    }
    ::ShowWindow(made.front(), SW_SHOW);
    ::SetActiveWindow(made.front());
    ::SetFocus(made.back());
    MSG message = {};
    while (::PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE) != FALSE) ::DispatchMessageW(&message);
    ::DestroyWindow(made.front());
    for (const HFONT font : fonts) ::DeleteObject(font);
    ::DeleteDC(surface);
  }

 private:
  static constexpr size_t kNone = static_cast<size_t>(-1);

  struct Part {
    HWND seen;
    size_t parent;
    std::wstring className;
    std::wstring text;
    DWORD style;
    DWORD extendedStyle;
    RECT place;
    UINT addRow;
    std::vector<std::wstring> rows;
  };

  size_t PlaceOf(HWND window) const {
    for (size_t i = 0; i < parts_.size(); ++i)
      if (parts_[i].seen == window)
        return i;
    return 0;
  }

  void Add(HWND window, size_t parent) {
    std::array<wchar_t, 64> name = {};
    ::GetClassNameW(window, name.data(), static_cast<int>(name.size()));
    WNDCLASSW known = {};
    // The form's own classes make windows for forms alone.
    const std::wstring className = ::GetClassInfoW(nullptr, name.data(), &known) != FALSE ? name.data() : Plain();
    Part part = {.seen = window,
                 .parent = parent,
                 .className = className,
                 .text = TextOfWindow(window),
                 .style = static_cast<DWORD>(::GetWindowLongPtrW(window, GWL_STYLE)),
                 .extendedStyle = static_cast<DWORD>(::GetWindowLongPtrW(window, GWL_EXSTYLE)),
                 .place = {},
                 .addRow = 0,
                 .rows = {}};
    ::GetWindowRect(window, &part.place);
    if (parent != kNone)
      ::MapWindowPoints(nullptr, ::GetParent(window), reinterpret_cast<POINT*>(&part.place), 2);
    if (className == L"ComboBox" || className == L"ListBox") {
      const bool drops = className == L"ComboBox";
      part.addRow = drops ? CB_ADDSTRING : LB_ADDSTRING;
      part.rows.resize(static_cast<size_t>(::SendMessageW(window, drops ? CB_GETCOUNT : LB_GETCOUNT, 0, 0)), L"row");
    }
    parts_.push_back(std::move(part));
  }

  static const wchar_t* Plain() {
    static const bool isThere = [] {
      WNDCLASSW plain = {};
      plain.lpfnWndProc = &::DefWindowProcW;
      plain.hInstance = OwnModule();
      plain.lpszClassName = L"BareWindow";
      return ::RegisterClassW(&plain) != 0;
    }();
    return isThere ? L"BareWindow" : L"STATIC";
  }

  std::vector<Part> parts_;
};

}  // namespace fiscalon::win32
