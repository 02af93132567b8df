#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "core/found_records.h"
#include "core/session.h"
#include "frontends/scripted/scripted_toolkit.h"
#include "tests/support/module_test.h"

namespace fiscalon {

/// A test that shows a screen as a host does and plays the user at it. Strict: a box that the test does not take
/// fails it.
class ScreenTest : public ModuleTest {
 protected:
  ScreenTest() {
    UseToolkit(&frontEnd);
    frontEnd.onMessage = [this](const BoxRequest& box) {
      boxes_.push_back(box);
      return box.buttons == MessageButtons::YesNo ? yesOrNo : box.DefaultAnswer();
    };
  }
  ~ScreenTest() override {
    for (const BoxRequest& box : boxes_) ADD_FAILURE() << "a box that no line takes: " << box.text;
  }

  /// Shows the screen. `acts` runs once the form is up; a form that it leaves up is closed without a click.
  template <class FormClass>
  bool Show(std::string_view code, const std::function<void(FormClass& form, UserDriver& user)>& acts) {
    frontEnd.onForm = [&](Form& form, UserDriver& user) {
      acts(static_cast<FormClass&>(form), user);
      user.CloseWindow(CloseReason::CloseBox);
    };
    return session.ShowLevyraScreen(code);
  }

  /// The boxes since they were last taken.
  std::vector<BoxRequest> TakeBoxes() { return std::exchange(boxes_, {}); }

  /// The records that the host finds.
  std::vector<std::string> Records() const { return FindRecords(session).records; }

  ScriptedToolkit frontEnd;
  Levyra session;
  /// What the user answers where a box asks.
  MessageAnswer yesOrNo = MessageAnswer::Yes;

 private:
  std::vector<BoxRequest> boxes_;
};

/// Types a text key by key.
inline void Type(UserDriver& user, std::string_view text) {
  for (const char character : text) user.Type(character);
}

}  // namespace fiscalon
