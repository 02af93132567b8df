#pragma once

#include <string>

#include "core/launch.h"

namespace fiscalon {

/// The screen of a code given on the command line. A `UsageError` that lists the codes for any other.
const LaunchRow& ScreenOf(const std::string& code);

/// The same. A `CommandError` where this version does not have the form yet.
const LaunchRow& ScreenWithForm(const std::string& code);

}  // namespace fiscalon
