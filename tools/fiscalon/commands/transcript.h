#pragma once

#include <iosfwd>
#include <string_view>

#include "frontends/played/scenario_player.h"

namespace fiscalon {

/// The line as it stands in the file, without its indentation.
std::string_view SourceOf(const ScenarioLine& line);

/// Prints every line of a scenario as it is played, and under it what happens: the handlers that run, boxes with
/// their answers, beeps and help pages, the end of a show.
PlayWatcher TranscriptTo(std::ostream& out);

}  // namespace fiscalon
