#include "frontends/win32/win32_toolkit.h"

#include <vector>

#include "core/forms/among.h"
#include "core/platform/windows/wide_text.h"
#include "frontends/win32/form_window.h"
#include "frontends/win32/message_window.h"

namespace fiscalon {
namespace {

enum class HelpResult { Opened, FileIsMissing, NoViewer };

/// The help viewer is loaded when it is first needed: most hosts never do.
HelpResult ShowHelp(const std::wstring& file, const std::wstring& path, int32_t context, HWND owner) {
  if (::GetFileAttributesW(path.c_str()) == INVALID_FILE_ATTRIBUTES)
    return HelpResult::FileIsMissing;
  using HtmlHelp = HWND(WINAPI*)(HWND, LPCWSTR, UINT, DWORD_PTR);
  static const HMODULE viewer = ::LoadLibraryW(L"hhctrl.ocx");
  static const auto show =
      viewer == nullptr ? nullptr
                        : reinterpret_cast<HtmlHelp>(reinterpret_cast<void*>(::GetProcAddress(viewer, "HtmlHelpW")));
  constexpr UINT kContext = 0x000F;
  if (show == nullptr || show(owner, file.c_str(), kContext, static_cast<DWORD>(context)) == nullptr)
    return HelpResult::NoViewer;
  return HelpResult::Opened;
}

}  // namespace

struct Win32Toolkit::State {
  std::vector<win32::FormWindow*> windows;
  ActWatcher* watcher = nullptr;

  HWND TopWindow() const { return windows.empty() ? ::GetActiveWindow() : windows.back()->Window(); }

  MessageAnswer Ask(const BoxRequest& box) const {
    // What the handler has changed so far is seen behind the box.
    if (!windows.empty())
      windows.back()->Settle();
    return win32::AskByBox(box, TopWindow());
  }

  void Warn(const Wording& text) const {
    const Language language = windows.empty() ? Language() : windows.back()->ShownIn();
    Ask({.text = text.In(language), .style = MessageStyle::Exclamation, .language = language});
  }
};

Win32Toolkit::Win32Toolkit() : state_(std::make_unique<State>()) {}
Win32Toolkit::~Win32Toolkit() = default;

void Win32Toolkit::Watch(ActWatcher* watcher) {
  state_->watcher = watcher;
}

void Win32Toolkit::ServeModal(Form& form) {
  if (state_->watcher != nullptr)
    state_->watcher->Opened(form);
  win32::FormWindow window(form, state_->TopWindow(), state_->watcher);
  const Among up(state_->windows, window);
  window.Serve();
}

MessageAnswer Win32Toolkit::ShowMessage(const BoxRequest& box) {
  const MessageAnswer answer = state_->Ask(box);
  if (state_->watcher != nullptr)
    state_->watcher->BoxAnswered(box, answer);
  return answer;
}

void Win32Toolkit::Beep() {
  if (state_->watcher != nullptr)
    state_->watcher->Beeped();
  ::MessageBeep(MB_OK);
}

void Win32Toolkit::OpenHelp(std::string_view file, int32_t context) {
  if (state_->watcher != nullptr)
    state_->watcher->HelpOpened(file, context);
  const std::string path(file.substr(0, file.find('>')));
  switch (ShowHelp(ToWide(file), ToWide(path), context, state_->TopWindow())) {
    case HelpResult::Opened:
      return;
    case HelpResult::FileIsMissing:
      state_->Warn(Filled("The help file {1} is missing.", AsGiven(path)));
      return;
    case HelpResult::NoViewer:
      state_->Warn(Filled("No program on this computer opens the help file {1}.", AsGiven(path)));
      return;
  }
}

}  // namespace fiscalon
