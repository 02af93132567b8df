#include <gtest/gtest.h>

#include "tests/support/raises.h"
#include "tests/support/test_form.h"

namespace fiscalon {
namespace {

class ButtonsForm : public TestForm {
 public:
  // clang-format off
  TextField    txtA      {*this, "txtA",      {.tabIndex = 0}, Noted("txtA")};
  TextField    txtLocked {*this, "txtLocked", {.tabIndex = 1, .locked = true}, Noted("txtLocked")};
  TextField    txtLines  {*this, "txtLines",  {.tabIndex = 2, .multiLine = true}, Noted("txtLines")};
  CheckBox     chkPaid   {*this, "chkPaid",   {.caption = "&Paid", .tabIndex = 3}, Noted("chkPaid")};
  Button       cmdOK     {*this, "cmdOK",     {.caption = "&OK", .tabIndex = 4}, Noted("cmdOK")};
  Button       cmdOther  {*this, "cmdOther",  {.caption = "&Other", .tabIndex = 5}, Noted("cmdOther")};
  Button       cmdCancel {*this, "cmdCancel", {.caption = "Cancel", .tabIndex = 6, .cancel = true}, Noted("cmdCancel")};
  // clang-format on
};

/// The same without a cancel button.
class NoCancelForm : public TestForm {
 public:
  TextField txtA{*this, "txtA", {.tabIndex = 0}, Noted("txtA")};
  Button cmdCancel{*this, "cmdCancel", {.caption = "Cancel"}, Noted("cmdCancel")};
};

TEST(Key, RunsTheFormsHandlerThenTheControlsForKeyAndForCharacterThenEdits) {
  TwoFieldForm form;
  form.notesKeys = true;
  Play(form, [&](FormUser& user) {
    user.Type("a");
    EXPECT_EQ(form.TakeNotes(),
              (Notes{"Form_KeyDown 65", "txtA_KeyDown 65", "Form_KeyPress 97", "txtA_KeyPress 97", "txtA_Change"}));
    user.Key("Backspace");
    EXPECT_EQ(form.TakeNotes(),
              (Notes{"Form_KeyDown 8", "txtA_KeyDown 8", "Form_KeyPress 8", "txtA_KeyPress 8", "txtA_Change"}));
    EXPECT_EQ(form.txtA.Text(), "");
    user.Key("Enter");
    EXPECT_EQ(form.TakeNotes(), (Notes{"Form_KeyDown 13", "txtA_KeyDown 13", "Form_KeyPress 13", "txtA_KeyPress 13"}));
  });
}

TEST(Key, WithoutACharacterRunsNoKeyPress) {
  TwoFieldForm form;
  form.notesKeys = true;
  Play(form, [&](FormUser& user) {
    for (const char* name : {"Delete", "Left", "Home"}) {
      const KeyOutcome outcome = user.acts.Key(*StrokeNamed(name));
      EXPECT_TRUE(outcome.editing) << name;
      EXPECT_EQ(outcome.character, 0) << name;
    }
    EXPECT_EQ(form.TakeNotes(), (Notes{"Form_KeyDown 46", "txtA_KeyDown 46", "Form_KeyDown 37", "txtA_KeyDown 37",
                                       "Form_KeyDown 36", "txtA_KeyDown 36"}));
  });
}

TEST(Key, HandsTheShiftStateToBothHandlers) {
  class ShiftForm : public TestForm {
   public:
    TextField txtA{*this, "txtA", {}, {.keyDown = [this](int&, int shift) { shifts.push_back(shift); }}};
    std::vector<int> shifts;

   private:
    void Form_KeyDown(int& /*keyCode*/, int shift) override { shifts.push_back(shift); }
  };
  ShiftForm form;
  Play(form, [&](FormUser& user) {
    user.acts.Key({.keyCode = key::kHome, .shift = shift_state::kShift | shift_state::kControl});
    EXPECT_EQ(form.shifts, (std::vector<int>{3, 3}));
  });
}

TEST(KeyDown, EndsTheKeyWithAZeroOfTheForm) {
  TwoFieldForm form;
  form.notesKeys = true;
  form.whenKey["Form_KeyDown"] = [](int& keyCode) { keyCode = 0; };
  Play(form, [&](FormUser& user) {
    user.Type("a");
    EXPECT_EQ(form.TakeNotes(), Notes{"Form_KeyDown 65"});
    EXPECT_EQ(form.txtA.Text(), "");
  });
}

TEST(KeyDown, EndsTheKeyWithAZeroOfTheControl) {
  TwoFieldForm form;
  form.notesKeys = true;
  form.whenKey["txtA_KeyDown"] = [](int& keyCode) { keyCode = 0; };
  Play(form, [&](FormUser& user) {
    user.Type("a");
    EXPECT_EQ(form.TakeNotes(), (Notes{"Form_KeyDown 65", "txtA_KeyDown 65"}));
    EXPECT_EQ(form.txtA.Text(), "");
  });
}

TEST(KeyPress, DropsTheCharacterWithAZeroOfTheForm) {
  TwoFieldForm form;
  form.notesKeys = true;
  form.whenKey["Form_KeyPress"] = [](int& character) { character = 0; };
  Play(form, [&](FormUser& user) {
    EXPECT_FALSE(user.acts.Key(StrokeOf('a')).editing);
    EXPECT_EQ(form.TakeNotes(), (Notes{"Form_KeyDown 65", "txtA_KeyDown 65", "Form_KeyPress 97"}));
  });
}

TEST(KeyPress, DropsTheCharacterWithAZeroOfTheControl) {
  TwoFieldForm form;
  form.whenKey["txtA_KeyPress"] = [](int& character) {
    if (character == 'a')
      character = 0;
  };
  Play(form, [&](FormUser& user) {
    user.Type("banana");
    EXPECT_EQ(form.txtA.Text(), "bnn");
    EXPECT_FALSE(user.acts.Key(StrokeOf('a')).editing);
  });
}

TEST(KeyPress, ReplacesTheCharacter) {
  TwoFieldForm form;
  form.whenKey["Form_KeyPress"] = [](int& character) { character = Capital(static_cast<char>(character)); };
  form.whenKey["txtA_KeyPress"] = [](int& character) { character = character == 'O' ? '0' : character; };
  Play(form, [&](FormUser& user) {
    user.Type("foo");
    EXPECT_EQ(form.txtA.Text(), "F00");
  });
}

TEST(Key, GoesToTheControlThatHadTheFocusWhenItWentDown) {
  TwoFieldForm form;
  form.notesKeys = true;
  form.whenKey["Form_KeyDown"] = [&](int&) { form.txtB.SetFocus(); };
  Play(form, [&](FormUser& user) {
    user.Type("a");
    EXPECT_EQ(form.TakeNotes(), (Notes{"Form_KeyDown 65", "txtA_LostFocus", "txtA_KeyDown 65", "Form_KeyPress 97",
                                       "txtA_KeyPress 97", "txtA_Change"}));
    EXPECT_EQ(form.txtA.Text(), "a");
    EXPECT_EQ(form.ActiveControl(), &form.txtB);
  });
}

TEST(Key, GoesNoFurtherOnAFormThatHides) {
  const std::vector<std::pair<const char*, Notes>> rows = {
      {"Form_KeyDown", {"Form_KeyDown 65"}},
      {"txtA_KeyDown", {"Form_KeyDown 65", "txtA_KeyDown 65"}},
      {"Form_KeyPress", {"Form_KeyDown 65", "txtA_KeyDown 65", "Form_KeyPress 97"}},
      {"txtA_KeyPress", {"Form_KeyDown 65", "txtA_KeyDown 65", "Form_KeyPress 97", "txtA_KeyPress 97"}},
  };
  for (const auto& [handler, notes] : rows) {
    TwoFieldForm form;
    form.notesKeys = true;
    form.whenKey[handler] = [&](int&) { form.Hide(); };
    Play(form, [&](FormUser& user) { user.Type("a"); });
    EXPECT_EQ(form.TakeNotes(), notes);
    EXPECT_EQ(form.txtA.Text(), "");
  }
}

TEST(Key, DoesNothingToAControlThatItsHandlersDisabled) {
  class DisablingForm : public TestForm {
   public:
    OptionButton optA{*this, "optA", {.tabIndex = 0}, Noted("optA")};
    TextField txtA{*this, "txtA", {.tabIndex = 1}, Noted("txtA")};
  };
  DisablingForm form;
  form.whenKey["optA_KeyDown"] = [&](int&) { form.optA.Enabled(false); };
  form.whenKey["txtA_KeyPress"] = [&](int&) { form.txtA.Enabled(false); };
  Play(form, [&](FormUser& user) {
    user.Key("Down");
    EXPECT_EQ(form.TakeNotes(), Notes{"optA_LostFocus"});
    user.Type("x");
    EXPECT_EQ(form.TakeNotes(), Notes{"txtA_LostFocus"});
    EXPECT_EQ(form.txtA.Text(), "");
  });
}

TEST(DialogKeys, NeverReachAHandler) {
  ButtonsForm form;
  form.notesKeys = true;
  Play(form, [&](FormUser& user) {
    user.Key("Tab");
    user.Key("Shift+Tab");
    EXPECT_EQ(form.TakeNotes(), (Notes{"txtA_LostFocus", "txtLocked_LostFocus"}));
    user.Key("Escape");
    EXPECT_EQ(form.TakeNotes(), Notes{"cmdCancel_Click"});
    user.acts.BringFocus(form.chkPaid);
    user.Key("Space");
    EXPECT_EQ(form.TakeNotes(), (Notes{"txtA_LostFocus", "chkPaid_Click"}));
    user.acts.BringFocus(form.cmdOK);
    user.Key("Enter");
    user.Key("Space");
    EXPECT_EQ(form.TakeNotes(), (Notes{"chkPaid_LostFocus", "cmdOK_Click", "cmdOK_Click"}));
    user.Key("Alt+P");
    EXPECT_EQ(form.TakeNotes(), (Notes{"cmdOK_LostFocus", "chkPaid_Click"}));
  });
}

TEST(DialogKeys, LeaveNothingToEdit) {
  ButtonsForm form;
  Play(form, [&](FormUser& user) {
    for (const char* name : {"Tab", "Shift+Tab", "Escape", "Alt+P"}) {
      user.acts.BringFocus(form.txtA);
      EXPECT_FALSE(user.acts.Key(*StrokeNamed(name)).editing) << name;
    }
  });
}

TEST(Escape, ClicksTheCancelButtonFromAnyControl) {
  ButtonsForm form;
  Play(form, [&](FormUser& user) {
    for (Control* control : form.TabOrder()) {
      user.acts.BringFocus(*control);
      form.TakeNotes();
      user.Key("Escape");
      EXPECT_EQ(form.TakeNotes(), Notes{"cmdCancel_Click"}) << control->Name();
      EXPECT_EQ(form.ActiveControl(), control);
    }
  });
}

TEST(Escape, IsAKeyLikeOthersWithoutACancelButton) {
  NoCancelForm form;
  form.notesKeys = true;
  Play(form, [&](FormUser& user) {
    user.Key("Escape");
    EXPECT_EQ(form.TakeNotes(), (Notes{"Form_KeyDown 27", "txtA_KeyDown 27", "Form_KeyPress 27", "txtA_KeyPress 27"}));
    EXPECT_EQ(form.txtA.Text(), "");
  });
}

TEST(Escape, ClicksNoCancelButtonThatIsDisabledOrHidden) {
  ButtonsForm form;
  Play(form, [&](FormUser& user) {
    form.cmdCancel.Enabled(false);
    user.Key("Escape");
    form.cmdCancel.Enabled(true);
    form.cmdCancel.Visible(false);
    user.Key("Escape");
    EXPECT_EQ(form.TakeNotes(), Notes());
  });
}

// The form has a cancel button, so the key is the form's own.
TEST(Escape, ReachesNoHandlerWhereTheCancelButtonIsDisabled) {
  ButtonsForm form;
  form.notesKeys = true;
  form.cmdCancel.Enabled(false);
  Play(form, [&](FormUser& user) {
    user.Key("Escape");
    EXPECT_EQ(form.TakeNotes(), Notes());
  });
}

TEST(EditorCommands, ReachNoHandlerAndAreLeftToTheFieldsEditor) {
  ButtonsForm form;
  form.notesKeys = true;
  Play(form, [&](FormUser& user) {
    std::vector<KeyStroke> commands = {{.keyCode = key::kInsert, .shift = shift_state::kControl},
                                       {.keyCode = key::kInsert, .shift = shift_state::kShift},
                                       {.keyCode = key::kDelete, .shift = shift_state::kShift}};
    for (const char letter : std::string("ACVXYZ"))
      commands.push_back({.keyCode = letter, .shift = shift_state::kControl});
    for (const KeyStroke& command : commands) {
      const KeyOutcome outcome = user.acts.Key(command);
      EXPECT_TRUE(outcome.editing) << command.keyCode;
      EXPECT_EQ(outcome.character, 0) << command.keyCode;
    }
    user.acts.BringFocus(form.chkPaid);
    form.TakeNotes();
    for (const KeyStroke& command : commands) EXPECT_FALSE(user.acts.Key(command).editing) << command.keyCode;
    EXPECT_EQ(form.TakeNotes(), Notes());
  });
}

TEST(EditorCommands, ThatAlterDoNothingInALockedField) {
  ButtonsForm form;
  Play(form, [&](FormUser& user) {
    user.acts.BringFocus(form.txtLocked);
    EXPECT_TRUE(user.acts.Key({.keyCode = 'C', .shift = shift_state::kControl}).editing) << "a copy takes nothing away";
    EXPECT_FALSE(user.acts.Key({.keyCode = key::kDelete, .shift = shift_state::kShift}).editing);
    user.acts.EditText(form.txtLocked, "pasted", {.start = 6});
    EXPECT_EQ(form.txtLocked.Text(), "");
  });
}

TEST(ModifiersAlone, ReachNoHandler) {
  ButtonsForm form;
  form.notesKeys = true;
  Play(form, [&](FormUser& user) {
    for (const int keyCode : {key::kShift, key::kControl, key::kAlt, key::kCapsLock, key::kNumLock})
      EXPECT_FALSE(user.acts.Key({.keyCode = keyCode}).editing) << keyCode;
    EXPECT_EQ(form.TakeNotes(), Notes());
  });
}

TEST(Enter, WithShiftOrCtrlReachesTheHandlersWithItsStateAndCharacter) {
  ButtonsForm form;
  form.notesKeys = true;
  Play(form, [&](FormUser& user) {
    user.Key("Shift+Enter");
    EXPECT_EQ(form.TakeNotes(), (Notes{"Form_KeyDown 13", "txtA_KeyDown 13", "Form_KeyPress 13", "txtA_KeyPress 13"}));
    user.Key("Ctrl+Enter");
    EXPECT_EQ(form.TakeNotes(), (Notes{"Form_KeyDown 13", "txtA_KeyDown 13", "Form_KeyPress 10", "txtA_KeyPress 10"}));
    EXPECT_EQ(form.txtA.Text(), "");
  });
}

TEST(Enter, IsNoEditingInAFieldOfOneLine) {
  ButtonsForm form;
  Play(form, [&](FormUser& user) {
    for (const char* name : {"Enter", "Shift+Enter", "Ctrl+Enter"})
      EXPECT_FALSE(user.acts.Key(*StrokeNamed(name)).editing) << name;
  });
}

TEST(Enter, OnACheckBoxOrFieldGoesToTheHandlers) {
  ButtonsForm form;
  form.notesKeys = true;
  Play(form, [&](FormUser& user) {
    user.acts.BringFocus(form.chkPaid);
    user.Key("Enter");
    EXPECT_EQ(form.TakeNotes(), (Notes{"txtA_LostFocus", "Form_KeyDown 13", "chkPaid_KeyDown 13", "Form_KeyPress 13",
                                       "chkPaid_KeyPress 13"}));
    EXPECT_FALSE(form.chkPaid.Value());
  });
}

TEST(Space, OnAFieldIsACharacter) {
  ButtonsForm form;
  Play(form, [&](FormUser& user) {
    user.Type("a b");
    user.Key("Space");
    EXPECT_EQ(form.txtA.Text(), "a b ");
  });
}

TEST(LockedField, TakesNoCharacterButLetsTheCaretMove) {
  ButtonsForm form;
  form.notesKeys = true;
  Play(form, [&](FormUser& user) {
    user.acts.BringFocus(form.txtLocked);
    form.TakeNotes();
    EXPECT_FALSE(user.acts.Key(StrokeOf('x')).editing);
    EXPECT_EQ(form.TakeNotes(),
              (Notes{"Form_KeyDown 88", "txtLocked_KeyDown 88", "Form_KeyPress 120", "txtLocked_KeyPress 120"}));
    EXPECT_FALSE(user.acts.Key(*StrokeNamed("Backspace")).editing);
    EXPECT_FALSE(user.acts.Key(*StrokeNamed("Delete")).editing);
    EXPECT_TRUE(user.acts.Key(*StrokeNamed("Left")).editing);
    EXPECT_TRUE(user.acts.Key(*StrokeNamed("End")).editing);
  });
}

TEST(MultiLineField, IsLeftEnterToEdit) {
  ButtonsForm form;
  Play(form, [&](FormUser& user) {
    user.acts.BringFocus(form.txtLines);
    const KeyOutcome outcome = user.acts.Key(*StrokeNamed("Enter"));
    EXPECT_TRUE(outcome.editing);
    EXPECT_EQ(outcome.character, 13);
  });
}

TEST(AccessKeys, FocusTheButtonRunWhatIsPostedAndClick) {
  ButtonsForm form;
  Play(form, [&](FormUser& user) {
    user.Key("Alt+O");
    EXPECT_EQ(form.TakeNotes(), (Notes{"txtA_LostFocus", "cmdOK_Click"}));
    EXPECT_EQ(form.ActiveControl(), &form.cmdOK);
  });
}

TEST(AccessKeys, DoNotClickWhenACheckPullsTheFocusBack) {
  ButtonsForm form;
  form.when["txtA_LostFocus"] = [&] { form.txtA.SetFocus(); };
  Play(form, [&](FormUser& user) {
    user.Key("Alt+O");
    EXPECT_EQ(form.TakeNotes(), (Notes{"txtA_LostFocus", "cmdOK_LostFocus"}));
    EXPECT_EQ(form.ActiveControl(), &form.txtA);
  });
}

TEST(AccessKeys, PassOverButtonsThatCannotTakeTheFocus) {
  ButtonsForm form;
  form.cmdOK.Enabled(false);
  Play(form, [&](FormUser& user) {
    user.Key("Alt+O");
    EXPECT_EQ(form.TakeNotes(), (Notes{"txtA_LostFocus", "cmdOther_Click"}));
  });
}

TEST(AccessKeys, FollowACaptionThatCodeChanges) {
  ButtonsForm form;
  Play(form, [&](FormUser& user) {
    form.cmdOther.Caption("E&xtra");
    user.Key("Alt+X");
    EXPECT_EQ(form.TakeNotes(), (Notes{"txtA_LostFocus", "cmdOther_Click"}));
  });
}

TEST(AccessKeys, LeaveOtherAltKeysToTheHandlers) {
  ButtonsForm form;
  form.notesKeys = true;
  Play(form, [&](FormUser& user) {
    user.Key("Alt+Z");
    EXPECT_EQ(form.TakeNotes(), (Notes{"Form_KeyDown 90", "txtA_KeyDown 90"}));
    user.acts.Key({.keyCode = 0, .shift = shift_state::kAlt});
    EXPECT_EQ(form.TakeNotes(), Notes{"Form_KeyDown 0"});
  });
}

// A keyboard whose AltGr and O make an "ø".
TEST(AccessKeys, AreNotPressedByAltGr) {
  ButtonsForm form;
  Play(form, [&](FormUser& user) {
    user.Press({.keyCode = 'O', .shift = shift_state::kControl | shift_state::kAlt, .character = 0xF8});
    EXPECT_EQ(form.txtA.Text(), "\xF8");
    EXPECT_EQ(form.TakeNotes(), Notes{"txtA_Change"});
  });
}

}  // namespace
}  // namespace fiscalon
