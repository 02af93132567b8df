#include "tests/support/shown_again.h"

#include <algorithm>
#include <vector>

#include "frontends/win32/win32_toolkit.h"
#include "frontends/win32/windows_api.h"
#include "tests/faults/allocation_fault.h"

#include <psapi.h>

namespace fiscalon::win32 {
namespace {

/// How far a table of the system's is filled, as so many new objects of its kind find it: each takes a free place
/// before it takes a new one. For Wine, which counts nothing.
template <class Make, class Destroy>
size_t PlacesTaken(Make&& make, Destroy&& destroy) {
  std::vector<decltype(make())> objects(500);
  uintptr_t highest = 0;
  for (auto& object : objects) highest = std::max(highest, reinterpret_cast<uintptr_t>(object = make()) & 0xFFFFU);
  for (auto& object : objects) destroy(object);
  return highest;
}

size_t Handles() {
  DWORD count = 0;
  ::GetProcessHandleCount(::GetCurrentProcess(), &count);
  return count > 0 ? count : PlacesTaken([] { return ::CreateEventW(nullptr, FALSE, FALSE, nullptr); }, ::CloseHandle);
}

size_t WindowsObjects() {
  const DWORD count = ::GetGuiResources(::GetCurrentProcess(), GR_USEROBJECTS);
  const auto make = [] {
    return ::CreateWindowExW(0, L"STATIC", nullptr, 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr, nullptr, nullptr);
  };
  return count > 0 ? count : PlacesTaken(make, ::DestroyWindow);
}

size_t DrawingObjects() {
  const DWORD count = ::GetGuiResources(::GetCurrentProcess(), GR_GDIOBJECTS);
  return count > 0 ? count : PlacesTaken([] { return ::CreateSolidBrush(0); }, ::DeleteObject);
}

Held HeldNow() {
  PROCESS_MEMORY_COUNTERS memory = {};
  memory.cb = sizeof(memory);
  ::GetProcessMemoryInfo(::GetCurrentProcess(), &memory, sizeof(memory));
  return {{"handles", Handles()},
          {"windows' objects", WindowsObjects()},
          {"drawing objects", DrawingObjects()},
          {"allocations", LiveAllocations()},
          {"bytes in use", memory.PagefileUsage},
          {"resident bytes", memory.WorkingSetSize}};
}

TEST(Win32Toolkit, HoldsNoMoreThanBeforeWhenFormsAreShownAgain) {
  Win32Toolkit toolkit;
  UseToolkit(&toolkit);
  const auto show = [](const GoodSession& session, Levyra& host) {
    ::SetTimer(nullptr, 0, 0, [](HWND, UINT, UINT_PTR timer, DWORD) {
      ::KillTimer(nullptr, timer);
      ::SendMessageW(::GetActiveWindow(), WM_SYSCOMMAND, SC_CLOSE, 0);
    });
    return host.ShowLevyraScreen(session.code);
  };
  // Caches settle late, and Wine keeps some memory of its own for each window that was.
  const size_t ofSystem = (1 << 20U) + size_t{1500} * static_cast<size_t>(TimesShownAgain());
  const Held allowed = {{"allocations", 50}, {"bytes in use", ofSystem}, {"resident bytes", ofSystem}};
  ExpectToHoldNoMoreWhenShownAgain(show, HeldNow, allowed);
  UseToolkit(nullptr);
}

}  // namespace
}  // namespace fiscalon::win32
