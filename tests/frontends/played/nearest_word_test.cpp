#include "frontends/played/nearest_word.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace fiscalon {
namespace {

std::string_view Nearest(std::string_view word, const std::vector<std::string_view>& offered) {
  return NearestWord(word, offered);
}

// Each is one letter apart from the word, and the other one two.
TEST(NearestWord, CountsLettersThatArePutInTakenOutAndReplaced) {
  EXPECT_EQ(Nearest("clos", {"clxy", "close"}), "close");
  EXPECT_EQ(Nearest("closee", {"cloxye", "close"}), "close");
  EXPECT_EQ(Nearest("clyse", {"clxye", "close"}), "close");
  EXPECT_EQ(Nearest("cose", {"cosyy", "close"}), "close");
  EXPECT_EQ(Nearest("cclose", {"cclyyse", "close"}), "close");
}

TEST(NearestWord, TakesTheFirstOfThoseThatAreAsNear) {
  EXPECT_EQ(Nearest("cat", {"cut", "cot"}), "cut");
}

TEST(NearestWord, PrefersTheSameFirstLetterAmongThoseThatAreAsNear) {
  EXPECT_EQ(Nearest("cat", {"bat", "cot"}), "cot");
}

TEST(NearestWord, TakesCapitalsForSmallLetters) {
  EXPECT_EQ(Nearest("CLOSE", {"cloth", "Close"}), "Close");
}

TEST(NearestWord, IsNoneWhereNoneIsOffered) {
  EXPECT_EQ(Nearest("close", {}), "");
}

}  // namespace
}  // namespace fiscalon
