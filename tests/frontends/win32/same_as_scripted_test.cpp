#include <gtest/gtest.h>

#include <cstdlib>

#include "frontends/win32/played_win32_toolkit.h"
#include "tests/support/told_boxes.h"
#include "tests/support/walk.h"

namespace fiscalon::win32 {
namespace {

/// Wine 8 reads beyond its tables where a native field holds some mixtures of letters, whoever put them there.
const WalkSettings kSettings = {.texts = Texts::OfPeople};

bool IsLong() {
  return std::getenv("FISCALON_LONG") != nullptr;
}

class Win32FrontEndOnEachForm : public testing::TestWithParam<std::string> {};

TEST_P(Win32FrontEndOnEachForm, DoesWhatTheScriptedOneDoes) {
  PlayedWin32Toolkit played;
  WalkOverForm(played, GetParam(), IsLong() ? 100 : 2, kSettings);
}

INSTANTIATE_TEST_SUITE_P(AllForms, Win32FrontEndOnEachForm, testing::ValuesIn(AllForms()),
                         [](const auto& form) { return form.param; });

TEST(Win32FrontEnd, DoesWhatTheScriptedOneDoesWithEveryKindOfControl) {
  PlayedWin32Toolkit played;
  WalkOverEveryKind(played, IsLong() ? 300 : 40, kSettings);
}

TEST(Win32FrontEnd, TellsBoxesWithTheirOwnTitles) {
  PlayedWin32Toolkit played;
  ExpectBoxesToldWithTheirOwnTitles(played);
}

}  // namespace
}  // namespace fiscalon::win32
