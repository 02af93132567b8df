#include "tests/support/shown_again.h"

#include <algorithm>
#include <iostream>
#include <vector>

#include "frontends/win32/win32_toolkit.h"
#include "frontends/win32/windows_api.h"
#include "tests/faults/allocation_fault.h"
#include "tests/frontends/win32/bare_windows.h"

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

/// Of all blocks that anybody has got from a heap, the system too.
size_t BytesInHeaps() {
  std::vector<HANDLE> heaps(::GetProcessHeaps(0, nullptr));
  heaps.resize(std::min<size_t>(heaps.size(), ::GetProcessHeaps(static_cast<DWORD>(heaps.size()), heaps.data())));
  size_t bytes = 0;
  for (const HANDLE heap : heaps) {
    PROCESS_HEAP_ENTRY entry = {};
    while (::HeapWalk(heap, &entry) != FALSE)
      if ((entry.wFlags & PROCESS_HEAP_ENTRY_BUSY) != 0)
        bytes += entry.cbData;
  }
  return bytes;
}

Held HeldNow() {
  PROCESS_MEMORY_COUNTERS memory = {};
  memory.cb = sizeof(memory);
  ::GetProcessMemoryInfo(::GetCurrentProcess(), &memory, sizeof(memory));
  return {{"handles", Handles()},
          {"windows' objects", WindowsObjects()},
          {"drawing objects", DrawingObjects()},
          {"allocations", LiveAllocations()},
          {"bytes in heaps", BytesInHeaps()},
          {"bytes in use", memory.PagefileUsage},
          {"resident bytes", memory.WorkingSetSize}};
}

/// The windows of the forms that were shown, each once.
std::vector<BareWindows> formsAsWindows;

/// What the system itself keeps of as many bare windows that are gone, by name.
Held KeptOfBareWindows() {
  const auto showAll = [](int times) {
    for (int shown = 0; shown < times; ++shown)
      formsAsWindows[static_cast<size_t>(shown) % formsAsWindows.size()].ShowOnce();
  };
  showAll(2 * static_cast<int>(formsAsWindows.size()));
  const Held before = HeldNow();
  showAll(TimesShownAgain());
  Held kept;
  for (const auto& [what, now] : HeldNow()) {
    kept[what] = now - std::min(now, before.at(what));
    std::cout << what << " kept of bare windows: " << kept[what] << '\n';
  }
  return kept;
}

TEST(Win32Toolkit, HoldsNoMoreThanBeforeWhenFormsAreShownAgain) {
  Win32Toolkit toolkit;
  UseToolkit(&toolkit);
  const auto show = [](const GoodSession& session, Levyra& host) {
    ::SetTimer(nullptr, 0, 0, [](HWND, UINT, UINT_PTR timer, DWORD) {
      ::KillTimer(nullptr, timer);
      if (formsAsWindows.size() < std::size(kGoodSessions))
        formsAsWindows.emplace_back(::GetActiveWindow());
      ::SendMessageW(::GetActiveWindow(), WM_SYSCOMMAND, SC_CLOSE, 0);
    });
    return host.ShowLevyraScreen(session.code);
  };
  Levyra host;
  for (const GoodSession& session : kGoodSessions) {
    fiscalon::SetUp(session, host);
    show(session, host);
  }
  const Held bare = KeptOfBareWindows();
  // Wine keeps a block for each control of the new look that was there, in whatever room its heap has first. Caches
  // settle late.
  constexpr size_t kOfCaches = 1 << 14U;
  const size_t ofSystem = (1 << 20U) + size_t{600} * static_cast<size_t>(TimesShownAgain());
  const Held allowed = {{"allocations", 50},
                        {"bytes in heaps", bare.at("bytes in heaps") + kOfCaches},
                        {"bytes in use", bare.at("bytes in use") + ofSystem},
                        {"resident bytes", bare.at("resident bytes") + ofSystem}};
  ExpectToHoldNoMoreWhenShownAgain(show, HeldNow, allowed);
  UseToolkit(nullptr);
}

}  // namespace
}  // namespace fiscalon::win32
