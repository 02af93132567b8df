#include <gmock/gmock.h>

#include <filesystem>
#include <regex>
#include <set>

#include "core/launch.h"
#include "tests/tools/fiscalon/command_line.h"

namespace fiscalon {
namespace {

using testing::HasSubstr;
using testing::IsEmpty;

/// Man pages beside the program that they describe.
class Documents : public CommandLine {
 protected:
  static constexpr std::string_view kMan = FISCALON_SOURCE_DIR "/man/";

  std::set<std::string> Commands() const {
    std::set<std::string> commands;
    std::istringstream listed(Run("fiscalon --help | sed -n '/^Subcommands:/,/^$/p' | awk 'NR > 1 { print $1 }'").out);
    for (std::string command; listed >> command;) commands.insert(command);
    return commands;
  }

  std::set<std::string> OptionsOf(const std::string& command) const {
    const std::string help = Run("fiscalon " + command + " --help | sed -n '/^Options:/,/^$/p'").out;
    const std::regex option("(^|\\n) +(-h,)?(--[a-z-]+)");
    std::set<std::string> options;
    for (std::sregex_iterator each(help.begin(), help.end(), option), end; each != end; ++each)
      options.insert((*each)[3]);
    return options;
  }

  std::set<std::string> JudgedScreens() const {
    std::set<std::string> codes;
    std::istringstream listed(Run("fiscalon screens --judged | awk 'NR > 1 { print $1 }'").out);
    for (std::string code; listed >> code;) codes.insert(code);
    EXPECT_THAT(codes, testing::Contains("20"));
    return codes;
  }

