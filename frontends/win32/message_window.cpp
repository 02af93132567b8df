#include "frontends/win32/message_window.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <utility>

#include "core/platform/windows/wide_text.h"
#include "frontends/win32/common_controls.h"

namespace fiscalon::win32 {
namespace {

struct StyleRow {
  MessageStyle style;
  UINT flag;
  LPWSTR icon;
};
const std::array kStyles = {
    StyleRow{MessageStyle::Plain, 0, nullptr},
    StyleRow{MessageStyle::Critical, MB_ICONERROR, reinterpret_cast<LPWSTR>(IDI_ERROR)},
    StyleRow{MessageStyle::Question, MB_ICONQUESTION, reinterpret_cast<LPWSTR>(IDI_QUESTION)},
    StyleRow{MessageStyle::Exclamation, MB_ICONWARNING, reinterpret_cast<LPWSTR>(IDI_WARNING)},
    StyleRow{MessageStyle::Information, MB_ICONINFORMATION, reinterpret_cast<LPWSTR>(IDI_INFORMATION)},
};

struct ButtonsRow {
  MessageButtons buttons;
  UINT flag;
};
constexpr std::array kButtons = {
    ButtonsRow{MessageButtons::Ok, MB_OK},
    ButtonsRow{MessageButtons::OkCancel, MB_OKCANCEL},
    ButtonsRow{MessageButtons::YesNo, MB_YESNO},
};

struct AnswerRow {
  MessageAnswer answer;
  int id;
};
constexpr std::array kAnswers = {
    AnswerRow{MessageAnswer::Ok, IDOK},
    AnswerRow{MessageAnswer::Cancel, IDCANCEL},
    AnswerRow{MessageAnswer::Yes, IDYES},
    AnswerRow{MessageAnswer::No, IDNO},
};

UINT FlagsOf(const BoxRequest& box) {
  UINT flags = box.defaultButton == DefaultButton::Second ? MB_DEFBUTTON2 : MB_DEFBUTTON1;
  for (const StyleRow& row : kStyles)
    if (row.style == box.style)
      flags |= row.flag;
  for (const ButtonsRow& row : kButtons)
    if (row.buttons == box.buttons)
      flags |= row.flag;
  return flags;
}

bool IsOfClass(HWND window, std::wstring_view wanted) {
  std::array<wchar_t, 16> name = {};
  const int length = ::GetClassNameW(window, name.data(), static_cast<int>(name.size()));
  return ::CompareStringOrdinal(name.data(), length, wanted.data(), static_cast<int>(wanted.size()), TRUE) ==
         CSTR_EQUAL;
}

MessageStyle StyleOf(HWND icon) {
  const auto shown = reinterpret_cast<HICON>(::SendMessageW(icon, STM_GETICON, 0, 0));
  for (const StyleRow& row : kStyles)
    if (row.icon != nullptr && shown == ::LoadIconW(nullptr, row.icon))
      return row.style;
  return MessageStyle::Plain;
}

/// Captions the buttons of the thread's next box in another language than English. The system has its own words for
/// them, in its own language.
class ButtonCaptions {
 public:
  explicit ButtonCaptions(const BoxRequest& box) : box_(box), before_(std::exchange(current_, this)) {
    if (!box_.language.IsEnglish())
      hook_ = ::SetWindowsHookExW(WH_CBT, &ButtonCaptions::Hook, nullptr, ::GetCurrentThreadId());
  }
  ~ButtonCaptions() {
    Unhook();
    current_ = before_;
  }
  ButtonCaptions(const ButtonCaptions&) = delete;
  ButtonCaptions& operator=(const ButtonCaptions&) = delete;

 private:
  static LRESULT CALLBACK Hook(int code, WPARAM wide, LPARAM extra) {
    const LRESULT answer = ::CallNextHookEx(nullptr, code, wide, extra);
    if (code == HCBT_ACTIVATE && current_->hook_ != nullptr) {
      current_->Unhook();
      current_->Caption(reinterpret_cast<HWND>(wide));
    }
    return answer;
  }

  void Caption(HWND window) const {
    for (const AnswerRow& row : kAnswers) {
      if (!box_.Offers(row.answer))
        continue;
      HWND button = ::GetDlgItem(window, row.id);
      // The button of a box with no other may bear the number of Cancel, so that Escape presses it.
      if (button == nullptr && row.answer == MessageAnswer::Ok)
        button = ::GetDlgItem(window, IDCANCEL);
      if (button != nullptr)
        ::SetWindowTextW(button, ToWide(ButtonCaption(row.answer, box_.language)).c_str());
    }
  }

  void Unhook() {
    if (const HHOOK hook = std::exchange(hook_, nullptr))
      ::UnhookWindowsHookEx(hook);
  }

  static inline ButtonCaptions* current_ = nullptr;

  const BoxRequest& box_;
  ButtonCaptions* before_;
  HHOOK hook_ = nullptr;
};

}  // namespace

std::wstring NameOfHost() {
  std::array<wchar_t, MAX_PATH> path = {};
  ::GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size()));
  std::wstring name = std::filesystem::path(path.data()).stem().wstring();
  if (!name.empty())
    ::CharUpperBuffW(name.data(), 1);
  return name;
}

int ButtonIdOf(MessageAnswer answer) {
  return std::find_if(kAnswers.begin(), kAnswers.end(), [&](const AnswerRow& row) { return row.answer == answer; })->id;
}

MessageAnswer AskByBox(const BoxRequest& box, HWND owner) {
  const CommonControls look;
  const std::wstring title = box.title.empty() ? NameOfHost() : ToWide(box.title);
  const ButtonCaptions captions(box);
  const UINT modality = owner == nullptr ? MB_TASKMODAL | MB_SETFOREGROUND : 0;
  const int id = ::MessageBoxW(owner, ToWide(box.text).c_str(), title.c_str(), FlagsOf(box) | modality);
  for (const AnswerRow& row : kAnswers)
    if (row.id == id && box.Offers(row.answer))
      return row.answer;
  return box.ClosedAnswer();
}

BoxRequest ShownIn(HWND window) {
  BoxRequest shown;
  shown.title = FromWide(TextOfWindow(window));
  for (HWND part = ::GetWindow(window, GW_CHILD); part != nullptr; part = ::GetWindow(part, GW_HWNDNEXT)) {
    const auto style = static_cast<DWORD>(::GetWindowLongPtrW(part, GWL_STYLE));
    // The box keeps a place for what it does not show.
    if (!IsOfClass(part, L"STATIC") || (style & WS_VISIBLE) == 0)
      continue;
    if ((style & SS_TYPEMASK) == SS_ICON)
      shown.style = StyleOf(part);
    else if (std::wstring text = TextOfWindow(part); !text.empty())
      shown.text = FromWide(text);
  }
  const auto styleOf = [&](int id) { return ::GetWindowLongPtrW(::GetDlgItem(window, id), GWL_STYLE); };
  const auto has = [&](int id) { return (styleOf(id) & WS_VISIBLE) != 0; };
  shown.buttons = has(IDYES) ? MessageButtons::YesNo : has(IDCANCEL) ? MessageButtons::OkCancel : MessageButtons::Ok;
  if ((styleOf(ButtonIdOf(shown.DefaultAnswer())) & BS_TYPEMASK) != BS_DEFPUSHBUTTON)
    shown.defaultButton = DefaultButton::Second;
  return shown;
}

}  // namespace fiscalon::win32
