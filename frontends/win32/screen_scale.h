#pragma once

#include "frontends/win32/windows_api.h"

/// How many pixels an inch of a screen has, where windows know that for themselves.
namespace fiscalon::win32 {

constexpr int kUsualDotsPerInch = 96;

int DotsPerInchOf(HWND window);

/// The rectangle of a window around a client area.
RECT WindowAround(const RECT& client, DWORD style, DWORD extendedStyle, int dotsPerInch);

/// The fonts of captions, menus and messages at a scale.
NONCLIENTMETRICSW FontsOfSystem(int dotsPerInch);

/// Windows that are made in the meantime scale themselves with the monitor that they are on, whatever the host's
/// windows do.
class ScalingByMonitor {
 public:
  ScalingByMonitor();
  ~ScalingByMonitor();
  ScalingByMonitor(const ScalingByMonitor&) = delete;
  ScalingByMonitor& operator=(const ScalingByMonitor&) = delete;

 private:
  HANDLE before_ = nullptr;
};

}  // namespace fiscalon::win32
