#include "frontends/terminal/screen_writer.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace fiscalon::terminal {
namespace {

using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

constexpr Size kSize = {.width = 20, .height = 3};
/// Puts the cursor there, on terminals that count from 1 between "CSI" and "H".
constexpr const char* kSecondRow = "\x1B[2;3H";

class ScreenWriting : public testing::Test {
 protected:
  TerminalDescription xterm{"xterm-256color"};
  ScreenWriter writer{xterm, Charset::Utf8};
  Screen screen{kSize};
};

TEST_F(ScreenWriting, WritesWhatDiffers) {
  screen.Put({0, 0}, "Amount:");
  screen.Put({2, 1}, "12.34");
  EXPECT_THAT(writer.Update(screen), testing::AllOf(HasSubstr("Amount:"), HasSubstr("12.34")));
  EXPECT_THAT(writer.Update(screen), IsEmpty());
  screen.Put({2, 1}, "99");
  const std::string bytes = writer.Update(screen);
  EXPECT_THAT(bytes, HasSubstr(std::string(kSecondRow)));
  EXPECT_THAT(bytes, HasSubstr("99"));
  EXPECT_THAT(bytes, Not(HasSubstr("34")));
}

TEST_F(ScreenWriting, WritesEverythingWhereItIsNotKnownWhatStandsThere) {
  screen.Put({0, 0}, "Amount:");
  writer.Update(screen);
  writer.Forget();
  EXPECT_THAT(writer.Update(screen), HasSubstr("Amount:"));
}

TEST_F(ScreenWriting, MovesTheCursorAlone) {
  writer.Update(screen);
  screen.Cursor(Point{2, 1});
  const std::string bytes = writer.Update(screen);
  EXPECT_THAT(bytes, HasSubstr(std::string(kSecondRow)));
  EXPECT_THAT(bytes, HasSubstr(xterm.showCursor));
  screen.Cursor(std::nullopt);
  EXPECT_EQ(writer.Update(screen), xterm.hideCursor);
}

TEST_F(ScreenWriting, LeavesTheLastPlaceAlone) {
  screen.Put({19, 2}, "x");
  EXPECT_THAT(writer.Update(screen), Not(HasSubstr("x")));
}

TEST_F(ScreenWriting, SendsNoControlCharacterOfATextAtAll) {
  writer.Update(screen);
  for (int byte = 0; byte < 256; ++byte) screen.Put({byte % 19, 1}, std::string(1, static_cast<char>(byte)));
  for (int byte = 0; byte < 256; ++byte) {
    const char32_t glyph = GlyphOf(static_cast<char>(byte));
    EXPECT_TRUE(glyph >= 0xA0 || (glyph >= 0x20 && glyph < 0x7F)) << byte;
    EXPECT_EQ(CharacterOf(glyph), static_cast<char>(byte)) << byte;
  }
}

TEST_F(ScreenWriting, SaysItInAsciiWhereATerminalKnowsNoMore) {
  ScreenWriter ascii(xterm, Charset::Ascii);
  screen.Put({0, 0}, "C\xF4t\xE9");
  screen.Box({.y = 1, .width = 4, .height = 2});
  const std::string bytes = ascii.Update(screen);
  EXPECT_THAT(bytes, HasSubstr("C?t?"));
  EXPECT_THAT(bytes, HasSubstr("+--+"));
  ScreenWriter latin(xterm, Charset::Latin1);
  EXPECT_THAT(latin.Update(screen), HasSubstr("C\xF4t\xE9"));
}

TEST(TerminalDescription, UsesNoColourWhereNoneIsWanted) {
  const TerminalDescription plain("xterm-256color", TerminalDescription::Colours::No);
  EXPECT_EQ(plain.Look({.ink = Ink::Alarm}), plain.Look({}));
  EXPECT_NE(TerminalDescription("xterm-256color").Look({.ink = Ink::Alarm}), plain.Look({}));
}

TEST(TerminalDescription, AsksForNothingThatTheConsoleOfTheSystemDoesNotKnow) {
  EXPECT_THAT(TerminalDescription("linux").enter, Not(HasSubstr("\x1B[>4;1m")));
  EXPECT_THAT(TerminalDescription("xterm-256color").enter, HasSubstr("\x1B[>4;1m"));
  EXPECT_THAT(TerminalDescription("xterm-256color").leave, HasSubstr("\x1B[?2004l"));
}

}  // namespace
}  // namespace fiscalon::terminal
