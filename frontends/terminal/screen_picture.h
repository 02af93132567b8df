#pragma once

#include <string>

#include "frontends/played/front_end.h"
#include "frontends/terminal/screen.h"

namespace fiscalon::terminal {

// A part of a screen for documents, in UTF-8.

/// Its characters alone, a line for each row.
std::string AsText(const Screen& screen, const Rect& part);
/// With the colours that terminals have, in SVG.
std::string AsSvg(const Screen& screen, const Rect& part, const PictureLook& look);

}  // namespace fiscalon::terminal
