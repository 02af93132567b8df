#include "frontends/played/scenario.h"

#include <gmock/gmock.h>

#include <filesystem>

#include "tests/frontends/played/complaint.h"
#include "tests/support/temporary_folder.h"

namespace fiscalon {
namespace {

using testing::ElementsAre;

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
  EXPECT_THAT(Words("expect  title \t x"), ElementsAre("expect title", "x"));
  EXPECT_THAT(Words("expect beep"), ElementsAre("expect beep"));
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

TEST(ParseScenario, KeepsFileAndSource) {
  const Scenario scenario = ParseScenario("some/file", "  type \"x\"   # why\r\n");
  EXPECT_EQ(scenario.file, "some/file");
  EXPECT_EQ(scenario.name, "");
  EXPECT_EQ(scenario.Title(), "some/file");
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
  EXPECT_EQ(Complaint("show 15\nclose 0\n\nclos 0\n"),
            "s:4: \"clos\" is nothing that a scenario can say; did you mean \"close\"?");
}

// Several scenarios in one file.

std::vector<int> LineNumbers(const Scenario& scenario) {
  std::vector<int> numbers;
  for (const ScenarioLine& line : scenario.lines) numbers.push_back(line.number);
  return numbers;
}

TEST(ParseScenarios, EachBeginsWithWhatStandsAheadOfThemAll) {
  const std::vector<Scenario> scenarios = ParseScenarios("f",
                                                         "# all\nhost CompName x\nshow 15\n\nscenario \"the first "
                                                         "one\"\n  close 0\nscenario second\n  type 1\n  close 1\n");
  ASSERT_EQ(scenarios.size(), 2U);
  EXPECT_EQ(scenarios[0].Title(), "f: the first one");
  EXPECT_THAT(LineNumbers(scenarios[0]), ElementsAre(2, 3, 6));
  EXPECT_EQ(scenarios[1].Title(), "f: second");
  EXPECT_THAT(LineNumbers(scenarios[1]), ElementsAre(2, 3, 8, 9));
}

TEST(ParseScenarios, NothingNeedsToStandAhead) {
  const std::vector<Scenario> scenarios = ParseScenarios("f", "scenario a\ntype 1\nscenario b\ntype 2\n");
  ASSERT_EQ(scenarios.size(), 2U);
  EXPECT_THAT(LineNumbers(scenarios[0]), ElementsAre(2));
  EXPECT_THAT(LineNumbers(scenarios[1]), ElementsAre(4));
}

TEST(ParseScenarios, FileWithoutANameIsOne) {
  const std::vector<Scenario> scenarios = ParseScenarios("f", "type 1\ntype 2\n");
  ASSERT_EQ(scenarios.size(), 1U);
  EXPECT_EQ(scenarios[0].Title(), "f");
}

TEST(ParseScenarios, EachKnowsItsPartOfTheFile) {
  const std::vector<Scenario> scenarios =
      ParseScenarios("f", "host CompName x\n\nscenario a\n# why\ntype 1\n\nscenario b\ntype 2\n");
  ASSERT_EQ(scenarios.size(), 2U);
  for (const Scenario& scenario : scenarios) {
    EXPECT_EQ(scenario.ahead.from, 1);
    EXPECT_EQ(scenario.ahead.to, 3);
  }
  EXPECT_EQ(scenarios[0].own.from, 3);
  EXPECT_EQ(scenarios[0].own.to, 7);
  EXPECT_EQ(scenarios[1].own.from, 7);
  EXPECT_GT(scenarios[1].own.to, 8);
}

TEST(ParseScenarios, NameIsOneArgumentOfOneLine) {
  const std::string count = "s:1: \"scenario\" takes 1 argument, NAME; here are ";
  EXPECT_EQ(Complaint("scenario\ntype 1\n"), count + "0");
  EXPECT_EQ(Complaint("scenario two words\ntype 1\n"), count + "2");
  EXPECT_EQ(Complaint("scenario \"\"\ntype 1\n"), "s:1: \"scenario\": expected a name of one line, not \"\"");
  EXPECT_EQ(Complaint("scenario \"a\\nb\"\ntype 1\n"), "s:1: \"scenario\": expected a name of one line, not \"a\nb\"");
}

TEST(ParseScenarios, NamesOfAFileDiffer) {
  EXPECT_EQ(Complaint("scenario a\ntype 1\nscenario b\ntype 1\n\nscenario a\ntype 2\n"),
            "s:6: line 1 has the name \"a\" already; each scenario of a file needs its own");
}

TEST(ParseScenarios, EachSaysSomethingOfItsOwn) {
  EXPECT_EQ(Complaint("type 1\nscenario a\n# nothing\nscenario b\ntype 1\n"), "s:2: the scenario \"a\" says nothing");
  EXPECT_EQ(Complaint("type 1\nscenario a\ntype 1\nscenario b\n"), "s:4: the scenario \"b\" says nothing");
}

TEST(ParseScenario, WantsOneAlone) {
  EXPECT_EQ(ParseScenario("s", "type 1\nscenario a\ntype 2\n").Title(), "s: a");
  EXPECT_THROW(
      {
        try {
          ParseScenario("s", "scenario a\ntype 1\nscenario \"b c\"\ntype 2\n");
        } catch (const ScenarioError& error) {
          EXPECT_STREQ(error.what(), "s:3: one scenario is wanted, and here begins a second one, \"b c\"");
          throw;
        }
      },
      ScenarioError);
}

TEST(ReadScenarios, ReadsAFile) {
  const TemporaryFolder folder;
  const std::string path = folder.Write("a.scenario", "type 1\ntype 2\n");
  const std::vector<Scenario> scenarios = ReadScenarios(path);
  ASSERT_EQ(scenarios.size(), 1U);
  EXPECT_EQ(scenarios[0].file, path);
  EXPECT_EQ(scenarios[0].lines.size(), 2U);
}

void ExpectUnreadable(const std::string& path) {
  try {
    ReadScenarios(path);
    ADD_FAILURE() << path << " was read";
  } catch (const ScenarioError& error) {
    EXPECT_EQ(error.what(), path + ":0: the file can't be read; give the path of a scenario, a text file");
  }
}

TEST(ReadScenarios, ComplainsOfWhatIsNoFile) {
  const TemporaryFolder folder;
  ExpectUnreadable(folder.Path("missing.scenario"));
  ExpectUnreadable(folder.Path());
}

TEST(ReadScenarios, ComplainsOfAnEmptyFile) {
  const TemporaryFolder folder;
  const std::string path = folder.Write("a.scenario", "");
  EXPECT_THROW(ReadScenarios(path), ScenarioError);
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
