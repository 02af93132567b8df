#include "core/platform/windows/wide_text.h"

#include <gtest/gtest.h>

namespace fiscalon {
namespace {

using namespace std::string_literals;

TEST(WideText, GoesThereAndBackForEveryByte) {
  for (int byte = 0; byte < 256; ++byte) {
    const std::string text(1, static_cast<char>(byte));
    EXPECT_EQ(FromWide(ToWide(text)), text) << byte;
  }
  EXPECT_EQ(ToWide("\x80 \xE9"), L"\x20AC \xE9");
  EXPECT_EQ(ToWide("a\0b"s), L"a\0b"s);
  EXPECT_EQ(ToWide(""), L"");
}

TEST(WideText, HasAQuestionMarkForWhatTheCodePageLacks) {
  EXPECT_EQ(FromWide(L"\x03A9"), "?");
  // One character of two units, and half of one.
  EXPECT_EQ(FromWide(L"a\xD83D\xDE00z"), "a?z");
  EXPECT_EQ(FromWide(L"a\xD83Dz"), "a?z");
}

TEST(WideText, OfUtf8HasEveryCharacter) {
  EXPECT_EQ(Utf8ToWide("\xCE\xA9"), L"\x03A9");
  EXPECT_EQ(WideToUtf8(L"\x03A9"), "\xCE\xA9");
  EXPECT_EQ(WideToUtf8(L"\xD83D\xDE00"), "\xF0\x9F\x98\x80");
  EXPECT_EQ(WideToUtf8(L""), "");
}

}  // namespace
}  // namespace fiscalon
