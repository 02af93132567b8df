#pragma once

#include "frontends/win32/windows_api.h"

namespace fiscalon::win32 {

/// While one is there, controls and boxes are made with the common controls of version 6, whatever the host's manifest
/// says. Without the library's own manifest, in a program that has not linked it, they look as the host's do.
class CommonControls {
 public:
  CommonControls();
  ~CommonControls();
  CommonControls(const CommonControls&) = delete;
  CommonControls& operator=(const CommonControls&) = delete;

 private:
  ULONG_PTR cookie_ = 0;
  bool active_ = false;
};

}  // namespace fiscalon::win32
