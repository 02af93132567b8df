#include "frontends/played/player_caret.h"

#include <gmock/gmock.h>

#include "tests/frontends/played/played_screen.h"
#include "tests/support/module_test.h"

namespace fiscalon {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// A user in a field that holds "abcde", and a player who has followed so far: the caret behind the last character.
class PlayerCaretTest : public ModuleTest {
 protected:
  PlayerCaretTest() {
    form.Load();
    field.Text("abcde");
    Select(5);
    caret.FormOpens(&field);
  }

  void Select(int start, int length = 0) { field.Select({.start = start, .length = length}); }

  /// The user moves in a way that no scenario can say.
  void UserMoves(int start, int length = 0) {
    Select(start, length);
    caret.ActBegins(&field);
    caret.ActEnded(&field);
  }

  PlayedScreen form;
  TextField& field = form.txtA;
  PlayerCaret caret;
};

TEST_F(PlayerCaretTest, IsTheUsersWhenTheFormOpens) {
  EXPECT_FALSE(caret.IsElsewhere(field));
  EXPECT_TRUE(caret.Has({.start = 5}));
}

TEST_F(PlayerCaretTest, StaysWhereTheUserMovesUnsaid) {
  Select(2);
  EXPECT_TRUE(caret.IsElsewhere(field));
  EXPECT_TRUE(caret.Has({.start = 5}));
}

TEST_F(PlayerCaretTest, IsBroughtToTheEndOfASelection) {
  EXPECT_THAT(caret.KeysThatErase("abcde", {.start = 3}, 0), ElementsAre("key Left", "key Left"));
  EXPECT_TRUE(caret.Has({.start = 3}));
  EXPECT_THAT(caret.KeysThatErase("abcde", {.start = 4}, 0), ElementsAre("key Right"));
  EXPECT_TRUE(caret.Has({.start = 4}));
}

TEST_F(PlayerCaretTest, LeavesASelectionByAKey) {
  Select(2, 1);
  caret.FormOpens(&field);
  EXPECT_THAT(caret.KeysThatErase("abcde", {.start = 2}, 0), ElementsAre("key Left"));
}

TEST_F(PlayerCaretTest, CatchesUpWithTheUserWhereAnActSaysSo) {
  Select(2);
  caret.ActBegins(&field);
  caret.CatchesUp();
  caret.ActEnded(&field);
  EXPECT_TRUE(caret.Has({.start = 2}));
  EXPECT_FALSE(caret.IsElsewhere(field));
}

TEST_F(PlayerCaretTest, ErasesBackFromTheEndOfASelection) {
  EXPECT_THAT(caret.KeysThatErase("abcde", {.start = 2, .length = 2}, 2),
              ElementsAre("key Left", "key Backspace", "key Backspace"));
  EXPECT_TRUE(caret.Has({.start = 2}));
}

TEST_F(PlayerCaretTest, CollapsesASelectionOfItsOwnFirst) {
  Select(1, 3);
  caret.IsIn(field);
  EXPECT_THAT(caret.KeysThatErase("abcde", {.start = 5}, 0), ElementsAre("key Right", "key Right"));
  Select(1, 3);
  caret.IsIn(field);
  EXPECT_THAT(caret.KeysThatErase("abcde", {.start = 0}, 0), ElementsAre("key Left", "key Left"));
}

TEST_F(PlayerCaretTest, NeedsNoKeysWhereItIs) {
  EXPECT_THAT(caret.KeysThatErase("abcde", {.start = 5}, 0), IsEmpty());
}

TEST_F(PlayerCaretTest, FollowsAnActThatCatchesUp) {
  Select(2);
  caret.ActBegins(&field);
  caret.CatchesUp();
  Select(3);
  caret.ActEnded(&field);
  EXPECT_FALSE(caret.IsElsewhere(field));
}

TEST_F(PlayerCaretTest, FollowsWhatAHandlerSelects) {
  Select(2);
  caret.ActBegins(&field);
  Select(0, 5);
  caret.ActEnded(&field);
  EXPECT_FALSE(caret.IsElsewhere(field));
}

TEST_F(PlayerCaretTest, MayBeAnywhereBehindAnActThatLeftAnotherSelectionAlone) {
  UserMoves(2);
  EXPECT_TRUE(caret.IsElsewhere(field));
  EXPECT_FALSE(caret.Has({.start = 5}));
  EXPECT_THAT(caret.KeysThatErase("abcde", {.start = 4}, 1), ElementsAre("key End", "key Left", "key Backspace"));
}

TEST_F(PlayerCaretTest, FollowsIntoAnotherField) {
  Select(2);
  caret.ActBegins(&field);
  form.txtLocked.Text("xyz");
  form.txtLocked.Select({.start = 0, .length = 3});
  caret.ActEnded(&form.txtLocked);
  EXPECT_TRUE(caret.Has({.start = 0, .length = 3}));
}

TEST_F(PlayerCaretTest, PasteLeavesThePlayersSelection) {
  caret.ActBegins(&field);
  caret.CatchesUp();
  caret.Pastes({.start = 1, .length = 3}, {.start = 4});
  Select(1, 3);
  caret.ActEnded(&field);
  EXPECT_TRUE(caret.IsElsewhere(field));
  EXPECT_TRUE(caret.Has({.start = 4}));
}

TEST_F(PlayerCaretTest, PasteLeavesNothingWhereAHandlerGoesToAnotherField) {
  caret.ActBegins(&field);
  caret.CatchesUp();
  caret.Pastes({.start = 1, .length = 2}, {.start = 4});
  form.txtLocked.Text("xyz");
  form.txtLocked.Select({.start = 1, .length = 2});
  caret.ActEnded(&form.txtLocked);
  EXPECT_TRUE(caret.Has({.start = 1, .length = 2})) << "the other field's selection, however like the paste's";
}

TEST_F(PlayerCaretTest, HandlersSelectionBehindAPasteIsThePlayersToo) {
  caret.ActBegins(&field);
  caret.CatchesUp();
  caret.Pastes({.start = 1, .length = 3}, {.start = 4});
  Select(0, 2);
  caret.ActEnded(&field);
  EXPECT_TRUE(caret.Has({.start = 0, .length = 2}));
}

}  // namespace
}  // namespace fiscalon
