#include "frontends/played/driven_toolkit.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "frontends/played/seen_things.h"
#include "frontends/scripted/scripted_toolkit.h"

namespace fiscalon {
namespace {

/// Writes down what it hears, one after the other.
class Listener : public ActWatcher {
 public:
  void BoxAnswered(const BoxRequest& box, MessageAnswer answer) override {
    heard.push_back(box.text + (answer == MessageAnswer::No ? " No" : " another answer"));
  }
  void Beeped() override { heard.emplace_back("a beep"); }
  void HelpOpened(std::string_view file, int32_t context) override {
    heard.push_back(std::string(file) + " " + std::to_string(context));
  }

  std::vector<std::string> heard;
};

TEST(DrivenToolkit, TellsItsWatcherOfBoxesBeepsAndHelp) {
  ScriptedToolkit toolkit;
  toolkit.onMessage = [](const BoxRequest&) { return MessageAnswer::No; };
  const auto all = [&] {
    toolkit.ShowMessage({.text = "Sure?", .buttons = MessageButtons::YesNo});
    toolkit.Beep();
    toolkit.OpenHelp("help.chm", 7);
  };
  all();
  Listener listener;
  toolkit.Watch(&listener);
  all();
  toolkit.Watch(nullptr);
  all();
  EXPECT_EQ(listener.heard, (std::vector<std::string>{"Sure? No", "a beep", "help.chm 7"}));
}

TEST(WithPlainLineEnds, MakesOneOfEveryKind) {
  EXPECT_EQ(WithPlainLineEnds("a\r\nb\rc\nd"), "a\nb\nc\nd");
  EXPECT_EQ(WithPlainLineEnds("a\r\n"), "a\n");
  EXPECT_EQ(WithPlainLineEnds("a\r"), "a\n");
  EXPECT_EQ(WithPlainLineEnds("\r\na"), "\na");
  EXPECT_EQ(WithPlainLineEnds("\r\r\n"), "\n\n");
}

}  // namespace
}  // namespace fiscalon
