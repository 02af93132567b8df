// Tells what assistive programs must find on the forms that scenarios of a folder show, line by line and word by word
// behind tabs:
//   form FILE SCENARIO TITLE
//   control NAME KIND TOLD DESCRIPTION LABEL KEY TYPED STATE...
// and what comes of OK while nothing is entered; nothing where it accepts:
//   box TITLE TEXT
//   status TEXT
//   focus NAME

#include <iostream>

#include "tests/support/told_screen.h"

namespace fiscalon {
namespace {

const char* NameOf(ControlKind kind) {
  switch (kind) {
    case ControlKind::Label:
      return "Label";
    case ControlKind::TextField:
      return "TextField";
    case ControlKind::Button:
      return "Button";
    case ControlKind::CheckBox:
      return "CheckBox";
    case ControlKind::OptionButton:
      return "OptionButton";
    case ControlKind::DropDownList:
      return "DropDownList";
    case ControlKind::ListBox:
      return "ListBox";
    case ControlKind::Frame:
      return "Frame";
  }
  return "";
}

void Tell(const AssistedScenario& assisted) {
  const ToldScreen screen = ToldScreenOf(assisted);
  std::cout << "form\t" << assisted.file << '\t' << assisted.name << '\t' << screen.title << '\n';
  for (const ToldScreen::Told& told : screen.controls) {
    std::cout << "control\t" << told.name << '\t' << NameOf(told.kind) << '\t' << told.told << '\t' << told.description
              << '\t' << told.label << '\t' << told.key << '\t' << (told.makesCapitals ? "capitals" : "");
    for (const std::string& state : told.states) std::cout << '\t' << state;
    std::cout << '\n';
  }
  for (const auto& box : screen.boxes) std::cout << "box\t" << box.title << '\t' << box.text << '\n';
  if (!screen.focus.empty())
    std::cout << "status\t" << screen.status << "\nfocus\t" << screen.focus << '\n';
}

}  // namespace
}  // namespace fiscalon

int main(int argc, char** argv) {
  for (int i = 1; i < argc; ++i)
    for (const auto& assisted : fiscalon::AssistedScenarios(argv[i])) fiscalon::Tell(assisted);
  return 0;
}
