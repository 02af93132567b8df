#include "core/forms/field_editor.h"

#include <gtest/gtest.h>

#include <vector>

#include "core/forms/keys.h"
#include "tests/support/test_form.h"

namespace fiscalon {
namespace {

class FieldForm : public TestForm {
 public:
  // clang-format off
  TextField txtFree  {*this, "txtFree",  {}};
  TextField txtFive  {*this, "txtFive",  {.maxLength = 5}};
  TextField txtLines {*this, "txtLines", {.multiLine = true}};
  // clang-format on
};

class FieldEditorTest : public testing::Test {
 protected:
  /// A text with its caret as "|", or its selection between two of them.
  static void Put(TextField& field, std::string marked) {
    const size_t from = marked.find('|');
    marked.erase(from, 1);
    const size_t to = marked.find('|');
    if (to != std::string::npos)
      marked.erase(to, 1);
    field.Text(marked);
    field.Select(
        {.start = static_cast<int>(from), .length = static_cast<int>(to == std::string::npos ? 0 : to - from)});
  }

  static std::string Marked(const EditedText& edited) {
    std::string marked = edited.text;
    if (edited.selection.length > 0)
      marked.insert(static_cast<size_t>(edited.selection.End()), "|");
    return marked.insert(static_cast<size_t>(edited.selection.start), "|");
  }

  static std::string Inserted(TextField& field, const std::string& before, const std::string& text) {
    Put(field, before);
    return Marked(FieldEditor().Paste(field, text));
  }

  std::string ByKey(const std::string& before, int keyCode) {
    Put(form.txtFree, before);
    return Marked(FieldEditor().Key(form.txtFree, {.keyCode = keyCode}, keyCode == key::kBackspace ? keyCode : 0));
  }

  /// The same key after key, as a user presses them.
  std::string ByKeys(TextField& field, const std::string& before, const std::vector<KeyStroke>& strokes) {
    Put(field, before);
    for (const KeyStroke& stroke : strokes) Keep(field, editor.Key(field, stroke, stroke.character));
    return Shown(field);
  }
  static void Keep(TextField& field, const EditedText& edited) {
    field.Text(edited.text);
    field.Select(edited.selection);
  }
  static std::string Shown(const TextField& field) {
    return Marked({.text = field.Text(), .selection = field.Selected()});
  }
  void Type(TextField& field, std::string_view text) {
    for (const char character : text) Keep(field, editor.Key(field, StrokeOf(character), character));
  }

