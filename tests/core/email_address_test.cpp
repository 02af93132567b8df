#include "core/email_address.h"

#include <gtest/gtest.h>

#include <chrono>
#include <random>
#include <regex>
#include <string>

namespace fiscalon {
namespace {

constexpr const char* kComplete = "Please enter a complete e-mail address with the form 'name@example.com'.";
constexpr const char* kValid = "Please enter a valid e-mail address with the form 'name@example.com'.";

/// The answer, a bar, and the message.
std::string Answer(std::string_view text, Required required = Required::No) {
  std::string message;
  const bool valid = IsValidEmail(text, message, required);
  return (valid ? "yes|" : "no|") + message;
}

TEST(IsValidEmail, AnEmptyTextPassesRequiredOrNot) {
  EXPECT_EQ(Answer(""), "yes|");
  EXPECT_EQ(Answer("", Required::Yes), "yes|");
  EXPECT_EQ(Answer("   ", Required::Yes), "yes|");
}

TEST(IsValidEmail, OneToFourCharactersAskForACompleteAddress) {
  for (const char* text : {"a", "a@b", "a@.c", " ab  "})
    EXPECT_EQ(Answer(text), std::string("no|") + kComplete) << text;
}

TEST(IsValidEmail, AnythingElseThatIsNoAddressAsksForAValidOne) {
  for (const char* text :
       {"abcde", "name@example", "@example.com", "name@.com", "na me@example.com", "name@exam_ple.com"})
    EXPECT_EQ(Answer(text), std::string("no|") + kValid) << text;
}

TEST(IsValidEmail, AWellFormedAddressPassesInEitherCase) {
  for (const char* text : {"name@example.com", "NAME@EXAMPLE.COM", "a@b.c", "first.last+tag@sub.example.co"})
    EXPECT_EQ(Answer(text), "yes|") << text;
}

TEST(IsValidEmail, TestsTheUntrimmedText) {
  EXPECT_EQ(Answer(" name@example.com"), std::string("no|") + kValid);
  EXPECT_EQ(Answer("name@example.com "), std::string("no|") + kValid);
}

TEST(IsValidEmail, LeavesTheMessageAloneWhereItPasses) {
  std::string message = "before";
  EXPECT_TRUE(IsValidEmail("name@example.com", message, Required::No));
  EXPECT_EQ(message, "before");
}

TEST(IsEmailAddress, TakesThePunctuationOfMailboxNames) {
  EXPECT_TRUE(IsEmailAddress("!#$%&'*+/=?^_`{|}~-@b.c"));
  for (const char c : std::string("\"(),:;<>[]\\ ")) EXPECT_FALSE(IsEmailAddress(std::string("a") + c + "@b.c")) << c;
}

TEST(IsEmailAddress, RefusesEmptyNamesAroundDots) {
  for (const char* text : {".a@b.c", "a.@b.c", "a..b@c.d", "a@b..c", "a@.b.c", "a@b.c."})
    EXPECT_FALSE(IsEmailAddress(text)) << text;
}

TEST(IsEmailAddress, TakesHyphensOnlyInsideDomainNames) {
  EXPECT_TRUE(IsEmailAddress("a@b--c.d-e"));
  EXPECT_FALSE(IsEmailAddress("a@-b.c"));
  EXPECT_FALSE(IsEmailAddress("a@b-.c"));
}

TEST(IsEmailAddress, RefusesASecondAtAnAccentAndALineEnd) {
  EXPECT_FALSE(IsEmailAddress("a@b@c.d"));
  EXPECT_FALSE(IsEmailAddress("h\xE9l\xE8ne@b.c"));
  EXPECT_FALSE(IsEmailAddress("a@b.c\n"));
  EXPECT_FALSE(IsEmailAddress(std::string("a\0@b.c", 6)));
}

TEST(IsEmailAddress, AgreesWithTheExpressionOnGeneratedTexts) {
  const std::regex expression(
      "^[a-z0-9!#$%&'*+/=?^_`{|}~-]+(?:\\.[a-z0-9!#$%&'*+/=?^_`{|}~-]+)*"
      "@(?:[a-z0-9](?:[a-z0-9-]*[a-z0-9])?\\.)+[a-z0-9](?:[a-z0-9-]*[a-z0-9])?$",
      std::regex::icase);
  // Short texts of few letters, and addresses with up to two letters changed.
  constexpr std::string_view kLetters = "aZ0..--@@_ ~";
  constexpr std::string_view kAddresses[] = {"a.b@c.d", "a@b-c.d", "~@a.b.c", "a@b.c"};
  std::mt19937 random(20260615);
  const auto letter = [&] { return kLetters[random() % kLetters.size()]; };
  int addresses = 0;
  for (int round = 0; round < 60000; ++round) {
    std::string text(random() % 11, ' ');
    for (char& c : text) c = letter();
    if (round % 2 == 0) {
      text = kAddresses[random() % std::size(kAddresses)];
      for (auto changes = random() % 3; changes > 0; --changes) text[random() % text.size()] = letter();
    }
    const bool expected = std::regex_match(text, expression);
    addresses += expected;
    ASSERT_EQ(IsEmailAddress(text), expected) << text;
  }
  EXPECT_GT(addresses, 10000);
  EXPECT_LT(addresses, 50000);
}

TEST(IsEmailAddress, AnswersAtOnceOnHostileText) {
  const std::string hostile = "a@" + std::string(60, 'a') + "-";
  const auto start = std::chrono::steady_clock::now();
  for (int round = 0; round < 1000; ++round) ASSERT_FALSE(IsEmailAddress(hostile));
  EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(1));
}

}  // namespace
}  // namespace fiscalon
