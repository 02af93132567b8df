#include "tools/fiscalon/files/terminal.h"

#include <windows.h>

namespace fiscalon {

std::optional<size_t> TerminalWidth() {
  CONSOLE_SCREEN_BUFFER_INFO console = {};
  if (!::GetConsoleScreenBufferInfo(::GetStdHandle(STD_OUTPUT_HANDLE), &console))
    return std::nullopt;
  return static_cast<size_t>(console.srWindow.Right - console.srWindow.Left + 1);
}

bool ComplaintsAreSeen() {
  DWORD mode = 0;
  return ::GetConsoleMode(::GetStdHandle(STD_ERROR_HANDLE), &mode) != 0;
}

}  // namespace fiscalon
