#include <gmock/gmock.h>

#include <QImage>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <set>

#include "core/launch.h"
#include "tests/tools/fiscalon/command_line.h"

namespace fiscalon {
namespace {

using testing::HasSubstr;

/// docs/screens: a scenario and a picture for each form, by a code that shows it; for a form that looks different by
/// its code there are more.
class ScreenPictures : public CommandLine {
 protected:
  static std::string Folder() { return FISCALON_SOURCE_DIR "/docs/screens/"; }

  static constexpr double kTolerance = 0.25;

  /// Draws the picture anew, as the build does.
  Outcome Make(const std::string& code) const {
    std::string command = "fiscalon picture " + code;
    command.append(" --scale 2 --out made.png --scenario '").append(Folder()).append(code).append(".scenario'");
    return Run(command);
  }

  static std::set<std::string> Codes() { return FilesWith(".scenario"); }

  static std::set<std::string> FilesWith(std::string_view extension) {
    std::set<std::string> stems;
    for (const auto& entry : std::filesystem::directory_iterator(Folder()))
      if (entry.path().extension() == extension)
        stems.insert(entry.path().stem().string());
    return stems;
  }
};

TEST_F(ScreenPictures, ThereIsOneForEachForm) {
  std::set<std::string_view> forms;
  std::set<std::string_view> drawn;
  for (const LaunchRow& row : LaunchTable()) {
    forms.insert(row.form);
    if (Codes().contains(std::string(row.code)))
      drawn.insert(row.form);
  }
  EXPECT_EQ(drawn, forms);
  EXPECT_EQ(FilesWith(".png"), Codes()) << "build the target screen_pictures";
}

TEST_F(ScreenPictures, AreMadeByScenariosThatPass) {
  for (const std::string& code : Codes()) {
    const Outcome seen = Make(code);
    EXPECT_EQ(seen.status, 0) << seen.err;
  }
}

// Fonts are not the same everywhere, so a picture of another machine has other bytes and about the same size.
TEST_F(ScreenPictures, HaveTheSizeOfTheForm) {
  for (const std::string& code : Codes()) {
    Make(code);
    const QImage made(QString::fromStdString(CommandLine::Folder() + "/made.png"));
    const QImage kept(QString::fromStdString(Folder() + code + ".png"));
    EXPECT_NEAR(kept.width(), made.width(), made.width() * kTolerance) << code;
    EXPECT_NEAR(kept.height(), made.height(), made.height() * kTolerance) << code;
  }
}

TEST_F(ScreenPictures, AreShownOnOnePage) {
  std::ifstream file(Folder() + "README.md");
  const std::string page(std::istreambuf_iterator<char>(file), {});
  for (const std::string& code : Codes()) {
    EXPECT_THAT(page, HasSubstr("<img src=\"" + code + ".png\""));
    EXPECT_THAT(page, HasSubstr("(" + code + ".scenario)"));
  }
}

}  // namespace
}  // namespace fiscalon
