#include <gtest/gtest.h>

#include "tests/support/test_form.h"

namespace fiscalon {
namespace {

class LinesForm : public TestForm {
 public:
  // clang-format off
  TextField txtLines {*this, "txtLines", {.tabIndex = 0, .maxLength = 8, .multiLine = true}, Noted("txtLines")};
  TextField txtLine  {*this, "txtLine",  {.tabIndex = 1, .maxLength = 8}, Noted("txtLine")};
  // clang-format on
};

/// What is left of an edit in a field that holds a text with its caret behind it.
struct Kept {
  std::string text;
  int caret;
  bool operator==(const Kept&) const = default;
};

void PrintTo(const Kept& kept, std::ostream* out) {
  *out << testing::PrintToString(kept.text) << " " << kept.caret;
}

Kept After(TextField LinesForm::*field, std::string_view before, std::string_view text, int caret) {
  LinesForm form;
  Kept kept;
  Play(form, [&](FormUser& user) {
    (form.*field).Text(before);
    (form.*field).Select({.start = static_cast<int>(before.size())});
    user.acts.EditText(form.*field, text, {.start = caret});
    kept = {(form.*field).Text(), (form.*field).Selected().start};
  });
  return kept;
}

TEST(MultiLineField, LeavesEveryKindOfEnterToItsEditorAsALineEnd) {
  LinesForm form;
  Play(form, [&](FormUser& user) {
    for (const char* name : {"Enter", "Shift+Enter", "Ctrl+Enter"}) {
      const KeyOutcome outcome = user.acts.Key(*StrokeNamed(name));
      EXPECT_TRUE(outcome.editing) << name;
      EXPECT_EQ(outcome.character, 13) << name;
    }
  });
}

TEST(MultiLineField, HoldsCrLfForEachLineEnd) {
  EXPECT_EQ(After(&LinesForm::txtLines, "a", "a\nb", 3), (Kept{"a\r\nb", 4}));
  EXPECT_EQ(After(&LinesForm::txtLines, "a", "a\rb", 2), (Kept{"a\r\nb", 3}));
  EXPECT_EQ(After(&LinesForm::txtLines, "a", "a\r\nb", 4), (Kept{"a\r\nb", 4}));
  EXPECT_EQ(After(&LinesForm::txtLines, "", "\n\r\r\n", 4), (Kept{"\r\n\r\n\r\n", 6}));
}

TEST(MultiLineField, CountsBothCharactersOfALineEndAndCutsNoneInHalf) {
  EXPECT_EQ(After(&LinesForm::txtLines, "123456", "123456\n", 7), (Kept{"123456\r\n", 8}));
  EXPECT_EQ(After(&LinesForm::txtLines, "1234567", "1234567\n", 8), (Kept{"1234567", 7}));
  EXPECT_EQ(After(&LinesForm::txtLines, "12345", "12345a\nb", 8), (Kept{"12345a\r\n", 8}));
  EXPECT_EQ(After(&LinesForm::txtLines, "123456", "123456a\nb", 9), (Kept{"123456a", 7}));
}

TEST(MultiLineField, TakesNoHalfLineEndBeforeWhatStandsBehindIt) {
  LinesForm form;
  Play(form, [&](FormUser& user) {
    form.txtLines.Text("1234567");
    form.txtLines.Select({.start = 6});
    user.acts.EditText(form.txtLines, "123456\n7", {.start = 7});
    EXPECT_EQ(form.txtLines.Text(), "1234567");
    EXPECT_EQ(form.txtLines.Selected(), Selection{.start = 6});
  });
}

// Enter on a form that turns it into a tab: the field is left, and its text stays.
TEST(MultiLineField, IsLeftByEnterWhereTheFormMakesATabOfIt) {
  LinesForm form;
  form.whenKey["Form_KeyPress"] = [&](int& character) {
    if (character != key::kEnter)
      return;
    character = 0;
    form.SendKeys("\t");
  };
  Play(form, [&](FormUser& user) {
    user.Type("a");
    EXPECT_FALSE(user.acts.Key(*StrokeNamed("Enter")).editing);
    EXPECT_EQ(form.ActiveControl(), &form.txtLine);
    EXPECT_EQ(form.txtLines.Text(), "a");
    user.Key("Shift+Tab");
    EXPECT_TRUE(user.acts.Key(*StrokeNamed("Ctrl+Enter")).editing) << "it makes another character";
  });
}

TEST(SingleLineField, TakesAPasteUpToItsLineEnd) {
  EXPECT_EQ(After(&LinesForm::txtLine, "", "one\r\ntwo", 8), (Kept{"one", 3}));
  EXPECT_EQ(After(&LinesForm::txtLine, "", "one\ntwo", 7), (Kept{"one", 3}));
  EXPECT_EQ(After(&LinesForm::txtLine, "12", "12one\n", 6), (Kept{"12one", 5}));
}

TEST(SingleLineField, KeepsWhatStandsBehindThePaste) {
  LinesForm form;
  Play(form, [&](FormUser& user) {
    form.txtLine.Text("1278");
    form.txtLine.Select({.start = 2});
    user.acts.EditText(form.txtLine, "123\n478", {.start = 5});
    EXPECT_EQ(form.txtLine.Text(), "12378");
    EXPECT_EQ(form.txtLine.Selected(), Selection{.start = 3});
  });
}

TEST(SingleLineField, TakesNothingAwayForAPasteThatBeginsWithALineEnd) {
  LinesForm form;
  form.txtLine.Text("1234");
  Play(form, [&](FormUser& user) {
    user.acts.BringFocus(form.txtLine);
    form.TakeNotes();
    ASSERT_EQ(form.txtLine.Selected(), (Selection{.start = 0, .length = 4}));
    user.Paste(form.txtLine, "\r\nx");
    EXPECT_EQ(form.txtLine.Text(), "1234");
    EXPECT_EQ(form.txtLine.Selected(), (Selection{.start = 0, .length = 4}));
    EXPECT_EQ(form.TakeNotes(), Notes());
  });
}

// Its first character is the one that was there.
TEST(SingleLineField, TakesAPasteOverItsSelectionThatBeginsLikeIt) {
  LinesForm form;
  form.txtLine.Text("1234");
  Play(form, [&](FormUser& user) {
    user.acts.BringFocus(form.txtLine);
    user.Paste(form.txtLine, "1\nx");
    EXPECT_EQ(form.txtLine.Text(), "1");
  });
}

}  // namespace
}  // namespace fiscalon
