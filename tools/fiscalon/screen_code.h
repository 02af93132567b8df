#pragma once

#include <string>
#include <vector>

#include "core/launch.h"

namespace fiscalon {

/// The screen of a code given on the command line. A `UsageError` that lists the codes for any other.
const LaunchRow& ScreenOf(const std::string& code);

/// The codes of the screens whose payments can be judged.
std::vector<std::string> JudgedScreens();
/// The same for people: "03 or 20".
std::string JudgedScreensInWords();

}  // namespace fiscalon
