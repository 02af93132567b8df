#include <gmock/gmock.h>

#include <regex>
#include <set>

#include "tests/tools/fiscalon/command_line.h"

namespace fiscalon {
namespace {

using testing::HasSubstr;
using testing::IsEmpty;

/// Man pages and completion beside the program that they describe.
class Documents : public CommandLine {
 protected:
  static constexpr std::string_view kMan = FISCALON_SOURCE_DIR "/man/";
  static constexpr std::string_view kCompletion = FISCALON_SOURCE_DIR "/completions/fiscalon";

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

  /// What completion offers behind these words.
  std::set<std::string> Offered(const std::string& words) const {
    Write("complete", "source '" + std::string(kCompletion) + "'\nCOMP_WORDS=(" + words +
                          ")\nCOMP_CWORD=$((${#COMP_WORDS[@]} - 1))\n_fiscalon\n"
                          "printf '%s\\n' \"${COMPREPLY[@]}\"\n");
    std::istringstream offered(Run("PATH=$(dirname '" FISCALON_PROGRAM "'):$PATH bash complete").out);
    std::set<std::string> all;
    for (std::string each; std::getline(offered, each);)
      if (!each.empty())
        all.insert(each);
    return all;
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

TEST_F(Documents, ManPagesAreWellFormed) {
  if (Run("command -v groff").status != 0)
    GTEST_SKIP() << "groff is not installed";
  const Outcome seen = Run("for page in '" + std::string(kMan) + "'*.1; do groff -man -ww -z \"$page\"; done");
  EXPECT_EQ(seen.status, 0);
  EXPECT_THAT(seen.err, IsEmpty());
}

TEST_F(Documents, ManPagesBearTheVersion) {
  const std::string version = Run("fiscalon --version").out;
  for (const char* page :
       {"fiscalon", "fiscalon-screens", "fiscalon-collect", "fiscalon-play", "fiscalon-show", "fiscalon-picture"})
    EXPECT_THAT(ManPage(page), HasSubstr("\"" + version.substr(0, version.size() - 1) + "\"")) << page;
}

TEST_F(Documents, CompletionOffersEveryCommand) {
  EXPECT_EQ(Offered("fiscalon ''"), Commands());
}

TEST_F(Documents, CompletionOffersEveryOption) {
  for (const std::string& command : Commands()) {
    std::set<std::string> options = OptionsOf(command);
    options.insert({"--today", "--locale"});
    EXPECT_EQ(Offered("fiscalon " + command + " --"), options) << command;
  }
  EXPECT_EQ(Offered("fiscalon --"), OptionsOf(""));
}

TEST_F(Documents, CompletionOffersWhatAnOptionTakes) {
  EXPECT_EQ(Offered("fiscalon --locale en"), (std::set<std::string>{"en-CA", "en-US"}));
  EXPECT_EQ(Offered("fiscalon play --toolkit q"), (std::set<std::string>{"qt"}));
  EXPECT_EQ(Offered("fiscalon show --screen 2"), (std::set<std::string>{"20", "25", "26", "27", "28"}));
}

TEST_F(Documents, CompletionOffersScreensWithAForm) {
  for (const char* command : {"collect", "picture"})
    EXPECT_THAT(Offered(std::string("fiscalon ") + command + " ''"), testing::IsSupersetOf({"03", "15", "20"}));
}

TEST_F(Documents, CompletionOffersScenariosToPlay) {
  Write("a.scenario", "");
  Write("a.txt", "");
  EXPECT_EQ(Offered("fiscalon play a"), (std::set<std::string>{"a.scenario"}));
}

}  // namespace
}  // namespace fiscalon
