#include "frontends/win32/played_win32_toolkit.h"

#include <exception>
#include <utility>

#include "core/forms/among.h"
#include "frontends/win32/form_window.h"
#include "frontends/win32/message_window.h"
#include "frontends/win32/win32_driver.h"

namespace fiscalon {
namespace {

/// Reads the next box of the thread when it comes up, and presses the button that somebody says.
class BoxUser {
 public:
  using Answers = std::function<MessageAnswer(const BoxRequest& shown)>;

  explicit BoxUser(Answers answers)
      : answers_(std::move(answers)),
        before_(std::exchange(current_, this)),
        hook_(::SetWindowsHookExW(WH_CBT, &BoxUser::Hook, nullptr, ::GetCurrentThreadId())) {}
  ~BoxUser() {
    Unhook();
    current_ = before_;
  }
  BoxUser(const BoxUser&) = delete;
  BoxUser& operator=(const BoxUser&) = delete;

  /// What left the answers: no exception may cross the box itself.
  void Rethrow() const {
    if (failure_)
      std::rethrow_exception(failure_);
  }

 private:
  static LRESULT CALLBACK Hook(int code, WPARAM wide, LPARAM extra) {
    BoxUser* user = current_;
    if (code != HCBT_ACTIVATE || user == nullptr || user->hook_ == nullptr)
      return ::CallNextHookEx(nullptr, code, wide, extra);
    user->Unhook();
    // The box comes up before it is complete: its default button is marked last.
    const auto box = reinterpret_cast<HWND>(wide);
    user->native_ = reinterpret_cast<WNDPROC>(
        ::SetWindowLongPtrW(box, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&BoxUser::Procedure)));
    ::PostMessageW(box, kIsUp, 0, 0);
    return 0;
  }

  static LRESULT CALLBACK Procedure(HWND box, UINT message, WPARAM wide, LPARAM extra) {
    if (message != kIsUp)
      return ::CallWindowProcW(current_->native_, box, message, wide, extra);
    current_->Answer(box);
    return 0;
  }

  void Unhook() {
    if (const HHOOK hook = std::exchange(hook_, nullptr))
      ::UnhookWindowsHookEx(hook);
  }

  void Answer(HWND box) {
    const BoxRequest shown = win32::ShownIn(box);
    MessageAnswer answer = shown.DefaultAnswer();
    try {
      answer = answers_(shown);
    } catch (...) {
      failure_ = std::current_exception();
    }
    const int id = win32::ButtonIdOf(answer);
    ::PostMessageW(box, WM_COMMAND, MAKEWPARAM(id, BN_CLICKED), reinterpret_cast<LPARAM>(::GetDlgItem(box, id)));
  }

  static constexpr UINT kIsUp = WM_APP + 1;
  static inline BoxUser* current_ = nullptr;

  Answers answers_;
  BoxUser* before_;
  HHOOK hook_;
  WNDPROC native_ = nullptr;
  std::exception_ptr failure_;
};

}  // namespace

PlayedWin32Toolkit::PlayedWin32Toolkit(int dotsPerInch) : dotsPerInch_(dotsPerInch) {
  // Strokes are those of a North American keyboard.
  ::LoadKeyboardLayoutW(L"00000409", KLF_ACTIVATE);
}

void PlayedWin32Toolkit::ServeModal(Form& form) {
  if (Watcher() != nullptr)
    Watcher()->Opened(form);
  win32::FormWindow window(form, windows_.empty() ? nullptr : Window()->Window(), Watcher(), dotsPerInch_);
  const Among up(windows_, window);
  window.onHandler = [this](std::string_view object, std::string_view event) { HandlerRuns(object, event); };
  window.Present();
  win32::Win32Driver user(window);
  user.ServeMessages();
  Drive(form, user);
  window.Rethrow();
}

MessageAnswer PlayedWin32Toolkit::ShowMessage(const BoxRequest& box) {
  if (Window() != nullptr)
    Window()->Settle();
  const BoxUser user([this](const BoxRequest& shown) { return AnswerTo(shown); });
  BoxRequest asked = box;
  // Whatever program plays, the host's name is this one.
  if (asked.title.empty())
    asked.title = "Fiscalon";
  const MessageAnswer given = win32::AskByBox(asked, Window() == nullptr ? nullptr : Window()->Window());
  user.Rethrow();
  return Answered(box, given);
}

}  // namespace fiscalon
