#pragma once

#include <span>
#include <string>

#include "frontends/played/driven_toolkit.h"

namespace fiscalon {

/// Plays scenario files through a front end and tells on standard error what failed. "--files NAME" ahead of them
/// gathers what the scenarios have written, every file with its scenario, name and bytes, into one: two front ends, or
/// two systems, must write the same. The exit status of the program: 0 all passed, 1 an expectation was not met, 2 a
/// file can't be read or makes no sense, or there is none.
int PlayFiles(DrivenToolkit& toolkit, std::span<const std::string> arguments);

}  // namespace fiscalon
