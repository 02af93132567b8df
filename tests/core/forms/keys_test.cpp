#include "core/forms/keys.h"

#include <gtest/gtest.h>

namespace fiscalon {

static bool operator==(const KeyStroke& a, const KeyStroke& b) {
  return a.keyCode == b.keyCode && a.shift == b.shift && a.character == b.character;
}

static void PrintTo(const KeyStroke& stroke, std::ostream* out) {
  *out << "key " << stroke.keyCode << ", shift " << stroke.shift << ", character " << stroke.character;
}

namespace {

TEST(Key, HasTheCodeThatHandlersKnow) {
  const std::pair<int, int> rows[] = {
      {key::kBackspace, 8},   {key::kTab, 9},           {key::kLineFeed, 10},   {key::kEnter, 13},
      {key::kShift, 16},      {key::kControl, 17},      {key::kAlt, 18},        {key::kCapsLock, 20},
      {key::kEscape, 27},     {key::kSpace, 32},        {key::kPageUp, 33},     {key::kPageDown, 34},
      {key::kEnd, 35},        {key::kHome, 36},         {key::kLeft, 37},       {key::kUp, 38},
      {key::kRight, 39},      {key::kDown, 40},         {key::kInsert, 45},     {key::kDelete, 46},
      {key::kLeftSystem, 91}, {key::kRightSystem, 92},  {key::kF1, 112},        {key::kF24, 135},
      {key::kNumLock, 144},   {key::kScrollLock, 145},  {key::kSemicolon, 186}, {key::kEquals, 187},
      {key::kComma, 188},     {key::kMinus, 189},       {key::kPeriod, 190},    {key::kSlash, 191},
      {key::kBackquote, 192}, {key::kOpenBracket, 219}, {key::kBackslash, 220}, {key::kCloseBracket, 221},
      {key::kQuote, 222},     {key::kOther, 255},
  };
  for (const auto& [code, known] : rows) EXPECT_EQ(code, known);
}

TEST(ShiftState, AddsUp) {
  EXPECT_EQ(shift_state::kNone, 0);
  EXPECT_EQ(shift_state::kShift, 1);
  EXPECT_EQ(shift_state::kControl, 2);
  EXPECT_EQ(shift_state::kAlt, 4);
}

TEST(KeyStroke, IsNoKeyUnlessItSaysWhich) {
  EXPECT_EQ(KeyStroke().keyCode, 0);
  EXPECT_EQ(KeyStroke().shift, 0);
  EXPECT_EQ(KeyStroke().character, 0);
}

TEST(KeyOutcome, LeavesNothingToDoUnlessItSaysWhat) {
  EXPECT_FALSE(KeyOutcome().editing);
  EXPECT_EQ(KeyOutcome().character, 0);
  EXPECT_FALSE(KeyOutcome().characterFollows);
}

TEST(StrokeOf, TypesACharacterWithTheKeyThatBearsIt) {
  const std::vector<std::pair<char, KeyStroke>> rows = {
      {'5', {.keyCode = 53, .character = 53}},
      {'a', {.keyCode = 65, .character = 97}},
      {'A', {.keyCode = 65, .shift = shift_state::kShift, .character = 65}},
      {'z', {.keyCode = 90, .character = 122}},
      {' ', {.keyCode = 32, .character = 32}},
      {'\b', {.keyCode = 8, .character = 8}},
      {'\t', {.keyCode = 9, .character = 9}},
      {'\r', {.keyCode = 13, .character = 13}},
      {'\n', {.keyCode = 13, .character = 13}},
      {'!', {.keyCode = 49, .shift = shift_state::kShift, .character = 33}},
      {')', {.keyCode = 48, .shift = shift_state::kShift, .character = 41}},
      {'(', {.keyCode = 57, .shift = shift_state::kShift, .character = 40}},
  };
  for (const auto& [character, stroke] : rows) EXPECT_EQ(StrokeOf(character), stroke) << character;
}

TEST(StrokeOf, TypesPunctuationAsOnANorthAmericanKeyboard) {
  struct Row {
    char plain, shifted;
    int keyCode;
  };
  for (const Row& row : {Row{';', ':', 186}, Row{'=', '+', 187}, Row{',', '<', 188}, Row{'-', '_', 189},
                         Row{'.', '>', 190}, Row{'/', '?', 191}, Row{'`', '~', 192}, Row{'[', '{', 219},
                         Row{'\\', '|', 220}, Row{']', '}', 221}, Row{'\'', '"', 222}}) {
    EXPECT_EQ(StrokeOf(row.plain), (KeyStroke{.keyCode = row.keyCode, .character = row.plain}));
    EXPECT_EQ(StrokeOf(row.shifted),
              (KeyStroke{.keyCode = row.keyCode, .shift = shift_state::kShift, .character = row.shifted}));
  }
}

// The codes 37 to 46 are arrows, Delete and others of that kind: "." (46), "-" (45), "'" (39) and "&" (38) are not.
TEST(StrokeOf, GivesPunctuationNoKeyCodeOfAMovingKey) {
  EXPECT_EQ(StrokeOf('.'), (KeyStroke{.keyCode = 190, .character = 46}));
  EXPECT_EQ(StrokeOf(','), (KeyStroke{.keyCode = 188, .character = 44}));
  EXPECT_EQ(StrokeOf('-'), (KeyStroke{.keyCode = 189, .character = 45}));
  EXPECT_EQ(StrokeOf('+'), (KeyStroke{.keyCode = 187, .shift = shift_state::kShift, .character = 43}));
  EXPECT_EQ(StrokeOf('"'), (KeyStroke{.keyCode = 222, .shift = shift_state::kShift, .character = 34}));
  for (int code = ' ' + 1; code < 127; ++code) {
    const int keyCode = StrokeOf(static_cast<char>(code)).keyCode;
    EXPECT_FALSE(keyCode >= key::kEnd && keyCode <= key::kDelete) << static_cast<char>(code);
  }
}

TEST(StrokeOf, TypesTheUpperHalfOfTheCodePageWithoutAKeyOfItsOwn) {
  EXPECT_EQ(StrokeOf('\xE9'), (KeyStroke{.keyCode = 255, .character = 0xE9}));
  EXPECT_EQ(StrokeOf('\x80'), (KeyStroke{.keyCode = 255, .character = 0x80}));
}

TEST(StrokeNamed, KnowsTheNamedKeys) {
  const std::vector<std::pair<std::string_view, KeyStroke>> rows = {
      {"Tab", {.keyCode = 9, .character = 9}},
      {"Shift+Tab", {.keyCode = 9, .shift = shift_state::kShift, .character = 9}},
      {"Enter", {.keyCode = 13, .character = 13}},
      {"Shift+Enter", {.keyCode = 13, .shift = shift_state::kShift, .character = 13}},
      {"Ctrl+Enter", {.keyCode = 13, .shift = shift_state::kControl, .character = 10}},
      {"Escape", {.keyCode = 27, .character = 27}},
      {"Backspace", {.keyCode = 8, .character = 8}},
      {"Delete", {.keyCode = 46}},
      {"Space", {.keyCode = 32, .character = 32}},
      {"Left", {.keyCode = 37}},
      {"Right", {.keyCode = 39}},
      {"Up", {.keyCode = 38}},
      {"Down", {.keyCode = 40}},
      {"Home", {.keyCode = 36}},
      {"End", {.keyCode = 35}},
      {"Alt+O", {.keyCode = 'O', .shift = shift_state::kAlt}},
      {"Alt+o", {.keyCode = 'O', .shift = shift_state::kAlt}},
  };
  for (const auto& [name, stroke] : rows) {
    ASSERT_TRUE(StrokeNamed(name)) << name;
    EXPECT_EQ(*StrokeNamed(name), stroke) << name;
  }
}

TEST(StrokeNamed, KnowsNoOther) {
  for (const char* name : {"", "tab", "Tab ", "F1", "Alt+", "Alt+OK", "Alt+ ", "Alt+5", "Ctrl+C", "Shift+Space", "a"})
    EXPECT_FALSE(StrokeNamed(name)) << name;
}

constexpr int kShiftControl = shift_state::kShift | shift_state::kControl;

TEST(EditorCommand, IsCopyCutPasteUndoRedoOrSelectAll) {
  for (const char letter : std::string("ACVXYZ"))
    for (const int shift : {int{shift_state::kControl}, kShiftControl})
      EXPECT_TRUE(IsEditorCommand({.keyCode = letter, .shift = shift})) << letter << shift;
  EXPECT_TRUE(IsEditorCommand({.keyCode = key::kInsert, .shift = shift_state::kControl}));
  EXPECT_TRUE(IsEditorCommand({.keyCode = key::kInsert, .shift = shift_state::kShift}));
  EXPECT_TRUE(IsEditorCommand({.keyCode = key::kDelete, .shift = shift_state::kShift}));
}

TEST(EditorCommand, IsNoPlainKeyNoCaretKeyAndNoCharacter) {
  const std::vector<KeyStroke> strokes = {
      {.keyCode = 'C', .character = 'c'},
      {.keyCode = 'C', .shift = shift_state::kShift, .character = 'C'},
      {.keyCode = 'C', .shift = shift_state::kAlt},
      // AltGr and C make a character on some keyboards.
      {.keyCode = 'C', .shift = shift_state::kControl | shift_state::kAlt, .character = 0xA9},
      {.keyCode = 'B', .shift = shift_state::kControl},
      {.keyCode = key::kHome, .shift = kShiftControl},
      {.keyCode = key::kInsert},
      {.keyCode = key::kDelete},
      *StrokeNamed("Ctrl+Enter"),
      *StrokeNamed("Shift+Enter"),
      // Codes of keys that characters have by chance.
      {.keyCode = key::kDelete, .shift = shift_state::kShift, .character = '.'},
  };
  for (const KeyStroke& stroke : strokes) {
    EXPECT_FALSE(IsEditorCommand(stroke)) << stroke.keyCode;
    EXPECT_TRUE(ReachesHandlers(stroke)) << stroke.keyCode;
  }
}

TEST(ModifierAlone, IsAKeyThatOnlyChangesOthers) {
  for (const int keyCode : {16, 17, 18, 20, 91, 92, 144, 145}) {
    EXPECT_TRUE(IsModifierAlone(keyCode)) << keyCode;
    EXPECT_FALSE(ReachesHandlers({.keyCode = keyCode})) << keyCode;
  }
  for (const int keyCode : {8, 9, 13, 19, 27, 32, 46, 65, 93, 112, 186, 255})
    EXPECT_FALSE(IsModifierAlone(keyCode)) << keyCode;
}

TEST(AccessKey, IsTheCapitalBehindTheFirstSingleAmpersand) {
  EXPECT_EQ(AccessKey("&OK"), 'O');
  EXPECT_EQ(AccessKey("Cancel an &Invoice"), 'I');
  EXPECT_EQ(AccessKey("&help"), 'H');
  EXPECT_EQ(AccessKey("Bread && &Butter"), 'B');
  EXPECT_EQ(AccessKey("&A&B"), 'A');
}

TEST(WithoutAccessMarks, IsTheCaptionAsItReads) {
  EXPECT_EQ(WithoutAccessMarks("Cancel an &Invoice"), "Cancel an Invoice");
  EXPECT_EQ(WithoutAccessMarks("Bread && &Butter"), "Bread & Butter");
  EXPECT_EQ(WithoutAccessMarks("OK"), "OK");
  EXPECT_EQ(WithoutAccessMarks("R&"), "R&");
}

TEST(AccessKey, IsNoneWithoutOne) {
  for (const char* caption : {"", "Cancel", "Bread && Butter", "Trailing &", "&", "&&"})
    EXPECT_EQ(AccessKey(caption), 0) << caption;
}

TEST(Capital, ChangesTheLettersOfAsciiAlone) {
  EXPECT_EQ(Capital('a'), 'A');
  EXPECT_EQ(Capital('z'), 'Z');
  EXPECT_EQ(Capital('A'), 'A');
  EXPECT_EQ(Capital('{'), '{');
  EXPECT_EQ(Capital('`'), '`');
  EXPECT_EQ(Capital('\xE9'), 0xE9);
}

}  // namespace
}  // namespace fiscalon
