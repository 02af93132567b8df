#pragma once

#include <cstdlib>
#include <random>
#include <string>
#include <utility>
#include <vector>

#include "core/forms/text_field.h"
#include "core/forms/user_acts.h"
#include "frontends/played/user_driver.h"

namespace fiscalon {

/// How many random acts a test plays: a million where FISCALON_LONG is set, so that the suite stays fast otherwise.
inline int RandomActs() {
  return std::getenv("FISCALON_LONG") != nullptr ? 1'000'000 : 50'000;
}

/// A user who does anything that keys, mouse and clipboard can do, the same again for the same seed. Now and then it
/// types one of the texts that the form wants, so that it comes past the checks.
class RandomUser {
 public:
  RandomUser(unsigned seed, std::vector<std::string> wanted) : random_(seed), wanted_(std::move(wanted)) {}

  int Below(int limit) { return std::uniform_int_distribution<int>(0, limit - 1)(random_); }
  template <class T>
  const T& OneOf(const std::vector<T>& choices) {
    return choices[static_cast<size_t>(Below(static_cast<int>(choices.size())))];
  }

  /// One act at a form that is up.
  void Act(Form& form, UserDriver& user) {
    switch (Below(16)) {
      case 0:
      case 1:
      case 2:
        return user.Type(Character());
      case 3:
        return user.PressKey({.keyCode = Below(256), .shift = Below(8), .character = Below(256)});
      case 4:
      case 5:
      case 6:
      case 7:
        return PressNamedKey(user);
      case 8:
        return user.Paste(OneOf(wanted_));
      case 9:
        return user.Paste(Garbage());
      case 10:
        return Below(8) == 0 ? user.CloseWindow(static_cast<CloseReason>(Below(6)))
                             : user.PressMouse(*OneOf(form.Controls()));
      case 11:
        return user.Click(*OneOf(form.Controls()));
      case 12:
        return ChooseRow(*OneOf(form.Controls()), user);
      default:
        return TypeWanted(form, user);
    }
  }

 private:
  char Character() {
    constexpr std::string_view kLikely = "0123456789.,- \t\ra";
    return Below(4) == 0 ? static_cast<char>(Below(256)) : kLikely[static_cast<size_t>(Below(kLikely.size()))];
  }

  std::string Garbage() {
    std::string text(static_cast<size_t>(Below(40)), ' ');
    for (char& character : text) character = Character();
    return text;
  }

  void PressNamedKey(UserDriver& user) {
    static const std::vector<std::string> kNames = {
        "Tab",   "Shift+Tab", "Tab",  "Enter", "Enter", "Escape", "Backspace", "Delete", "Space", "Left",
        "Right", "Up",        "Down", "Home",  "End",   "Alt+O",  "Alt+O",     "Alt+C",  "Alt+Z"};
    user.PressKey(*StrokeNamed(OneOf(kNames)));
  }

  void ChooseRow(Control& control, UserDriver& user) {
    auto* list = dynamic_cast<ListControl*>(&control);
    if (list != nullptr && list->ListCount() > 0)
      user.Choose(*list, Below(list->ListCount()));
  }

  /// Puts a whole text into the field that has the focus, in the place of what is there.
  void TypeWanted(Form& form, UserDriver& user) {
    Control* const control = form.ActiveControl();
    if (control == nullptr || control->Kind() != ControlKind::TextField)
      return PressNamedKey(user);
    static_cast<TextField*>(control)->SelectAll();
    for (const char character : OneOf(wanted_)) user.Type(character);
  }

  std::mt19937 random_;
  std::vector<std::string> wanted_;
};

}  // namespace fiscalon
