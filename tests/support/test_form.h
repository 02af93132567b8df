#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "core/forms/button.h"
#include "core/forms/form.h"
#include "core/forms/label.h"
#include "core/forms/list_control.h"
#include "core/forms/text_field.h"
#include "core/forms/user_acts.h"

namespace fiscalon {

using Notes = std::vector<std::string>;

/// A form for tests of the forms runtime: it notes each handler that runs and does there what the test says.
class TestForm : public Form {
 public:
  TestForm() : Form("frmTest", "A form under test") {}

  const Layout& FormLayout() const override { return layout_; }

  /// What a handler does, by its name: "txtA_LostFocus".
  std::map<std::string, std::function<void()>> when;
  /// What a key handler does with the key code or the character.
  std::map<std::string, std::function<void(int& key)>> whenKey;
  /// What Form_QueryUnload does.
  std::function<void(bool& cancel, CloseReason reason)> whenClosing;
  /// Whether key handlers are noted too.
  bool notesKeys = false;

  void Note(const std::string& note) { notes_.push_back(note); }
  /// The notes so far, which are gone then.
  Notes TakeNotes() { return std::exchange(notes_, {}); }

  using Form::DoEvents;
  using Form::SendKeys;

 protected:
  /// Handlers for every event of a control.
  class NotedEvents {
   public:
    NotedEvents(TestForm& form, std::string name) : form_(form), name_(std::move(name)) {}

    operator FieldEvents() const {
      FieldEvents events = Common<FieldEvents>();
      events.change = form_.Does(name_ + "_Change");
      return events;
    }
    operator ButtonEvents() const {
      ButtonEvents events = Common<ButtonEvents>();
      events.click = form_.Does(name_ + "_Click");
      return events;
    }
    operator ListEvents() const {
      ListEvents events = Common<ListEvents>();
      events.click = form_.Does(name_ + "_Click");
      events.chosen = form_.Does(name_ + "_Chosen");
      return events;
    }

   private:
    template <class Events>
    Events Common() const {
      Events events;
      events.keyDown = [&form = form_, name = name_](int& keyCode, int /*shift*/) {
        form.Key(name + "_KeyDown", keyCode);
      };
      events.keyPress = [&form = form_, name = name_](int& character) { form.Key(name + "_KeyPress", character); };
      events.lostFocus = form_.Does(name_ + "_LostFocus");
      events.mouseDown = form_.Does(name_ + "_MouseDown");
      return events;
    }

    TestForm& form_;
    std::string name_;
  };
  NotedEvents Noted(const std::string& name) { return {*this, name}; }

  void Form_Load() override { Do("Form_Load"); }
  void Form_Activate() override { Do("Form_Activate"); }
  void Form_KeyDown(int& keyCode, int /*shift*/) override { Key("Form_KeyDown", keyCode); }
  void Form_KeyPress(int& character) override { Key("Form_KeyPress", character); }
  void Form_QueryUnload(bool& cancel, CloseReason reason) override {
    Note("Form_QueryUnload " + std::to_string(static_cast<int>(reason)));
    if (whenClosing)
      whenClosing(cancel, reason);
  }
  void Unloaded() override { Note("Unloaded"); }

 private:
  void Do(const std::string& handler) {
    Note(handler);
    if (const auto found = when.find(handler); found != when.end())
      found->second();
  }
  void Key(const std::string& handler, int& key) {
    if (notesKeys)
      Note(handler + " " + std::to_string(key));
    if (const auto found = whenKey.find(handler); found != whenKey.end())
      found->second(key);
  }
  Handler Does(const std::string& handler) {
    return [this, handler] { Do(handler); };
  }

  Layout layout_;
  Notes notes_;
};

/// Two fields and two buttons, in the tab order of their declaration.
class TwoFieldForm : public TestForm {
 public:
  // clang-format off
  TextField txtA      {*this, "txtA",      {.tabIndex = 0}, Noted("txtA")};
  TextField txtB      {*this, "txtB",      {.tabIndex = 1}, Noted("txtB")};
  Button    cmdOK     {*this, "cmdOK",     {.caption = "&OK"}, Noted("cmdOK")};
  Button    cmdCancel {*this, "cmdCancel", {.caption = "Cancel", .cancel = true}, Noted("cmdCancel")};
  // clang-format on
};

/// A front end that serves a form with what the test does, and answers each box by its default button.
class ServingToolkit : public Toolkit {
 public:
  std::function<void()> serve;
  std::function<void(const BoxRequest& box)> whenBoxIsUp;
  FormObserver* observer = nullptr;

  void Opening(Form& form) override { form.Observe(observer); }
  void ServeModal(Form& /*form*/) override {
    if (serve)
      serve();
  }
  MessageAnswer ShowMessage(const BoxRequest& box) override {
    if (whenBoxIsUp)
      whenBoxIsUp(box);
    return box.DefaultAnswer();
  }
  void Beep() override {}
  void OpenHelp(std::string_view /*file*/, int32_t /*context*/) override {}
};

/// A person at a form, with the editing of a plain text box in the fingers.
class FormUser {
 public:
  explicit FormUser(Form& form) : acts(form.Acts()), form_(form) {}

  UserActs& acts;

  void Type(std::string_view text) {
    for (const char character : text) Press(StrokeOf(character));
  }
  void Key(std::string_view name) { Press(*StrokeNamed(name)); }

  void Press(const KeyStroke& stroke) {
    Control* const control = form_.ActiveControl();
    const KeyOutcome outcome = acts.Key(stroke);
    if (!outcome.editing)
      return;
    auto& field = static_cast<TextField&>(*control);
    Selection selection = field.Selected();
    if (outcome.character >= ' ')
      return Replace(field, selection, std::string(1, static_cast<char>(outcome.character)));
    if (outcome.character == key::kBackspace && selection.length == 0 && selection.start > 0)
      selection = {.start = selection.start - 1, .length = 1};
    if (outcome.character == key::kBackspace)
      Replace(field, selection, "");
  }

  /// Pastes over the selection of a field.
  void Paste(TextField& field, const std::string& text) { Replace(field, field.Selected(), text); }

 private:
  void Replace(TextField& field, Selection selection, const std::string& by) {
    std::string text = field.Text();
    text.replace(static_cast<size_t>(selection.start), static_cast<size_t>(selection.length), by);
    acts.EditText(field, text, {.start = selection.start + static_cast<int>(by.size())});
  }

  Form& form_;
};

/// Shows a form and plays a user at it. Fails if the user never comes to it.
inline void PlayAt(Form& form, const std::function<void(FormUser& user)>& acts) {
  ServingToolkit toolkit;
  bool served = false;
  toolkit.serve = [&] {
    served = true;
    FormUser user(form);
    acts(user);
  };
  form.ShowModal(toolkit);
  EXPECT_TRUE(served) << "the form was not served";
}

/// The same at a form that takes notes; what was noted until then is dropped.
inline void Play(TestForm& form, const std::function<void(FormUser& user)>& acts) {
  PlayAt(form, [&](FormUser& user) {
    form.TakeNotes();
    acts(user);
  });
}

}  // namespace fiscalon
