#pragma once

#include "frontends/played/front_end.h"

namespace fiscalon::scripted {

std::unique_ptr<DrivenToolkit> NewPlayed();

/// Forms without a display: nobody sees them.
inline constexpr FrontEnd kFrontEnd = {.name = "scripted", .played = NewPlayed};

}  // namespace fiscalon::scripted
