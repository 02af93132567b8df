#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace fiscalon {

/// What the tests of a screen tell of its form as a whole.
struct ToldForm {
  /// The screen codes that launch it, and the routine that does.
  std::vector<std::string_view> codes = {};
  std::string_view routine = {};
  std::string_view form = {};
  /// The controls by their tab indexes; those that have none come last, as "-".
  std::vector<std::string> controls = {};
  /// The button that Escape presses; empty where it presses none.
  std::string_view escape = {};
};

/// All that were told, for the tests of every form.
inline std::vector<ToldForm>& ToldForms() {
  static std::vector<ToldForm> told;
  return told;
}

/// Tells of a form: `const bool kFormTold = Tell({...});` in the tests of its screen.
inline bool Tell(ToldForm form) {
  ToldForms().push_back(std::move(form));
  return true;
}

}  // namespace fiscalon
