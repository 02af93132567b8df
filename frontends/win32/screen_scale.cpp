#include "frontends/win32/screen_scale.h"

namespace fiscalon::win32 {
namespace {

/// A routine that older systems do not have, or null.
template <class Routine>
Routine FromUser32(const char* name) {
  return reinterpret_cast<Routine>(reinterpret_cast<void*>(::GetProcAddress(::GetModuleHandleW(L"user32.dll"), name)));
}

using SetThreadContext = HANDLE(WINAPI*)(HANDLE);
using DpiForWindow = UINT(WINAPI*)(HWND);
using AdjustForDpi = BOOL(WINAPI*)(RECT*, DWORD, BOOL, DWORD, UINT);
using ParametersForDpi = BOOL(WINAPI*)(UINT, UINT, void*, UINT, UINT);

HANDLE SwitchTo(HANDLE context) {
  static const auto set = FromUser32<SetThreadContext>("SetThreadDpiAwarenessContext");
  return set == nullptr ? nullptr : set(context);
}

int DotsPerInchOfSystem() {
  HDC screen = ::GetDC(nullptr);
  const int dots = ::GetDeviceCaps(screen, LOGPIXELSY);
  ::ReleaseDC(nullptr, screen);
  return dots;
}

}  // namespace

int DotsPerInchOf(HWND window) {
  static const auto get = FromUser32<DpiForWindow>("GetDpiForWindow");
  const int dots = get == nullptr ? 0 : static_cast<int>(get(window));
  return dots > 0 ? dots : DotsPerInchOfSystem();
}

RECT WindowAround(const RECT& client, DWORD style, DWORD extendedStyle, int dotsPerInch) {
  static const auto adjust = FromUser32<AdjustForDpi>("AdjustWindowRectExForDpi");
  RECT window = client;
  if (adjust == nullptr || adjust(&window, style, FALSE, extendedStyle, static_cast<UINT>(dotsPerInch)) == FALSE)
    ::AdjustWindowRectEx(&window, style, FALSE, extendedStyle);
  return window;
}

NONCLIENTMETRICSW FontsOfSystem(int dotsPerInch) {
  static const auto get = FromUser32<ParametersForDpi>("SystemParametersInfoForDpi");
  NONCLIENTMETRICSW metrics = {};
  metrics.cbSize = sizeof(metrics);
  if (get != nullptr &&
      get(SPI_GETNONCLIENTMETRICS, sizeof(metrics), &metrics, 0, static_cast<UINT>(dotsPerInch)) != FALSE)
    return metrics;
  ::SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof(metrics), &metrics, 0);
  metrics.lfMessageFont.lfHeight = ::MulDiv(metrics.lfMessageFont.lfHeight, dotsPerInch, DotsPerInchOfSystem());
  return metrics;
}

// Per-monitor awareness: of the system's fixed handles the one that all versions know.
ScalingByMonitor::ScalingByMonitor() : before_(SwitchTo(reinterpret_cast<HANDLE>(static_cast<INT_PTR>(-3)))) {}

ScalingByMonitor::~ScalingByMonitor() {
  if (before_ != nullptr)
    SwitchTo(before_);
}

}  // namespace fiscalon::win32
