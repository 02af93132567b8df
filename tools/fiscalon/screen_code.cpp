#include "tools/fiscalon/screen_code.h"

#include "tools/fiscalon/files/program_end.h"
#include "validation/rule_sets.h"

namespace fiscalon {

const LaunchRow& ScreenOf(const std::string& code) {
  if (const LaunchRow* row = FindLaunchRow(code))
    return *row;
  std::string codes;
  for (const LaunchRow& each : LaunchTable()) codes.append(codes.empty() ? "" : ", ").append(each.code);
  // Most who leave a digit out leave the zero out.
  const std::string meant = FindLaunchRow("0" + code) != nullptr ? "; did you mean \"0" + code + "\"?" : "";
  throw UsageError("there is no screen \"" + code + "\"; the codes are " + codes + meant);
}

std::vector<std::string> JudgedScreens() {
  std::vector<std::string> codes;
  for (const RuleSet* const rules : RuleSets()) codes.emplace_back(rules->screenCode);
  return codes;
}

std::string JudgedScreensInWords() {
  std::string words;
  for (const RuleSet* const rules : RuleSets()) {
    if (!words.empty())
      words += rules == RuleSets().back() ? " or " : ", ";
    words += rules->screenCode;
  }
  return words;
}

}  // namespace fiscalon
