#include "frontends/played/last_key.h"

#include <gmock/gmock.h>

#include "tests/frontends/played/played_screen.h"
#include "tests/support/module_test.h"

namespace fiscalon {
namespace {

using testing::ElementsAre;

/// A field that holds "abcde" with "bcd" selected by mouse, and a player whose caret is behind the last character.
class LastKeyTest : public ModuleTest {
 protected:
  LastKeyTest() {
    form.Load();
    field.Text("abcde");
    field.Select({.start = 5});
    caret.FormOpens(&field);
    field.Select({.start = 1, .length = 3});
  }

  PlayedScreen form;
  TextField& field = form.txtA;
  PlayerCaret caret;
};

TEST_F(LastKeyTest, IsNoneAtFirst) {
  const LastKey none;
  EXPECT_FALSE(none.Edits());
  EXPECT_FALSE(none.Meets(&field));
  EXPECT_FALSE(none.Meets(nullptr));
  EXPECT_FALSE(none.RetypedIn(nullptr));
}

TEST_F(LastKeyTest, MeetsNoSelectionThatAPlayerHasToo) {
  const LastKey typed(LastKey::Effect::Types);
  EXPECT_TRUE(typed.Edits());
  EXPECT_FALSE(typed.Meets(&field));
  EXPECT_FALSE(typed.Meets(nullptr));
}

TEST_F(LastKeyTest, HasAPlayerEraseWhatItReplaces) {
  const LastKey typed(LastKey::Effect::Types, field);
  EXPECT_TRUE(typed.Meets(&field));
  EXPECT_FALSE(typed.Meets(&form.txtLocked));
  EXPECT_FALSE(typed.TakesLastCharacter());
  // One to the left, behind the "d", and three back.
  EXPECT_THAT(typed.KeysBefore(caret), ElementsAre("key Left", "key Backspace", "key Backspace", "key Backspace"));
}

TEST_F(LastKeyTest, TakesTheLastCharacterItselfWhereItErases) {
  const LastKey erased(LastKey::Effect::Erases, field);
  EXPECT_TRUE(erased.TakesLastCharacter());
  EXPECT_THAT(erased.KeysBefore(caret), ElementsAre("key Left", "key Backspace", "key Backspace"));
}

TEST_F(LastKeyTest, TakesOneSelectedCharacterAloneButNoneThatIsNot) {
  EXPECT_FALSE(LastKey(LastKey::Effect::Erases).TakesLastCharacter());
  field.Select({.start = 1, .length = 1});
  const LastKey erased(LastKey::Effect::Erases, field);
  EXPECT_TRUE(erased.TakesLastCharacter());
  // Three to the left, behind the "b".
  EXPECT_THAT(erased.KeysBefore(caret), ElementsAre("key Left", "key Left", "key Left"));
}

TEST_F(LastKeyTest, KeepsTheTextThatItMet) {
  const LastKey typed(LastKey::Effect::Types, field);
  field.Text("axe");
  EXPECT_THAT(typed.KeysBefore(caret), ElementsAre("key Left", "key Backspace", "key Backspace", "key Backspace"));
}

TEST_F(LastKeyTest, MayHaveTypedACharacterOverItself) {
  field.Select({.start = 1, .length = 1});
  const LastKey typed(LastKey::Effect::Types, field);
  EXPECT_FALSE(typed.RetypedIn(&field));
  field.Select({.start = 2});
  EXPECT_TRUE(typed.RetypedIn(&field));
  EXPECT_FALSE(typed.RetypedIn(&form.txtLocked));
  field.Text("axcde");
  field.Select({.start = 2});
  EXPECT_FALSE(typed.RetypedIn(&field));
}

}  // namespace
}  // namespace fiscalon
