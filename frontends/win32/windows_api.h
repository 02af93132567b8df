#pragma once

// The standard library has a std::min of its own.
#ifndef NOMINMAX
#define NOMINMAX
#endif
#include <windows.h>

#include <string>

/// What the sources of this front end need of the system.
namespace fiscalon::win32 {

/// The program or library that holds this code, to which its window classes and resources belong.
HINSTANCE OwnModule();

/// Throws `std::system_error` for what the system has just refused.
[[noreturn]] void ThrowLastError(const char* what);

/// The text of a window or of a control.
std::wstring TextOfWindow(HWND window);

}  // namespace fiscalon::win32
