#pragma once

#include <windows.h>

namespace fiscalon {

/// What the system's many errors of files come down to.
enum class FileTrouble { NothingThere, NameTaken, Refused, DiskFull, BadName, Other };

FileTrouble TroubleOf(DWORD systemError);

}  // namespace fiscalon
