#include <gtest/gtest.h>

#include "tests/support/test_form.h"

namespace fiscalon {
namespace {

/// A control of each kind that has a use for keys.
class KeysForm : public TestForm {
 public:
  // clang-format off
  TextField    txt       {*this, "txt",       {.tabIndex = 0}, Noted("txt")};
  TextField    txtNext   {*this, "txtNext",   {.tabIndex = 1}, Noted("txtNext")};
  CheckBox     chk       {*this, "chk",       {.caption = "&Check", .tabIndex = 2}, Noted("chk")};
  DropDownList cmb       {*this, "cmb",       {.tabIndex = 3}, Noted("cmb")};
  OptionButton optA      {*this, "optA",      {.caption = "A", .tabIndex = 4}, Noted("optA")};
  OptionButton optB      {*this, "optB",      {.caption = "B", .tabIndex = 5}, Noted("optB")};
  Button       cmdCancel {*this, "cmdCancel", {.caption = "Cancel", .cancel = true}, Noted("cmdCancel")};
  // clang-format on

  KeysForm() { notesKeys = true; }

 protected:
  void Form_Load() override {
    for (const char* row : {"Fuel", "Tobacco", "Tourism"}) cmb.AddItem(row);
  }
};

constexpr const char* kNames[] = {"Tab",    "Enter", "Shift+Enter", "Ctrl+Enter", "Escape", "Backspace",
                                  "Delete", "Space", "Left",        "Right",      "Up",     "Down",
                                  "Home",   "End",   "Alt+C",       "Alt+Z"};

/// What a stroke does to a fresh form whose focus is on a control, as notes, the focus and the outcome.
Notes Effects(const std::string& control, const std::function<KeyOutcome(UserActs& acts)>& press) {
  KeysForm form;
  Notes effects;
  Play(form, [&](FormUser& user) {
    user.acts.BringFocus(form.ControlNamed(control));
    form.TakeNotes();
    const KeyOutcome outcome = press(user.acts);
    effects = form.TakeNotes();
    effects.push_back("focus " + form.ActiveControl()->Name() + ", row " + std::to_string(form.cmb.ListIndex()));
    effects.push_back((outcome.editing ? "edits " : "edits not ") + std::to_string(outcome.character));
  });
  return effects;
}

TEST(KeyDownAndCharacter, TogetherAreTheKey) {
  std::vector<KeyStroke> strokes = {StrokeOf('t'),
                                    StrokeOf('F'),
                                    StrokeOf('.'),
                                    StrokeOf('\xE9'),
                                    {.keyCode = 'V', .shift = shift_state::kControl},
                                    {.keyCode = key::kShift}};
  for (const char* name : kNames) strokes.push_back(*StrokeNamed(name));
  for (const char* control : {"txt", "chk", "cmb", "optA", "cmdCancel"}) {
    for (const KeyStroke& stroke : strokes) {
      const Notes whole = Effects(control, [&](UserActs& acts) { return acts.Key(stroke); });
      const Notes halves = Effects(control, [&](UserActs& acts) {
        const KeyOutcome down = acts.KeyDown(stroke.keyCode, stroke.shift);
        return down.characterFollows && stroke.character != 0 ? acts.Character(stroke.character) : down;
      });
      EXPECT_EQ(halves, whole) << control << " " << stroke.keyCode << " " << stroke.shift;
    }
  }
}

TEST(KeyDown, LetsNoCharacterFollowWhereTheKeyIsDoneOrEnded) {
  KeysForm form;
  form.whenKey["txt_KeyDown"] = [](int& keyCode) { keyCode = keyCode == 'X' ? 0 : keyCode; };
  Play(form, [&](FormUser& user) {
    EXPECT_TRUE(user.acts.KeyDown('A', 0).characterFollows);
    EXPECT_FALSE(user.acts.KeyDown('X', 0).characterFollows) << "a handler has ended it";
    EXPECT_FALSE(user.acts.KeyDown(key::kEscape, 0).characterFollows) << "a dialog key";
    const KeyOutcome paste = user.acts.KeyDown('V', shift_state::kControl);
    EXPECT_FALSE(paste.characterFollows);
    EXPECT_TRUE(paste.editing) << "the editor's own";
  });
}

TEST(Character, GoesToTheControlThatHadTheFocusWhenItsKeyWentDown) {
  KeysForm form;
  form.whenKey["Form_KeyDown"] = [&](int&) { form.txtNext.SetFocus(); };
  Play(form, [&](FormUser& user) {
    ASSERT_TRUE(user.acts.KeyDown('A', 0).characterFollows);
    form.TakeNotes();
    EXPECT_TRUE(user.acts.Character('a').editing);
    EXPECT_EQ(form.TakeNotes(), (Notes{"Form_KeyPress 97", "txt_KeyPress 97"}));
  });
}

TEST(Character, WithoutAKeyGoesToTheControlThatHasTheFocus) {
  KeysForm form;
  Play(form, [&](FormUser& user) {
    user.acts.KeyDown('A', 0);
    user.acts.Press(form.txtNext);
    form.TakeNotes();
    EXPECT_EQ(user.acts.Character(0xE9).character, 0xE9);
    EXPECT_EQ(form.TakeNotes(), (Notes{"Form_KeyPress 233", "txtNext_KeyPress 233"}));
  });
}

// Otherwise two fields that pull the focus from each other could do so twice for each half.
TEST(Character, BelongsToTheActOfItsKey) {
  KeysForm form;
  form.notesKeys = false;
  const auto toAndFro = [&](int&) {
    form.txtNext.SetFocus();
    form.DoEvents();
    form.txt.SetFocus();
    form.DoEvents();
  };
  form.whenKey["Form_KeyDown"] = toAndFro;
  form.whenKey["Form_KeyPress"] = [&](int& character) {
    toAndFro(character);
    toAndFro(character);
  };
  Play(form, [&](FormUser& user) {
    user.acts.KeyDown('A', 0);
    user.acts.Character('a');
    const Notes notes = form.TakeNotes();
    EXPECT_EQ(std::count(notes.begin(), notes.end(), "txt_LostFocus"), 2);
  });
}

}  // namespace
}  // namespace fiscalon
