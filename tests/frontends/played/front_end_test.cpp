#include "frontends/played/front_end.h"

#include <gtest/gtest.h>

namespace fiscalon {
namespace {

std::unique_ptr<DrivenToolkit> NoToolkit() {
  return nullptr;
}

std::unique_ptr<Toolkit> NoToolkitFor(ActWatcher* /*watcher*/) {
  return nullptr;
}

void Go(char** /*arguments*/) {}

TEST(FrontEnd, CanBePlayedHereOrInAnotherProgram) {
  EXPECT_TRUE((FrontEnd{.name = "scripted", .played = NoToolkit}.CanBePlayed()));
  EXPECT_TRUE((FrontEnd{.name = "qt", .runsIn = Go}.CanBePlayed()));
  EXPECT_FALSE((FrontEnd{.name = "shown alone", .shown = NoToolkitFor}.CanBePlayed()));
  EXPECT_FALSE((FrontEnd{.played = NoToolkit}.CanBePlayed())) << "nobody could name it";
}

TEST(PictureLook, IsLightAndOfAUsualScreenUnlessItSaysOtherwise) {
  const PictureLook look;
  EXPECT_EQ(look.theme, PictureLook::Theme::Light);
  EXPECT_EQ(look.format, PictureLook::Format::Png);
  EXPECT_EQ(look.scale, 1);
}

TEST(FrontEndTable, KeepsItsRowsInTheirOrder) {
  constexpr auto kRows = FrontEndTable({{.name = "b", .played = NoToolkit}, {.name = "a", .runsIn = Go}});
  ASSERT_EQ(kRows.size(), 2U);
  EXPECT_EQ(kRows[0].name, "b");
  EXPECT_EQ(kRows[1].name, "a");
}

}  // namespace
}  // namespace fiscalon
