#pragma once

#include <cstddef>
#include <optional>

namespace fiscalon {

/// The columns of the terminal on standard output; nothing where it is none.
std::optional<size_t> TerminalWidth();

/// Whether standard error is a terminal.
bool ComplaintsAreSeen();

}  // namespace fiscalon
