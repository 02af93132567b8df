#pragma once

#include <functional>
#include <string_view>

#include "frontends/win32/form_window.h"
#include "frontends/win32/played_win32_toolkit.h"
#include "tests/support/every_kind_form.h"

namespace fiscalon::win32 {

/// A form shown by real windows, and a played user at it.
class PlayedForm {
 public:
  PlayedWin32Toolkit toolkit;

  /// Shows the form and lets the user act. What left a handler is thrown.
  void Show(Form& form, const std::function<void(FormWindow& window, UserDriver& user)>& act) {
    toolkit.onForm = [&](Form&, UserDriver& user) { act(*toolkit.Window(), user); };
    form.ShowModal(toolkit);
  }

  /// What was posted is done, and what was asked for.
  static void Serve(FormWindow& window) {
    MSG message = {};
    while (::PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE) != FALSE) window.Dispatch(message);
  }

  static HWND In(const FormWindow& window, const Control& control) { return window.ViewOf(control).Window(); }
  static void Type(UserDriver& user, std::string_view text) {
    for (const char character : text) user.Type(character);
  }
  static void Press(UserDriver& user, std::string_view key) { user.PressKey(*StrokeNamed(key)); }
};

}  // namespace fiscalon::win32