  FieldForm form;
  FieldEditor editor;
};

TEST_F(FieldEditorTest, InsertsAtTheCaret) {
  EXPECT_EQ(Inserted(form.txtFree, "|", "a"), "a|");
  EXPECT_EQ(Inserted(form.txtFree, "a|b", "xy"), "axy|b");
}

TEST_F(FieldEditorTest, ReplacesTheSelection) {
  EXPECT_EQ(Inserted(form.txtFree, "a|bc|d", "x"), "ax|d");
  EXPECT_EQ(Inserted(form.txtFree, "|abcd|", "xy"), "xy|");
}

TEST_F(FieldEditorTest, CutsAtTheLimit) {
  EXPECT_EQ(Inserted(form.txtFive, "|", "1234567"), "12345|");
  EXPECT_EQ(Inserted(form.txtFive, "12|3", "abcd"), "12ab|3");
  EXPECT_EQ(Inserted(form.txtFive, "1|23|45", "abcd"), "1ab|45");
  EXPECT_EQ(Inserted(form.txtFive, "123|45", "x"), "123|45");
}

TEST_F(FieldEditorTest, TextBeyondTheLimitTakesNothingMore) {
  EXPECT_EQ(Inserted(form.txtFive, "1234567|", "x"), "1234567|");
  EXPECT_EQ(Inserted(form.txtFive, "|123|4567", "x"), "x|4567");
  EXPECT_EQ(Inserted(form.txtFive, "|1|234567", "x"), "|1|234567");
}

TEST_F(FieldEditorTest, TakesALineEndForOneCharacter) {
  EXPECT_EQ(ByKey("a\r\n|b", key::kBackspace), "a|b");
  EXPECT_EQ(ByKey("a|\r\nb", key::kDelete), "a|b");
  EXPECT_EQ(ByKey("a\r\n|b", key::kLeft), "a|\r\nb");
  EXPECT_EQ(ByKey("a|\r\nb", key::kRight), "a\r\n|b");
}

TEST_F(FieldEditorTest, GoesToTheEndsOfALine) {
  EXPECT_EQ(ByKey("one\r\ntw|o\r\nsix", key::kHome), "one\r\n|two\r\nsix");
  EXPECT_EQ(ByKey("one\r\ntw|o\r\nsix", key::kEnd), "one\r\ntwo|\r\nsix");
  EXPECT_EQ(ByKey("o~n|e", key::kHome), "|o~ne");
  EXPECT_EQ(ByKey("o|n~e", key::kEnd), "on~e|");
}

TEST_F(FieldEditorTest, NothingInsertedLeavesTheSelection) {
  EXPECT_EQ(Inserted(form.txtFree, "a|b|c", ""), "a|b|c");
}

TEST_F(FieldEditorTest, BackspaceAndDelete) {
  EXPECT_EQ(ByKey("ab|c", key::kBackspace), "a|c");
  EXPECT_EQ(ByKey("|abc", key::kBackspace), "|abc");
  EXPECT_EQ(ByKey("a|b|c", key::kBackspace), "a|c");
  EXPECT_EQ(ByKey("a|bc", key::kDelete), "a|c");
  EXPECT_EQ(ByKey("abc|", key::kDelete), "abc|");
  EXPECT_EQ(ByKey("a|bc|", key::kDelete), "a|");
  EXPECT_EQ(ByKey("|", key::kBackspace), "|");
  EXPECT_EQ(ByKey("|", key::kDelete), "|");
}

TEST_F(FieldEditorTest, CaretKeys) {
  EXPECT_EQ(ByKey("ab|c", key::kLeft), "a|bc");
  EXPECT_EQ(ByKey("|abc", key::kLeft), "|abc");
  EXPECT_EQ(ByKey("a|b|c", key::kLeft), "a|bc");
  EXPECT_EQ(ByKey("a|bc", key::kRight), "ab|c");
  EXPECT_EQ(ByKey("abc|", key::kRight), "abc|");
  EXPECT_EQ(ByKey("a|b|c", key::kRight), "ab|c");
  EXPECT_EQ(ByKey("ab|c", key::kHome), "|abc");
  EXPECT_EQ(ByKey("|ab|c", key::kEnd), "abc|");
}

TEST_F(FieldEditorTest, OtherKeysDoNothing) {
  for (const int keyCode : {key::kUp, key::kDown, key::kTab, 0, 112})
    EXPECT_EQ(ByKey("a|b|c", keyCode), "a|b|c") << keyCode;
}

constexpr KeyStroke kUndo = {.keyCode = 'Z', .shift = shift_state::kControl};
constexpr KeyStroke kRedo = {.keyCode = 'Y', .shift = shift_state::kControl};
constexpr KeyStroke kCopy = {.keyCode = key::kInsert, .shift = shift_state::kControl};
constexpr KeyStroke kCut = {.keyCode = key::kDelete, .shift = shift_state::kShift};
constexpr KeyStroke kPaste = {.keyCode = key::kInsert, .shift = shift_state::kShift};

KeyStroke WithShift(int keyCode) {
  return {.keyCode = keyCode, .shift = shift_state::kShift};
}

KeyStroke WithControl(int keyCode) {
  return {.keyCode = keyCode, .shift = shift_state::kControl};
}

TEST_F(FieldEditorTest, ShiftSelectsFromWhereTheCaretWas) {
  EXPECT_EQ(ByKeys(form.txtFree, "ab|cd", {WithShift(key::kLeft)}), "a|b|cd");
  EXPECT_EQ(ByKeys(form.txtFree, "ab|cd", {WithShift(key::kLeft), WithShift(key::kLeft)}), "|ab|cd");
  EXPECT_EQ(ByKeys(form.txtFree, "ab|cd", {WithShift(key::kRight), WithShift(key::kEnd)}), "ab|cd|");
  EXPECT_EQ(ByKeys(form.txtFree, "ab|cd", {WithShift(key::kRight), WithShift(key::kHome)}), "|ab|cd");
  EXPECT_EQ(ByKeys(form.txtFree, "ab|cd", {WithShift(key::kLeft), WithShift(key::kRight)}), "ab|cd");
}

TEST_F(FieldEditorTest, AKeyWithoutShiftEndsTheSelectionOnItsSide) {
  EXPECT_EQ(ByKeys(form.txtFree, "ab|cd", {WithShift(key::kLeft), {.keyCode = key::kLeft}}), "a|bcd");
  EXPECT_EQ(ByKeys(form.txtFree, "ab|cd", {WithShift(key::kLeft), {.keyCode = key::kRight}}), "ab|cd");
}

TEST_F(FieldEditorTest, SelectsOnFromTheEndOfWhatCodeSelected) {
  EXPECT_EQ(ByKeys(form.txtFree, "a|bc|de", {WithShift(key::kRight)}), "a|bcd|e");
}

TEST_F(FieldEditorTest, TellsTheEndOfTheSelectionThatMoves) {
  ByKeys(form.txtFree, "ab|cd", {WithShift(key::kLeft)});
  EXPECT_EQ(editor.Caret(form.txtFree), 1);
  Put(form.txtFive, "1|23|4");
  EXPECT_EQ(editor.Caret(form.txtFive), 3);
  Put(form.txtFree, "|abc|d");
  EXPECT_EQ(editor.Caret(form.txtFree), 3);
}

TEST_F(FieldEditorTest, GoesByWords) {
  EXPECT_EQ(ByKeys(form.txtFree, "12 Elm Street|", {WithControl(key::kLeft)}), "12 Elm |Street");
  EXPECT_EQ(ByKeys(form.txtFree, "12 |Elm Street", {WithControl(key::kLeft)}), "|12 Elm Street");
  EXPECT_EQ(ByKeys(form.txtFree, "|12 Elm Street", {WithControl(key::kRight)}), "12 |Elm Street");
  EXPECT_EQ(ByKeys(form.txtFree, "12 Elm |Street", {WithControl(key::kRight)}), "12 Elm Street|");
  EXPECT_EQ(ByKeys(form.txtLines, "one\r\n|two", {WithControl(key::kHome)}), "|one\r\ntwo");
  EXPECT_EQ(ByKeys(form.txtLines, "o|ne\r\ntwo", {WithControl(key::kEnd)}), "one\r\ntwo|");
}

TEST_F(FieldEditorTest, GoesByLines) {
  EXPECT_EQ(ByKeys(form.txtLines, "one\r\ntw|o", {{.keyCode = key::kUp}}), "on|e\r\ntwo");
  EXPECT_EQ(ByKeys(form.txtLines, "long|er\r\nab\r\n", {{.keyCode = key::kDown}}), "longer\r\nab|\r\n");
  EXPECT_EQ(ByKeys(form.txtLines, "o|ne", {{.keyCode = key::kUp}}), "o|ne");
  EXPECT_EQ(ByKeys(form.txtLines, "o|ne\r\nsix", {WithShift(key::kDown)}), "o|ne\r\ns|ix");
}

TEST_F(FieldEditorTest, ErasesWordsAndToTheEndsOfTheLine) {
  EXPECT_EQ(ByKeys(form.txtFree, "12 Elm |Street",
                   {{.keyCode = key::kBackspace, .shift = shift_state::kControl, .character = key::kBackspace}}),
            "12 |Street");
  EXPECT_EQ(ByKeys(form.txtFree, "12 |Elm Street", {WithControl(key::kDelete)}), "12 |Street");
  Put(form.txtFree, "12 Elm |Street");
  EXPECT_EQ(Marked(editor.EraseToLineStart(form.txtFree)), "|Street");
  EXPECT_EQ(Marked(editor.EraseToLineEnd(form.txtFree)), "12 Elm |");
  EXPECT_EQ(Marked(editor.EraseWordBefore(form.txtFree)), "12 |Street");
}

TEST_F(FieldEditorTest, UndoesWhatWasTypedAtOneGo) {
  Put(form.txtFree, "x|");
  Type(form.txtFree, "abc");
  EXPECT_EQ(ByKeys(form.txtFree, Shown(form.txtFree), {kUndo}), "x|");
  EXPECT_EQ(ByKeys(form.txtFree, Shown(form.txtFree), {kRedo}), "xabc|");
}

TEST_F(FieldEditorTest, UndoesStepByStep) {
  Put(form.txtFree, "|");
  Type(form.txtFree, "ab");
  Keep(form.txtFree, editor.Key(form.txtFree, {.keyCode = key::kHome}, 0));
  Type(form.txtFree, "x");
  Keep(form.txtFree, editor.Paste(form.txtFree, "yz"));
  ASSERT_EQ(Shown(form.txtFree), "xyz|ab");
  for (const char* before : {"x|ab", "|ab", "|", "|"}) {
    Keep(form.txtFree, editor.Key(form.txtFree, kUndo, 0));
    EXPECT_EQ(Shown(form.txtFree), before);
  }
}

TEST_F(FieldEditorTest, GoesBackAHundredSteps) {
  Put(form.txtFree, "|");
  for (int step = 0; step < 102; ++step) Keep(form.txtFree, editor.Paste(form.txtFree, "x"));
  for (int step = 0; step < 102; ++step) Keep(form.txtFree, editor.Key(form.txtFree, kUndo, 0));
  EXPECT_EQ(Shown(form.txtFree), "xx|");
}

TEST_F(FieldEditorTest, TakesNothingInsertedForNoStep) {
  Put(form.txtFree, "|");
  Type(form.txtFree, "ab");
  Keep(form.txtFree, editor.Key(form.txtFree, kUndo, 0));
  Keep(form.txtFree, editor.Paste(form.txtFree, ""));
  EXPECT_EQ(ByKeys(form.txtFree, "|", {kRedo}), "ab|");
}

TEST_F(FieldEditorTest, AnotherFieldHasNothingToUndo) {
  Type(form.txtFree, "ab");
  EXPECT_EQ(ByKeys(form.txtLines, "c|", {kUndo}), "c|");
}

TEST_F(FieldEditorTest, CarriesTextFromFieldToField) {
  EXPECT_EQ(ByKeys(form.txtFree, "a|bc|", {kCopy}), "a|bc|");
  EXPECT_EQ(ByKeys(form.txtLines, "x|", {kPaste}), "xbc|");
  EXPECT_EQ(ByKeys(form.txtFree, "|ab|c", {kCut}), "|c");
  EXPECT_EQ(ByKeys(form.txtFive, "|", {kPaste, kPaste, kPaste}), "ababa|");
}

TEST_F(FieldEditorTest, LeavesALockedFieldAsItIs) {
  Put(form.txtFree, "a|b");
  form.txtFree.Locked(true);
  EXPECT_EQ(Marked(editor.Key(form.txtFree, kUndo, 0)), "a|b");
  // What it makes of a text is refused where it is reported, and is no step to go back.
  editor.Paste(form.txtFree, "x");
  form.txtFree.Locked(false);
  EXPECT_EQ(Marked(editor.Key(form.txtFree, kUndo, 0)), "a|b");
}

}  // namespace
}  // namespace fiscalon
