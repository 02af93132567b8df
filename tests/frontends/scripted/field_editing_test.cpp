#include "frontends/scripted/field_editing.h"

#include <gtest/gtest.h>

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

class FieldEditing : public testing::Test {
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
    return Marked(InsertText(field, text));
  }

  std::string ByKey(const std::string& before, int keyCode) {
    Put(form.txtFree, before);
    return Marked(EditByKey(form.txtFree, keyCode));
  }

  FieldForm form;
};

TEST_F(FieldEditing, InsertsAtTheCaret) {
  EXPECT_EQ(Inserted(form.txtFree, "|", "a"), "a|");
  EXPECT_EQ(Inserted(form.txtFree, "a|b", "xy"), "axy|b");
}

TEST_F(FieldEditing, ReplacesTheSelection) {
  EXPECT_EQ(Inserted(form.txtFree, "a|bc|d", "x"), "ax|d");
  EXPECT_EQ(Inserted(form.txtFree, "|abcd|", "xy"), "xy|");
}

TEST_F(FieldEditing, CutsAtTheLimit) {
  EXPECT_EQ(Inserted(form.txtFive, "|", "1234567"), "12345|");
  EXPECT_EQ(Inserted(form.txtFive, "12|3", "abcd"), "12ab|3");
  EXPECT_EQ(Inserted(form.txtFive, "1|23|45", "abcd"), "1ab|45");
  EXPECT_EQ(Inserted(form.txtFive, "123|45", "x"), "123|45");
}

TEST_F(FieldEditing, TextBeyondTheLimitTakesNothingMore) {
  EXPECT_EQ(Inserted(form.txtFive, "1234567|", "x"), "1234567|");
  EXPECT_EQ(Inserted(form.txtFive, "|123|4567", "x"), "x|4567");
  EXPECT_EQ(Inserted(form.txtFive, "|1|234567", "x"), "|1|234567");
}

TEST_F(FieldEditing, TakesALineEndForOneCharacter) {
  EXPECT_EQ(ByKey("a\r\n|b", key::kBackspace), "a|b");
  EXPECT_EQ(ByKey("a|\r\nb", key::kDelete), "a|b");
  EXPECT_EQ(ByKey("a\r\n|b", key::kLeft), "a|\r\nb");
  EXPECT_EQ(ByKey("a|\r\nb", key::kRight), "a\r\n|b");
}

TEST_F(FieldEditing, GoesToTheEndsOfALine) {
  EXPECT_EQ(ByKey("one\r\ntw|o\r\nsix", key::kHome), "one\r\n|two\r\nsix");
  EXPECT_EQ(ByKey("one\r\ntw|o\r\nsix", key::kEnd), "one\r\ntwo|\r\nsix");
}

TEST_F(FieldEditing, NothingInsertedLeavesTheSelection) {
  EXPECT_EQ(Inserted(form.txtFree, "a|b|c", ""), "a|b|c");
}

TEST_F(FieldEditing, BackspaceAndDelete) {
  EXPECT_EQ(ByKey("ab|c", key::kBackspace), "a|c");
  EXPECT_EQ(ByKey("|abc", key::kBackspace), "|abc");
  EXPECT_EQ(ByKey("a|b|c", key::kBackspace), "a|c");
  EXPECT_EQ(ByKey("a|bc", key::kDelete), "a|c");
  EXPECT_EQ(ByKey("abc|", key::kDelete), "abc|");
  EXPECT_EQ(ByKey("a|bc|", key::kDelete), "a|");
  EXPECT_EQ(ByKey("|", key::kBackspace), "|");
  EXPECT_EQ(ByKey("|", key::kDelete), "|");
}

TEST_F(FieldEditing, CaretKeys) {
  EXPECT_EQ(ByKey("ab|c", key::kLeft), "a|bc");
  EXPECT_EQ(ByKey("|abc", key::kLeft), "|abc");
  EXPECT_EQ(ByKey("a|b|c", key::kLeft), "a|bc");
  EXPECT_EQ(ByKey("a|bc", key::kRight), "ab|c");
  EXPECT_EQ(ByKey("abc|", key::kRight), "abc|");
  EXPECT_EQ(ByKey("a|b|c", key::kRight), "ab|c");
  EXPECT_EQ(ByKey("ab|c", key::kHome), "|abc");
  EXPECT_EQ(ByKey("|ab|c", key::kEnd), "abc|");
}

TEST_F(FieldEditing, OtherKeysDoNothing) {
  for (const int keyCode : {key::kUp, key::kDown, key::kEnter, key::kTab, 0, 112})
    EXPECT_EQ(ByKey("a|b|c", keyCode), "a|b|c") << keyCode;
}

}  // namespace
}  // namespace fiscalon
