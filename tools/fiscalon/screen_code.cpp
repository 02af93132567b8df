#include "tools/fiscalon/screen_code.h"

#include "tools/fiscalon/context.h"

namespace fiscalon {

const LaunchRow& ScreenWithForm(const std::string& code) {
  const LaunchRow* row = FindLaunchRow(code);
  if (row == nullptr) {
    std::string codes;
    for (const LaunchRow& each : LaunchTable()) codes.append(codes.empty() ? "" : ", ").append(each.code);
    throw CommandError("there is no screen \"" + code + "\"; the codes are " + codes);
  }
  if (row->make == nullptr)
    throw CommandError("this version does not have the form of screen \"" + code + "\" yet");
  return *row;
}

}  // namespace fiscalon
