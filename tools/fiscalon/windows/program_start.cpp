#include "tools/fiscalon/program_start.h"

#include <fcntl.h>
#include <io.h>
#include <stdio.h>
#include <windows.h>

#include "core/platform/windows/wide_text.h"

/// The runtime library's reading of the command line: UTF-16, with the files that a pattern names, which no shell has
/// put in its place. It is what `main` gets with -municode.
extern "C" int __wgetmainargs(int* count, wchar_t*** arguments, wchar_t*** environment, int expandsPatterns,
                              int* newMode);

namespace fiscalon {
namespace {

/// Colours and UTF-8 on a console.
void PrepareConsole() {
  const HANDLE output = ::GetStdHandle(STD_OUTPUT_HANDLE);
  DWORD mode = 0;
  if (::GetConsoleMode(output, &mode))
    ::SetConsoleMode(output, mode | ENABLE_VIRTUAL_TERMINAL_PROCESSING);
  ::SetConsoleOutputCP(CP_UTF8);
}

}  // namespace

ProgramStart::ProgramStart(int /*argc*/, char** /*argv*/) : terminalBefore_(::GetConsoleOutputCP()) {
  int count = 0;
  int newMode = 0;
  wchar_t** arguments = nullptr;
  wchar_t** environment = nullptr;
  __wgetmainargs(&count, &arguments, &environment, 1, &newMode);
  for (int i = 0; i < count; ++i) texts_.push_back(WideToUtf8(arguments[i]));
  for (std::string& text : texts_) arguments_.push_back(text.data());
  arguments_.push_back(nullptr);

  for (std::FILE* const stream : {stdin, stdout}) ::_setmode(::_fileno(stream), _O_BINARY);
  PrepareConsole();
}

ProgramStart::~ProgramStart() {
  if (terminalBefore_ != 0)
    ::SetConsoleOutputCP(terminalBefore_);
}

std::string FolderOfProgram() {
  // The longest that a path may be.
  std::wstring path(32768, L'\0');
  path.resize(::GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size())));
  return WideToUtf8(path.substr(0, path.find_last_of(L'\\')));
}

}  // namespace fiscalon
