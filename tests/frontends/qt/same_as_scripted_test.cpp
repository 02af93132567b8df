#include <gtest/gtest.h>

#include <cstdlib>

#include "frontends/qt/form_dialog.h"
#include "frontends/qt/played_qt_toolkit.h"
#include "tests/support/told_boxes.h"
#include "tests/support/walk.h"

namespace fiscalon::qt {
namespace {

bool IsLong() {
  return std::getenv("FISCALON_LONG") != nullptr;
}

class QtFrontEndOnEachForm : public testing::TestWithParam<std::string> {};

TEST_P(QtFrontEndOnEachForm, DoesWhatTheScriptedOneDoes) {
  PlayedQtToolkit played;
  // Nobody watches, so nothing need be painted.
  WalkOverForm(played, GetParam(), IsLong() ? 5000 : 300,
               {.begins = [&] { played.Dialog()->setUpdatesEnabled(false); }});
}

INSTANTIATE_TEST_SUITE_P(AllForms, QtFrontEndOnEachForm, testing::ValuesIn(AllForms()),
                         [](const auto& form) { return form.param; });

TEST(QtFrontEnd, DoesWhatTheScriptedOneDoesWithEveryKindOfControl) {
  PlayedQtToolkit played;
  WalkOverEveryKind(played, IsLong() ? 5000 : 100);
}

TEST(QtFrontEnd, TellsBoxesWithTheirOwnTitles) {
  PlayedQtToolkit played;
  ExpectBoxesToldWithTheirOwnTitles(played);
}

}  // namespace
}  // namespace fiscalon::qt
