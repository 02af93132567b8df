#include <gmock/gmock.h>

#include <QImage>

#include "tests/tools/fiscalon/command_line.h"

namespace fiscalon {
namespace {

using testing::EndsWith;
using testing::IsEmpty;

class PictureCommand : public CommandLine {
 protected:
  QImage Picture(const std::string& arguments) const {
    const Outcome seen =
        Run("unset DISPLAY WAYLAND_DISPLAY QT_QPA_PLATFORM && fiscalon picture --out picture.png " + arguments);
    EXPECT_EQ(seen.status, 0) << seen.err;
    EXPECT_THAT(seen.out, IsEmpty());
    EXPECT_THAT(seen.err, IsEmpty());
    return QImage(QString::fromStdString(Folder() + "/picture.png"), "PNG");
  }

  /// The colour of the dialog: there is nothing but it at the left edge, half way down.
  static QColor Background(const QImage& picture) { return picture.pixelColor(4, picture.height() / 2); }

  /// Fills screen "15" before it is accepted.
  void WriteScenario(const std::string& month) const {
    Write("fill.scenario", "today 2026-06-15\nhost PaidAmount 12345\nshow 15\ntype " + month +
                               "\ntype 12345\nclick cmdOK\nexpect result True\n");
  }
};

TEST_F(PictureCommand, NeedsNoDisplayAndNoScenario) {
  const QImage picture = Picture("15");
  EXPECT_GT(picture.width(), 200);
  EXPECT_GT(picture.height(), 120);
}

TEST_F(PictureCommand, IsTheSameEachTime) {
  EXPECT_EQ(Picture("20"), Picture("20"));
}

TEST_F(PictureCommand, ScalesPixelsWithoutChangingTheDialog) {
  const QImage usual = Picture("15"), large = Picture("15 --scale 2");
  EXPECT_EQ(large.size(), usual.size() * 2);
}

TEST_F(PictureCommand, IsLightOrDark) {
  EXPECT_GT(Background(Picture("15")).lightness(), 200);
  EXPECT_LT(Background(Picture("15 --dark")).lightness(), 80);
}

TEST_F(PictureCommand, WantsOneScenario) {
  Write("two.scenario", "scenario first\nshow 15\nclose 0\nscenario second\nshow 15\nclose 1\n");
  const Outcome seen = Run("fiscalon picture 15 --out picture.png --scenario two.scenario");
  EXPECT_EQ(seen.status, 2);
  EXPECT_THAT(seen.err, EndsWith("two.scenario:4: one scenario is wanted, and here begins a second one, \"second\"\n"));
}

TEST_F(PictureCommand, ShowsTheFormAsAScenarioLeavesIt) {
  WriteScenario("202612");
  const QImage filled = Picture("15 --scenario fill.scenario");
  WriteScenario("202611");
  EXPECT_NE(Picture("15 --scenario fill.scenario"), filled);
  EXPECT_NE(Picture("15"), filled);
}

TEST_F(PictureCommand, TakesTheScenarioOfItsScreen) {
  Write("two.scenario",
        "today 2026-06-15\nscreens 15 17\nname $ENTERED 202612 20260401\nshow $SCREEN\n  type $ENTERED\n  close 1\n");
  EXPECT_NE(Picture("15 --scenario two.scenario"), Picture("17 --scenario two.scenario"));
  const Outcome seen = Run("fiscalon picture 02 --out picture.png --scenario two.scenario");
  EXPECT_EQ(seen.status, 2);
  EXPECT_THAT(seen.err, EndsWith("two.scenario:1: the scenario is not played for the screen \"02\"\n"));
}

TEST_F(PictureCommand, TellsWhereTheScenarioFails) {
  WriteScenario("202713");
  const Outcome seen = Run("fiscalon picture 15 --out picture.png --scenario fill.scenario");
  EXPECT_EQ(seen.status, 1);
  EXPECT_THAT(seen.err, testing::StartsWith("fill.scenario:4: expected "));
  EXPECT_EQ(Run("ls").out, "fill.scenario\n");
}

TEST_F(PictureCommand, WantsAScenarioThatShowsTheScreen) {
  WriteScenario("202612");
  const Outcome seen = Run("fiscalon picture 03 --out picture.png --scenario fill.scenario");
  EXPECT_EQ(seen.status, 2);
  EXPECT_EQ(seen.err, "fiscalon: fill.scenario never shows screen \"03\"\n");
}

TEST_F(PictureCommand, TellsOfFilesThatCantBeReadOrWritten) {
  Outcome seen = Run("fiscalon picture 15 --out picture.png --scenario missing.scenario");
  EXPECT_EQ(seen.status, 2);
  EXPECT_EQ(seen.err, "fiscalon: missing.scenario can't be read: No such file or directory\n");
  seen = Run("fiscalon picture 15 --out nowhere/picture.png");
  EXPECT_EQ(seen.status, 2);
  EXPECT_EQ(seen.err, "fiscalon: nowhere/picture.png can't be written: No such file or directory\n");
}

TEST_F(PictureCommand, WantsAScreenWithAForm) {
  EXPECT_EQ(Run("fiscalon picture 99 --out picture.png").status, 2);
  EXPECT_THAT(Run("fiscalon picture 99 --out picture.png").err,
              testing::HasSubstr("the codes are " + EveryScreenCode() + "\n"));
}

}  // namespace
}  // namespace fiscalon
