// Runs a host and is its user: fill_form TEXT BUTTON HOST ARGUMENT...
// When the host shows a form, types the text into whatever has the focus and presses the button with that caption. Ends
// with the host's status; 99 when the host could not be run, or its form has no such button.

#include <windows.h>

#include <iostream>
#include <string>

namespace {

struct Search {
  DWORD process = 0;
  HWND form = nullptr;
};

BOOL CALLBACK FindForm(HWND window, LPARAM parameter) {
  auto& search = *reinterpret_cast<Search*>(parameter);
  DWORD process = 0;
  GetWindowThreadProcessId(window, &process);
  wchar_t kind[64] = {};
  GetClassNameW(window, kind, 64);
  if (process == search.process && IsWindowVisible(window) && std::wstring(kind) == L"FiscalonForm")
    search.form = window;
  return search.form == nullptr;
}

// The field of the form that has the focus; none while the form is still being made.
HWND FocusOf(HWND form) {
  GUITHREADINFO thread = {};
  thread.cbSize = sizeof thread;
  GetGUIThreadInfo(GetWindowThreadProcessId(form, nullptr), &thread);
  return thread.hwndFocus != form ? thread.hwndFocus : nullptr;
}

struct Wanted {
  std::wstring caption = {};
  HWND button = nullptr;
};

BOOL CALLBACK FindButton(HWND window, LPARAM parameter) {
  auto& wanted = *reinterpret_cast<Wanted*>(parameter);
  wchar_t caption[64] = {};
  GetWindowTextW(window, caption, 64);
  if (caption == wanted.caption)
    wanted.button = window;
  return wanted.button == nullptr;
}

bool Fill(HWND form, const std::wstring& text, const std::wstring& caption) {
  // The form moves the focus on when a field is full.
  for (const wchar_t character : text) SendMessageW(FocusOf(form), WM_CHAR, static_cast<WPARAM>(character), 1);
  Wanted wanted{.caption = caption};
  EnumChildWindows(form, FindButton, reinterpret_cast<LPARAM>(&wanted));
  return wanted.button != nullptr && PostMessageW(wanted.button, BM_CLICK, 0, 0);
}

}  // namespace

int wmain(int count, wchar_t** arguments) {
  if (count < 4)
    return 99;
  std::wstring command;
  for (int each = 3; each < count; ++each) command += L"\"" + std::wstring(arguments[each]) + L"\" ";
  STARTUPINFOW start = {};
  start.cb = sizeof start;
  PROCESS_INFORMATION host = {};
  if (!CreateProcessW(nullptr, command.data(), nullptr, nullptr, TRUE, 0, nullptr, nullptr, &start, &host)) {
    std::cerr << "the host cannot be run: " << GetLastError() << '\n';
    return 99;
  }
  // Looks until there is a form or the host has ended without one.
  bool filled = false;
  while (WaitForSingleObject(host.hProcess, 20) == WAIT_TIMEOUT) {
    Search search{.process = host.dwProcessId};
    if (!filled)
      EnumWindows(FindForm, reinterpret_cast<LPARAM>(&search));
    if (search.form != nullptr && FocusOf(search.form) != nullptr) {
      filled = true;
      if (!Fill(search.form, arguments[1], arguments[2])) {
        std::cerr << "the form has no such button\n";
        TerminateProcess(host.hProcess, 99);
      }
    }
  }
  DWORD status = 99;
  GetExitCodeProcess(host.hProcess, &status);
  return static_cast<int>(status);
}