  std::string ManPage(const std::string& name) const {
    return Run("sed 's/\\\\-/-/g' '" + std::string(kMan) + name + ".1'").out;
  }
};

TEST_F(Documents, ManPageOfTheProgramNamesCommandsAndOptions) {
  const std::string page = ManPage("fiscalon");
  const std::set<std::string> commands = Commands();
  EXPECT_THAT(commands, testing::IsSupersetOf({"screens", "play", "show"}));
  for (const std::string& command : commands) EXPECT_THAT(page, HasSubstr(".BR fiscalon-" + command + " (1)"));
  for (const std::string& option : OptionsOf("")) EXPECT_THAT(page, HasSubstr(option));
}

TEST_F(Documents, ManPagesOfCommandsNameTheirOptions) {
  for (const std::string& command : Commands()) {
    const std::string page = ManPage("fiscalon-" + command);
    const std::set<std::string> options = OptionsOf(command);
    EXPECT_THAT(options, testing::Contains("--help")) << command;
    for (const std::string& option : options) EXPECT_THAT(page, HasSubstr(option)) << command;
  }
}

TEST_F(Documents, HelpAndManPagesNameTheScreensThatAreJudged) {
  for (const std::string command : {"validate", "generate"}) {
    const std::string help = Run("fiscalon " + command + " --help | tr -s ' \\n' ' '").out;
    const size_t from = help.find("screen: ");
    ASSERT_NE(from, std::string::npos) << command;
    const std::string named = help.substr(from, help.find(" --", from) - from);
    for (const std::string& code : JudgedScreens()) EXPECT_THAT(named, HasSubstr(code)) << command;
    EXPECT_THAT(ManPage("fiscalon-" + command), HasSubstr(named)) << command;
  }
}

TEST_F(Documents, HelpAndManPagesTellOfAFolderThatDoesNotAnswer) {
  for (const std::string command : {"", "show", "validate"}) {
    const std::string help = Run("fiscalon " + command + " --help | tr -s ' \\n' ' '").out;
    const size_t from = help.find("Exit status: ");
    ASSERT_NE(from, std::string::npos) << command;
    EXPECT_THAT(help.substr(from), HasSubstr("75 ")) << command;
    EXPECT_THAT(ManPage(command.empty() ? "fiscalon" : "fiscalon-" + command), HasSubstr("\n.B 75\n")) << command;
  }
}

TEST_F(Documents, ManPagesAreWellFormed) {
  if (Run("command -v groff").status != 0)
    GTEST_SKIP() << "groff is not installed";
  const Outcome seen = Run("for page in '" + std::string(kMan) + "'*.1; do groff -man -ww -z \"$page\"; done");
  EXPECT_EQ(seen.status, 0);
  EXPECT_THAT(seen.err, IsEmpty());
}

TEST_F(Documents, ManPagesBearTheVersion) {
  const std::string version = Run("fiscalon --version").out;
  std::size_t pages = 0;
  for (const auto& file : std::filesystem::directory_iterator(kMan)) {
    const std::string page = file.path().stem().string();
    EXPECT_THAT(ManPage(page), HasSubstr("\"" + version.substr(0, version.size() - 1) + "\"")) << page;
    ++pages;
  }
  EXPECT_GT(pages, Commands().size());
}

/// A shell, and a script that prints what its completion offers behind the words that stand for @.
struct Shell {
  const char* name;
  const char* script;
};

constexpr Shell kShells[] = {
    {"bash", "source " FISCALON_SOURCE_DIR "/completions/fiscalon\n"
             "COMP_WORDS=(@)\nCOMP_CWORD=$((${#COMP_WORDS[@]} - 1))\n_fiscalon\n"
             "printf '%s\\n' \"${COMPREPLY[@]}\"\n"},
    // Beside the line editor zsh's own routines are missing: these stand in for them.
    {"zsh",
     "setopt null_glob\nwords=(@)\nCURRENT=$#words\n"
     "Offer() { print -rl -- ${(M)@:#$words[CURRENT]*} }\n"
     "compadd() { shift; Offer $@ }\n_describe() { Offer ${(P)2%%:*} }\n"
     "_files() { if [[ $1 == -g ]]; then Offer ${~2}; else Offer *; fi }\n"
     "source " FISCALON_SOURCE_DIR "/completions/_fiscalon\n"},
    {"fish", "source " FISCALON_SOURCE_DIR "/completions/fiscalon.fish\n"
             "complete -C (string replace \"''\" '' -- \"@\") | string split -f 1 \\t\n"},
};

class Completion : public Documents, public testing::WithParamInterface<Shell> {
 protected:
  std::set<std::string> Offered(const std::string& words) const {
    std::string script = GetParam().script;
    script.replace(script.find('@'), 1, words);
    Write("complete", script);
    const Outcome outcome = Run("PATH=$(dirname '" FISCALON_PROGRAM "'):$PATH " + std::string(GetParam().name) +
                                (GetParam().name == std::string("bash") ? " --norc" : "") + " ./complete");
    EXPECT_THAT(outcome.err, IsEmpty()) << words;
    std::istringstream offered(outcome.out);
    std::set<std::string> all;
    for (std::string each; std::getline(offered, each);)
      if (!each.empty())
        all.insert(each);
    return all;
  }
};

TEST_P(Completion, OffersEveryCommand) {
  EXPECT_EQ(Offered("fiscalon ''"), Commands());
}

TEST_P(Completion, OffersEveryOption) {
  for (const std::string& command : Commands()) {
    std::set<std::string> options = OptionsOf(command);
    options.insert({"--today", "--locale", "--language"});
    EXPECT_EQ(Offered("fiscalon " + command + " --"), options) << command;
  }
  EXPECT_EQ(Offered("fiscalon --"), OptionsOf(""));
}

TEST_P(Completion, OffersWhatAnOptionTakes) {
  EXPECT_EQ(Offered("fiscalon --locale en"), (std::set<std::string>{"en-CA", "en-US"}));
  EXPECT_EQ(Offered("fiscalon --language f"), (std::set<std::string>{"fr"}));
  EXPECT_EQ(Offered("fiscalon play --toolkit q"), (std::set<std::string>{"qt"}));
  std::set<std::string> screens;
  for (const LaunchRow& row : LaunchTable())
    if (row.code.front() == '2')
      screens.emplace(row.code);
  EXPECT_EQ(Offered("fiscalon show --screen 2"), screens);
  EXPECT_EQ(Offered("fiscalon collect 15 --write-file ''"), (std::set<std::string>{"False", "True"}));
}

TEST_P(Completion, OffersScreensThatAreJudgedWhereNoOthersGo) {
  for (const char* command : {"validate", "generate"})
    EXPECT_EQ(Offered(std::string("fiscalon ") + command + " --screen ''"), JudgedScreens()) << command;
}

TEST_P(Completion, OffersEveryScreen) {
  std::set<std::string> codes;
  std::istringstream screens(Run("fiscalon screens | tail -n +2 | cut -c 1-2").out);
  for (std::string code; screens >> code;) codes.insert(code);
  for (const char* words : {"collect", "picture", "show --screen"})
    EXPECT_EQ(Offered(std::string("fiscalon ") + words + " ''"), codes) << words;
}

TEST_P(Completion, OffersScenariosToPlay) {
  Write("a.scenario", "");
  Write("a.txt", "");
  EXPECT_EQ(Offered("fiscalon play a"), (std::set<std::string>{"a.scenario"}));
}

TEST_P(Completion, OffersFilesWhereTheyBelong) {
  Write("a.csv", "");
  const std::set<std::string> file = {"a.csv"};
  EXPECT_EQ(Offered("fiscalon show a"), file);
  EXPECT_EQ(Offered("fiscalon validate --payments a"), file);
  EXPECT_EQ(Offered("fiscalon validate --report a"), file);
  EXPECT_EQ(Offered("fiscalon collect --json a"), file);
  for (const char* number : {"generate --payments a", "validate --amount a", "--today a", "play --only a"})
    EXPECT_THAT(Offered("fiscalon " + std::string(number)), IsEmpty()) << number;
}

INSTANTIATE_TEST_SUITE_P(Shells, Completion, testing::ValuesIn(kShells),
                         [](const auto& row) { return std::string(row.param.name); });

}  // namespace
}  // namespace fiscalon
