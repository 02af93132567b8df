#include "frontends/qt/key_strokes.h"

#include <gtest/gtest.h>

#include <ostream>

#include "frontends/qt/qt_text.h"

namespace fiscalon::qt {
namespace {

struct KeyRow {
  std::string name;
  int key;
  Qt::KeyboardModifiers modifiers;
  QString text;
  KeyStroke stroke;
};

void PrintTo(const KeyRow& row, std::ostream* out) {
  *out << row.name;
}

class StrokeOfKeyEvent : public testing::TestWithParam<KeyRow> {};

TEST_P(StrokeOfKeyEvent, HasCodeStateAndCharacter) {
  const KeyRow& row = GetParam();
  const auto stroke = StrokeOf(QKeyEvent(QEvent::KeyPress, row.key, row.modifiers, row.text));
  ASSERT_TRUE(stroke.has_value());
  EXPECT_EQ(stroke->keyCode, row.stroke.keyCode);
  EXPECT_EQ(stroke->shift, row.stroke.shift);
  EXPECT_EQ(stroke->character, row.stroke.character);
}

INSTANTIATE_TEST_SUITE_P(
    Keys, StrokeOfKeyEvent,
    testing::Values(
        KeyRow{"Letter", Qt::Key_A, Qt::NoModifier, "a", {.keyCode = 'A', .shift = 0, .character = 'a'}},
        KeyRow{"CapitalLetter", Qt::Key_A, Qt::ShiftModifier, "A", {.keyCode = 'A', .shift = 1, .character = 'A'}},
        KeyRow{"CapsLockLetter", Qt::Key_A, Qt::NoModifier, "A", {.keyCode = 'A', .shift = 0, .character = 'A'}},
        KeyRow{"Digit", Qt::Key_7, Qt::NoModifier, "7", {.keyCode = '7', .shift = 0, .character = '7'}},
        KeyRow{"KeypadDigit", Qt::Key_7, Qt::KeypadModifier, "7", {.keyCode = '7', .shift = 0, .character = '7'}},
        KeyRow{"Point", Qt::Key_Period, Qt::NoModifier, ".", {.keyCode = 190, .shift = 0, .character = '.'}},
        KeyRow{"AccentedLetter",
               0xC9,
               Qt::NoModifier,
               QString(QChar(0xE9)),
               {.keyCode = 255, .shift = 0, .character = 0xE9}},
        KeyRow{"EuroByAltGr",
               0x20AC,
               Qt::ControlModifier | Qt::AltModifier,
               QString(QChar(0x20AC)),
               {.keyCode = 255, .shift = 6, .character = 0x80}},
        KeyRow{"LetterOutsideTheCodePage",
               0x150,
               Qt::NoModifier,
               QString(QChar(0x151)),
               {.keyCode = 191, .shift = 0, .character = '?'}},
        KeyRow{"Enter", Qt::Key_Return, Qt::NoModifier, "\r", {.keyCode = 13, .shift = 0, .character = 13}},
        KeyRow{"KeypadEnter", Qt::Key_Enter, Qt::KeypadModifier, "\r", {.keyCode = 13, .shift = 0, .character = 13}},
        KeyRow{"ControlEnter", Qt::Key_Return, Qt::ControlModifier, "\r", {.keyCode = 13, .shift = 2, .character = 10}},
        KeyRow{"ShiftEnter", Qt::Key_Return, Qt::ShiftModifier, "\r", {.keyCode = 13, .shift = 1, .character = 13}},
        KeyRow{"Tab", Qt::Key_Tab, Qt::NoModifier, "\t", {.keyCode = 9, .shift = 0, .character = 9}},
        KeyRow{"ShiftTab", Qt::Key_Backtab, Qt::ShiftModifier, "", {.keyCode = 9, .shift = 1, .character = 9}},
        KeyRow{"Backspace", Qt::Key_Backspace, Qt::NoModifier, "\b", {.keyCode = 8, .shift = 0, .character = 8}},
        KeyRow{"Delete", Qt::Key_Delete, Qt::NoModifier, "\x7f", {.keyCode = 46, .shift = 0, .character = 0}},
        KeyRow{"Left", Qt::Key_Left, Qt::ShiftModifier, "", {.keyCode = 37, .shift = 1, .character = 0}},
        KeyRow{"Paste", Qt::Key_V, Qt::ControlModifier, "\x16", {.keyCode = 'V', .shift = 2, .character = 0}},
        KeyRow{"AccessKey", Qt::Key_O, Qt::AltModifier, "o", {.keyCode = 'O', .shift = 4, .character = 0}},
        KeyRow{"F1", Qt::Key_F1, Qt::NoModifier, "", {.keyCode = 112, .shift = 0, .character = 0}}),
    [](const auto& row) { return row.param.name; });

TEST(StrokeOf, IsNothingForAKeyThatOnlyChangesOthers) {
  for (const int key : {Qt::Key_Shift, Qt::Key_Control, Qt::Key_Alt, Qt::Key_AltGr, Qt::Key_CapsLock, Qt::Key_Meta})
    EXPECT_FALSE(StrokeOf(QKeyEvent(QEvent::KeyPress, key, Qt::NoModifier)).has_value()) << key;
}

TEST(QtKeyOf, ComesBackAsTheSameStroke) {
  std::vector<KeyStroke> strokes;
  for (const char* name : {"Tab", "Shift+Tab", "Enter", "Shift+Enter", "Ctrl+Enter", "Escape", "Backspace", "Delete",
                           "Space", "Left", "Right", "Up", "Down", "Home", "End", "Alt+O", "Alt+C"})
    strokes.push_back(*StrokeNamed(name));
  for (int character = ' '; character < 256; ++character)
    if (ToQt(std::string(1, static_cast<char>(character))).front().isPrint())
      strokes.push_back(fiscalon::StrokeOf(static_cast<char>(character)));
  for (const KeyStroke& stroke : strokes) {
    const QtKey key = QtKeyOf(stroke);
    const auto back = StrokeOf(QKeyEvent(QEvent::KeyPress, key.key, key.modifiers, key.text));
    ASSERT_TRUE(back.has_value()) << stroke.keyCode;
    EXPECT_EQ(back->keyCode, stroke.keyCode) << stroke.character;
    EXPECT_EQ(back->shift, stroke.shift) << stroke.character;
    EXPECT_EQ(back->character, stroke.character);
  }
}

TEST(QtText, SurvivesThereAndBack) {
  for (int character = 0; character < 256; ++character) {
    const std::string text(1, static_cast<char>(character));
    EXPECT_EQ(FromQt(ToQt(text)), text) << character;
    EXPECT_EQ(ToQt(text).size(), 1) << character;
  }
}

}  // namespace
}  // namespace fiscalon::qt
