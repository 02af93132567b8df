#pragma once

#include <string>

namespace fiscalon::terminal {

/// Has the desktop's program for a file open it, and does not wait for it. False where there is no desktop, or no such
/// program is found.
bool OpenOnDesktop(const std::string& path);

}  // namespace fiscalon::terminal
