#include "frontends/played/file_screens.h"

#include <algorithm>
#include <array>
#include <stdexcept>

#include "core/forms/button.h"
#include "core/launch.h"
#include "core/screen.h"
#include "frontends/played/argument_kinds.h"
#include "frontends/played/nearest_word.h"
#include "frontends/played/scenario_grammar.h"

namespace fiscalon {
namespace {

constexpr std::string_view kCodeName = "$SCREEN";
constexpr std::string_view kFolderName = "$TMP";

/// A name that stands for a button of each form, whatever the button is called there.
struct ButtonName {
  std::string_view name;
  std::string_view caption;
};

constexpr std::array kButtonNames = {ButtonName{"$OK", "OK"}, ButtonName{"$CANCEL", "Cancel"},
                                     ButtonName{"$HELP", "Help"}};

bool IsOfTheLanguage(std::string_view name) {
  return name.starts_with(kFolderName) || name == kCodeName ||
         std::any_of(kButtonNames.begin(), kButtonNames.end(),
                     [&](const ButtonName& button) { return button.name == name; });
}

std::string Without(char unwanted, std::string text) {
  std::erase(text, unwanted);
  return text;
}

/// The code of a screen, and the names of its form's own buttons.
FileScreen ScreenOf(const LaunchRow& row) {
  FileScreen screen{.code = std::string(row.code)};
  screen.meanings.emplace(kCodeName, row.code);
  const auto form = row.make();
  for (const Control* control : form->Controls()) {
    if (control->Kind() != ControlKind::Button)
      continue;
    const std::string caption = Without('&', static_cast<const Button*>(control)->DesignedCaption().English());
    for (const ButtonName& button : kButtonNames)
      if (button.caption == caption)
        screen.meanings.emplace(button.name, control->Name());
  }
  return screen;
}

/// What is wrong with a code that no screen has.
std::string ComplaintAboutCode(const std::string& code) {
  std::vector<std::string_view> codes;
  for (const LaunchRow& row : LaunchTable()) codes.push_back(row.code);
  // Most who leave a digit out leave the zero out.
  const LaunchRow* withZero = FindLaunchRow("0" + code);
  return "there is no screen " + InQuotes(code) + "; did you mean " +
         InQuotes(withZero != nullptr ? withZero->code : NearestWord(code, codes)) + "?";
}

/// Reads the headings of one file.
class HeadingReader {
 public:
  HeadingReader(const std::string& file, std::span<const ScenarioLine> lines) : file_(file), lines_(lines) {}

  std::vector<FileScreen> Read() {
    for (const ScenarioLine& line : lines_)
      if (SpeaksOfScreens(line))
        RefuseMisplaced(line);
    for (const ScenarioLine& line : lines_)
      if (line.verb == "screens")
        ReadCodes(line);
    for (const ScenarioLine& line : lines_)
      if (line.verb == "name")
        ReadName(line);
    if (screens_.empty())
      screens_.emplace_back();
    return std::move(screens_);
  }

 private:
  [[noreturn]] void Refuse(const ScenarioLine& line, const std::string& reason) const {
    throw ScenarioError(file_, line.number, reason);
  }

  void RefuseMisplaced(const ScenarioLine& line) const {
    if (const std::string complaint = ComplaintAbout(line); !complaint.empty())
      Refuse(line, complaint);
    for (const ScenarioLine& before : lines_) {
      if (before.number >= line.number)
        return;
      if (before.verb == "scenario")
        Refuse(line, InQuotes(line.verb) + " stands ahead of the scenarios, the first of which begins in line " +
                         std::to_string(before.number));
    }
  }

  void ReadCodes(const ScenarioLine& line) {
    if (!screens_.empty())
      Refuse(line, "line " + std::to_string(lineOfScreens_) + " names the screens already");
    lineOfScreens_ = line.number;
    for (const std::string& code : line.arguments) {
      const LaunchRow* row = FindLaunchRow(code);
      if (row == nullptr)
        Refuse(line, ComplaintAboutCode(code));
      for (const FileScreen& screen : screens_)
        if (screen.code == code)
          Refuse(line, "the screen " + InQuotes(code) + " stands here twice");
      screens_.push_back(ScreenOf(*row));
    }
  }

  void ReadName(const ScenarioLine& line) {
    const std::string& name = line.arguments[0];
    const std::vector<std::string> values(line.arguments.begin() + 1, line.arguments.end());
    if (screens_.empty())
      Refuse(line, R"("name" says what a name stands for on each of the file's "screens", which are missing)");
    if (IsOfTheLanguage(name))
      Refuse(line, InQuotes(name) + " has a meaning by itself; take another name");
    if (screens_.front().meanings.contains(name))
      Refuse(line, InQuotes(name) + " has a meaning already, from a line above");
    if (values.size() != screens_.size())
      Refuse(line, InQuotes(name) + " needs a value for each of the " + std::to_string(screens_.size()) +
                       " screens; here are " + std::to_string(values.size()));
    try {
      for (size_t i = 0; i < values.size(); ++i)
        screens_[i].meanings.emplace(name, WithMeanings(values[i], screens_[i]));
    } catch (const std::invalid_argument& error) {
      Refuse(line, error.what());
    }
  }

  const std::string& file_;
  std::span<const ScenarioLine> lines_;
  std::vector<FileScreen> screens_;
  int lineOfScreens_ = 0;
};

/// What is wrong with a name that stands for nothing on a screen.
std::string ComplaintAboutName(std::string_view name, const FileScreen& screen) {
  if (screen.code.empty())
    return InQuotes(name) +
           R"( is the code of a screen, and a line such as "screens 15 17" that names them is missing)";
  for (const ButtonName& button : kButtonNames)
    if (button.name == name)
      return "the screen " + InQuotes(screen.code) + " has no button " + InQuotes(button.caption) + " for " +
             InQuotes(name);
  std::vector<std::string_view> known = {kFolderName};
  for (const auto& [each, meaning] : screen.meanings) known.push_back(each);
  return InQuotes(name) + " stands for nothing; did you mean " + InQuotes(NearestWord(name, known)) + "?";
}

}  // namespace

bool SpeaksOfScreens(const ScenarioLine& line) {
  return line.verb == "screens" || line.verb == "name";
}

std::vector<FileScreen> ReadFileScreens(const std::string& file, std::span<const ScenarioLine> lines) {
  return HeadingReader(file, lines).Read();
}

std::string WithMeanings(std::string_view text, const FileScreen& screen) {
  std::string result;
  for (size_t at = 0; at < text.size();) {
    const std::string_view name = DollarNameAt(text, at);
    const auto known = screen.meanings.find(name);
    const bool isText = name.empty() || name.starts_with(kFolderName) || (screen.code.empty() && name != kCodeName);
    if (!isText && known == screen.meanings.end())
      throw std::invalid_argument(ComplaintAboutName(name, screen));
    const std::string_view said = name.empty() ? text.substr(at, 1) : name;
    result += isText ? said : std::string_view(known->second);
    at += said.size();
  }
  return result;
}

}  // namespace fiscalon
