#include "frontends/win32/win32_toolkit.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "core/platform/runtime_error.h"
#include "frontends/win32/message_window.h"
#include "frontends/win32/windows_api.h"
#include "tests/support/test_form.h"

namespace fiscalon::win32 {
namespace {

/// A window of the host's own, the active one of the thread.
class HostWindow {
 public:
  HostWindow()
      : window_(::CreateWindowExW(0, L"STATIC", L"Host", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0, 400, 300, nullptr,
                                  nullptr, OwnModule(), nullptr)) {
    ::SetActiveWindow(window_);
  }
  ~HostWindow() { ::DestroyWindow(window_); }
  HostWindow(const HostWindow&) = delete;
  HostWindow& operator=(const HostWindow&) = delete;

  HWND Window() const { return window_; }

 private:
  HWND window_;
};

/// What happens when the message loop of a form is first idle: posted to the thread, which serves it there.
class WhenServed {
 public:
  explicit WhenServed(std::function<void()> act) {
    act_ = std::move(act);
    ::SetTimer(nullptr, 0, 0, [](HWND, UINT, UINT_PTR timer, DWORD) {
      ::KillTimer(nullptr, timer);
      std::exchange(act_, nullptr)();
    });
  }
  ~WhenServed() { EXPECT_FALSE(act_) << "the loop never served the thread's messages"; }
  WhenServed(const WhenServed&) = delete;
  WhenServed& operator=(const WhenServed&) = delete;

 private:
  static inline std::function<void()> act_;
};

TEST(Win32Toolkit, DisablesTheOwnerAndGivesItTheKeyboardBack) {
  const HostWindow host;
  Win32Toolkit toolkit;
  TwoFieldForm form;
  const WhenServed served([&] {
    EXPECT_EQ(::IsWindowEnabled(host.Window()), FALSE);
    EXPECT_EQ(::GetWindow(::GetActiveWindow(), GW_OWNER), host.Window());
    form.Hide();
  });
  form.ShowModal(toolkit);
  EXPECT_NE(::IsWindowEnabled(host.Window()), FALSE);
  EXPECT_EQ(::GetActiveWindow(), host.Window());
}

TEST(Win32Toolkit, LeavesAnOwnerDisabledThatWas) {
  const HostWindow host;
  ::EnableWindow(host.Window(), FALSE);
  Win32Toolkit toolkit;
  TwoFieldForm form;
  const WhenServed served([&] { form.Hide(); });
  form.ShowModal(toolkit);
  EXPECT_EQ(::IsWindowEnabled(host.Window()), FALSE);
}

TEST(Win32Toolkit, EnablesTheOwnerAfterAnError) {
  const HostWindow host;
  Win32Toolkit toolkit;
  TwoFieldForm form;
  form.when["txtA_Change"] = [] { throw RuntimeError(6, "Overflow"); };
  const WhenServed served([&] { form.Acts().EditText(form.txtA, "1", {.start = 1}); });
  EXPECT_THROW(form.ShowModal(toolkit), RuntimeError);
  EXPECT_NE(::IsWindowEnabled(host.Window()), FALSE);
}

TEST(Win32Toolkit, TellsTheHostThatAWindowWasTakenAway) {
  const HostWindow host;
  Win32Toolkit toolkit;
  TwoFieldForm form;
  for (int i = 0; i < 2; ++i) {
    const WhenServed served([] { ::DestroyWindow(::GetActiveWindow()); });
    EXPECT_THROW(form.ShowModal(toolkit), std::runtime_error);
    EXPECT_NE(::IsWindowEnabled(host.Window()), FALSE);
  }
  const WhenServed served([&] { form.Hide(); });
  form.ShowModal(toolkit);
}

TEST(Win32Toolkit, PassesTheEndOfTheHostOn) {
  Win32Toolkit toolkit;
  TwoFieldForm form;
  const WhenServed served([] { ::PostQuitMessage(42); });
  form.ShowModal(toolkit);
  EXPECT_FALSE(form.IsUp());
  MSG message = {};
  while (::PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE) != FALSE && message.message != WM_QUIT) continue;
  EXPECT_EQ(message.message, static_cast<UINT>(WM_QUIT));
  EXPECT_EQ(message.wParam, WPARAM{42});
}

/// The captions of the buttons of a box, which is answered by the last of them.
std::vector<std::wstring> CaptionsOfBox(MessageButtons buttons, const std::vector<MessageAnswer>& answers) {
  std::vector<std::wstring> captions;
  Win32Toolkit toolkit;
  const WhenServed served([&] {
    const HWND box = ::GetActiveWindow();
    for (const MessageAnswer answer : answers) captions.push_back(TextOfWindow(::GetDlgItem(box, ButtonIdOf(answer))));
    ::SendMessageW(box, WM_COMMAND, static_cast<WPARAM>(ButtonIdOf(answers.back())), 0);
  });
  toolkit.ShowMessage({.text = "?", .buttons = buttons, .language = *NamedLanguage("fr")});
  return captions;
}

TEST(Win32Toolkit, CaptionsTheButtonsOfABoxInItsLanguage) {
  using enum MessageAnswer;
  EXPECT_THAT(CaptionsOfBox(MessageButtons::YesNo, {Yes, No}), testing::ElementsAre(L"&Oui", L"&Non"));
  EXPECT_THAT(CaptionsOfBox(MessageButtons::OkCancel, {Ok, Cancel}), testing::ElementsAre(L"OK", L"Annuler"));
}

TEST(Win32Toolkit, ServesTheHostsWindowsMeanwhile) {
  const HostWindow host;
  ::SetWindowTextW(host.Window(), L"before");
  Win32Toolkit toolkit;
  TwoFieldForm form;
  static TwoFieldForm* shown = nullptr;
  shown = &form;
  ::SetTimer(host.Window(), 1, 0, [](HWND window, UINT, UINT_PTR timer, DWORD) {
    ::KillTimer(window, timer);
    ::SetWindowTextW(window, L"served");
    shown->Hide();
  });
  form.ShowModal(toolkit);
  EXPECT_EQ(TextOfWindow(host.Window()), L"served");
}

}  // namespace
}  // namespace fiscalon::win32
