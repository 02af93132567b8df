#pragma once

#include <cstddef>
#include <optional>
#include <string_view>

namespace fiscalon {

/// The columns of the terminal on standard output; nothing where it is none.
std::optional<size_t> TerminalWidth();

/// Whether standard error is a terminal. Signal handlers may ask too.
bool ComplaintsAreSeen();

/// Takes away what stands in a terminal's line, for what is to stand there instead.
inline constexpr std::string_view kWipedLine = "\r\x1B[K";

}  // namespace fiscalon
