#include <gtest/gtest.h>

#include <cstdlib>

#include "frontends/terminal/played_terminal_toolkit.h"
#include "tests/support/told_boxes.h"
#include "tests/support/walk.h"

namespace fiscalon::terminal {
namespace {

/// Terminals keep control characters out of what is pasted.
const WalkSettings kSettings = {.texts = Texts::OfPeople};

bool IsLong() {
  return std::getenv("FISCALON_LONG") != nullptr;
}

class TerminalFrontEndOnEachForm : public testing::TestWithParam<std::string> {};

TEST_P(TerminalFrontEndOnEachForm, DoesWhatTheScriptedOneDoes) {
  PlayedTerminalToolkit played;
  WalkOverForm(played, GetParam(), IsLong() ? 1000 : 12, kSettings);
}

INSTANTIATE_TEST_SUITE_P(AllForms, TerminalFrontEndOnEachForm, testing::ValuesIn(AllForms()),
                         [](const auto& form) { return form.param; });

TEST(TerminalFrontEnd, DoesWhatTheScriptedOneDoesWithEveryKindOfControl) {
  PlayedTerminalToolkit played;
  WalkOverEveryKind(played, IsLong() ? 1000 : 12, kSettings);
}

TEST(TerminalFrontEnd, TellsBoxesWithTheirOwnTitles) {
  PlayedTerminalToolkit played;
  ExpectBoxesToldWithTheirOwnTitles(played);
}

}  // namespace
}  // namespace fiscalon::terminal
