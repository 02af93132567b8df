#include <gmock/gmock.h>

#include <QImage>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <set>

#include "core/launch.h"
#include "tests/tools/fiscalon/command_line.h"

namespace fiscalon {
namespace {

using testing::HasSubstr;

namespace fs = std::filesystem;

std::string TextOf(const fs::path& path) {
  std::ifstream file(path);
  return {std::istreambuf_iterator<char>(file), {}};
}

/// Each form has a picture in docs/screens, by a code that shows it, and the scenario that fills the form for it among
/// its other ones. A form that looks different by its code has more of them.
class ScreenPictures : public CommandLine {
 protected:
  static constexpr double kTolerance = 0.25;

  /// The scenarios, by the codes that they show.
  static std::map<std::string, fs::path> Scenarios() {
    std::map<std::string, fs::path> found;
    for (const auto& entry : fs::recursive_directory_iterator(FISCALON_SOURCE_DIR "/tests/scenarios")) {
      if (!entry.path().filename().string().starts_with("picture"))
        continue;
      const std::string text = TextOf(entry.path());
      const std::string code = text.substr(text.find("\nshow ") + 6, 2);
      EXPECT_TRUE(found.emplace(code, entry.path()).second) << "a second picture of " << code;
    }
    return found;
  }

  static std::string Picture(const std::string& code) { return FISCALON_SOURCE_DIR "/docs/screens/" + code + ".png"; }

  /// Draws the picture anew, as the build does.
  Outcome Make(const std::string& code, const fs::path& scenario) const {
    return Run("fiscalon picture " + code + " --scale 2 --out made.png --scenario '" + scenario.string() + "'");
  }
};

TEST_F(ScreenPictures, ThereIsOneForEachForm) {
  const auto scenarios = Scenarios();
  std::set<std::string_view> forms;
  std::set<std::string_view> drawn;
  for (const LaunchRow& row : LaunchTable()) {
    forms.insert(row.form);
    if (scenarios.contains(std::string(row.code)))
      drawn.insert(row.form);
  }
  EXPECT_EQ(drawn, forms);
  std::set<std::string> pictures;
  for (const auto& entry : fs::directory_iterator(FISCALON_SOURCE_DIR "/docs/screens"))
    if (entry.path().extension() == ".png")
      pictures.insert(entry.path().string());
  std::set<std::string> made;
  for (const auto& [code, scenario] : scenarios) made.insert(Picture(code));
  EXPECT_EQ(pictures, made) << "build the target screen_pictures";
}

TEST_F(ScreenPictures, AreMadeByScenariosThatPass) {
  for (const auto& [code, scenario] : Scenarios()) {
    const Outcome seen = Make(code, scenario);
    EXPECT_EQ(seen.status, 0) << seen.err;
  }
}

// Fonts are not the same everywhere, so a picture of another machine has other bytes and about the same size.
TEST_F(ScreenPictures, HaveTheSizeOfTheForm) {
  for (const auto& [code, scenario] : Scenarios()) {
    Make(code, scenario);
    const QImage made(QString::fromStdString(Folder() + "/made.png"));
    const QImage kept(QString::fromStdString(Picture(code)));
    EXPECT_NEAR(kept.width(), made.width(), made.width() * kTolerance) << code;
    EXPECT_NEAR(kept.height(), made.height(), made.height() * kTolerance) << code;
  }
}

TEST_F(ScreenPictures, AreShownOnOnePage) {
  const std::string page = TextOf(FISCALON_SOURCE_DIR "/docs/screens/README.md");
  for (const auto& [code, scenario] : Scenarios()) EXPECT_THAT(page, HasSubstr("<img src=\"" + code + ".png\""));
}

/// The pictures of the operators' page in a language, each beside the scenario that it is made by.
class GuidePictures : public CommandLine, public testing::WithParamInterface<const char*> {
 protected:
  static constexpr double kTolerance = 0.25;

  static std::set<fs::path> Scenarios() {
    std::set<fs::path> found;
    for (const auto& entry : fs::directory_iterator(std::string(FISCALON_SOURCE_DIR "/docs/") + GetParam()))
      if (entry.path().extension() == ".scenario")
        found.insert(entry.path());
    return found;
  }
};

INSTANTIATE_TEST_SUITE_P(Pages, GuidePictures, testing::Values("operator-guide", "operator-guide.fr"),
                         [](const auto& page) { return page.index == 0 ? "English" : "French"; });

TEST_P(GuidePictures, AreWhatTheirScenariosShow) {
  ASSERT_FALSE(Scenarios().empty());
  for (const fs::path& scenario : Scenarios()) {
    const std::string text = TextOf(scenario);
    const std::string code = text.substr(text.find("\nshow ") + 6, 2);
    const Outcome seen = Run("fiscalon picture " + code + " --out made.png --scenario '" + scenario.string() + "'");
    EXPECT_EQ(seen.status, 0) << seen.err;
    const QImage made(QString::fromStdString(Folder() + "/made.png"));
    const QImage kept(QString::fromStdString(fs::path(scenario).replace_extension(".png").string()));
    EXPECT_NEAR(kept.width(), made.width(), made.width() * kTolerance) << scenario;
    EXPECT_NEAR(kept.height(), made.height(), made.height() * kTolerance) << scenario;
  }
}

TEST_P(GuidePictures, StandOnThePageEachOnce) {
  std::string page = TextOf(std::string(FISCALON_SOURCE_DIR "/docs/") + GetParam() + ".md");
  for (const fs::path& scenario : Scenarios()) {
    const std::string named = "](" + std::string(GetParam()) + "/" + scenario.stem().string() + ".png)";
    EXPECT_THAT(page, HasSubstr(named));
    page.erase(page.find(named), named.size());
  }
  EXPECT_THAT(page, testing::Not(HasSubstr(".png)")));
}

}  // namespace
}  // namespace fiscalon
