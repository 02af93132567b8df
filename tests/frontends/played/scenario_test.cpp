#include "frontends/played/scenario.h"

#include <gmock/gmock.h>

#include <filesystem>

#include "tests/support/temporary_folder.h"

namespace fiscalon {
namespace {

using testing::ElementsAre;

/// What the reader says of a text that it refuses.
std::string Complaint(std::string_view text) {
  try {
    ParseScenario("s", text);
  } catch (const ScenarioError& error) {
    return error.what();
  }
  return "no complaint";
}

std::vector<std::string> Words(std::string_view line) {
  const Scenario scenario = ParseScenario("s", line);
  std::vector<std::string> words = {scenario.lines.at(0).verb};
  words.insert(words.end(), scenario.lines[0].arguments.begin(), scenario.lines[0].arguments.end());
  return words;
}

TEST(ParseScenario, LineIsAVerbAndItsArguments) {
  EXPECT_THAT(Words("host CompName Summit"), ElementsAre("host", "CompName", "Summit"));
  EXPECT_THAT(Words(" \t host \t CompName   Summit \t "), ElementsAre("host", "CompName", "Summit"));
  EXPECT_THAT(Words("host CompName \"Summit Levies\""), ElementsAre("host", "CompName", "Summit Levies"));
  EXPECT_THAT(Words("host CompName \"\""), ElementsAre("host", "CompName", ""));
  EXPECT_THAT(Words("\"host\" \"CompName\" x"), ElementsAre("host", "CompName", "x"));
}

TEST(ParseScenario, QuotesKnowFourEscapes) {
  EXPECT_THAT(Words(R"(type "a\"b\\c\td\ne")"), ElementsAre("type", "a\"b\\c\td\ne"));
  EXPECT_THAT(Words(R"(type a\tb)"), ElementsAre("type", R"(a\tb)")) << "no escapes outside quotes";
}

TEST(ParseScenario, CommentsBeginOutsideQuotes) {
  EXPECT_THAT(Words("type 5 # five"), ElementsAre("type", "5"));
  EXPECT_THAT(Words("type 5# five"), ElementsAre("type", "5"));
  EXPECT_THAT(Words("type \"5 # five\"# a text"), ElementsAre("type", "5 # five"));
}

TEST(ParseScenario, BlankLinesMeanNothingAndCount) {
  const Scenario scenario = ParseScenario("s", "\n# comment\n\n  \t\ntype 1\r\n\r\ntype 2");
  ASSERT_EQ(scenario.lines.size(), 2U);
  EXPECT_EQ(scenario.lines[0].number, 5);
  EXPECT_EQ(scenario.lines[1].number, 7);
  EXPECT_EQ(scenario.lines[1].arguments[0], "2");
}

TEST(ParseScenario, KeepsNameAndSource) {
  const Scenario scenario = ParseScenario("some/file", "  type \"x\"   # why\r\n");
  EXPECT_EQ(scenario.name, "some/file");
  EXPECT_EQ(scenario.lines.at(0).source, "  type \"x\"   # why");
}

TEST(ParseScenario, SkipsAByteOrderMark) {
  EXPECT_THAT(Words("\xEF\xBB\xBFtype 1"), ElementsAre("type", "1"));
}

TEST(ParseScenario, KeepsUtf8) {
  EXPECT_THAT(Words("type Côté€"), ElementsAre("type", "Côté€"));
}

TEST(ParseScenario, ComplainsOfBadQuotesWithTheirLine) {
  EXPECT_EQ(Complaint("type 1\ntype \"2\n"), "s:2: the closing quote is missing");
  EXPECT_EQ(Complaint("type \"a\\"), "s:1: a backslash in quotes must be followed by \", \\, t or n");
  EXPECT_EQ(Complaint("type \"a\\x\""), "s:1: a backslash in quotes must be followed by \", \\, t or n");
  EXPECT_EQ(Complaint("type \"a\"b"), "s:1: a closing quote must be followed by a blank");
}

TEST(ParseScenario, ComplainsOfAnEmptyScenario) {
  EXPECT_EQ(Complaint(""), "s:1: the scenario is empty");
  EXPECT_EQ(Complaint("# only a comment\n\n"), "s:1: the scenario is empty");
}

TEST(ParseScenario, ComplainsBeforeAnythingIsPlayed) {
  EXPECT_EQ(Complaint("show 15\nclose 0\n\nclos 0\n"), "s:4: \"clos\" is nothing that a scenario can say");
}

TEST(ReadScenario, ReadsAFile) {
  const TemporaryFolder folder;
  const std::string path = folder.Write("a.scenario", "type 1\ntype 2\n");
  const Scenario scenario = ReadScenario(path);
  EXPECT_EQ(scenario.name, path);
  EXPECT_EQ(scenario.lines.size(), 2U);
}

void ExpectUnreadable(const std::string& path) {
  try {
    ReadScenario(path);
    ADD_FAILURE() << path << " was read";
  } catch (const ScenarioError& error) {
    EXPECT_EQ(error.what(), path + ":0: the file can't be read; give the path of a scenario, a text file");
  }
}

TEST(ReadScenario, ComplainsOfWhatIsNoFile) {
  const TemporaryFolder folder;
  ExpectUnreadable(folder.Path("missing.scenario"));
  ExpectUnreadable(folder.Path());
}

TEST(ReadScenario, ComplainsOfAnEmptyFile) {
  const TemporaryFolder folder;
  const std::string path = folder.Write("a.scenario", "");
  EXPECT_THROW(ReadScenario(path), ScenarioError);
}

TEST(QuotedArgument, QuotesWhatNeedsIt) {
  const std::pair<const char*, const char*> rows[] = {
      {"plain", "plain"},    {"", "\"\""},           {"two words", "\"two words\""}, {"a\tb", "\"a\\tb\""},
      {"a\nb", "\"a\\nb\""}, {"a\"b", "\"a\\\"b\""}, {"a\\b", "\"a\\\\b\""},         {"a#b", "\"a#b\""}};
  for (const auto& [given, quoted] : rows) EXPECT_EQ(QuotedArgument(given), quoted);
}

TEST(QuotedArgument, IsReadBackAsItWas) {
  for (const char* text : {"plain", "", " ", "\"", "\\", "\\n", "#", "a\tb\nc", "\"quoted\" # \\ text"})
    EXPECT_EQ(ParseScenario("s", "type " + QuotedArgument(text)).lines.at(0).arguments.at(0), text);
}

}  // namespace
}  // namespace fiscalon
