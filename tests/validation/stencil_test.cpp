#include "validation/stencil.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>

namespace fiscalon {
namespace {

/// Sixteen characters of which some are known, sixteen that are free, and nine more.
constexpr auto kPattern = [] {
  Stencil<41> stencil;
  stencil.Put(0, "PC4");
  stencil.Put(3, "00", "99");
  stencil.Put(36, "a", "c");
  stencil.Put(40, "\n");
  return stencil;
}();

constexpr std::string_view kFitting = "PC407 a text that holds no controls b...\n";
static_assert(kFitting.size() == 41);

/// The lowest and the highest character that may stand there.
std::pair<int, int> LimitsAt(size_t at) {
  if (at < 3)
    return {kFitting[at], kFitting[at]};
  if (at < 5)
    return {'0', '9'};
  if (at == 36)
    return {'a', 'c'};
  if (at == 40)
    return {'\n', '\n'};
  return {' ', 0xFF};
}

TEST(Stencil, TellsBetweenWhichCharactersEachLies) {
  EXPECT_EQ(kPattern.Length(), 41u);
  for (size_t at = 0; at < 41; ++at) {
    EXPECT_EQ(*kPattern.Lowest(at), LimitsAt(at).first) << at;
    EXPECT_EQ(*kPattern.Highest(at), LimitsAt(at).second) << at;
  }
}

TEST(Stencil, FitsATextWhoseEveryCharacterLiesThere) {
  ASSERT_TRUE(Fits<kPattern>(kFitting.data()));
  for (size_t at = 0; at < kFitting.size(); ++at) {
    std::string text(kFitting);
    for (int byte = 0; byte < 256; ++byte) {
      text[at] = static_cast<char>(byte);
      EXPECT_EQ(Fits<kPattern>(text.data()), byte >= LimitsAt(at).first && byte <= LimitsAt(at).second)
          << at << " " << byte;
    }
  }
}

TEST(Stencil, LooksAtEachOfManyCharactersWhateverStandsBesideThem) {
  // Two characters that are wrong, each in another way, do not make up for each other.
  for (size_t at = 0; at + 1 < kFitting.size(); ++at) {
    std::string text(kFitting);
    text[at] = '\x1F';
    text[at + 1] = '\0';
    EXPECT_FALSE(Fits<kPattern>(text.data())) << at;
  }
}

constexpr Stencil<16> kFree;

TEST(Stencil, OfNothingFitsAnyTextWithoutControlCharacters) {
  EXPECT_TRUE(Fits<kFree>("\xFF\x80 ~0123456789ab"));
  EXPECT_TRUE(Fits<kFree>("                "));
  for (size_t at = 0; at < 16; ++at) {
    std::string text(16, ' ');
    text[at] = '\x1F';
    EXPECT_FALSE(Fits<kFree>(text.data())) << at;
  }
}

}  // namespace
}  // namespace fiscalon
