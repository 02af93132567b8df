#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "core/platform/runtime_error.h"

/// The two logs under `MainPath`. Both are opened and closed at each use, so that a crash of the host loses
/// nothing. One entry is one line: a line end within a text stands as blanks.
namespace fiscalon {

enum class LogReset { Keep, Drop };
enum class Silent { No, Yes };

/// Any value but 0 turns the play-by-play log on.
void EnablePlayByPlay(int16_t value);

/// Appends a line "<date and time> FISCALON - <text>" to "\Zelmor\PBP.txt" under `MainPath`; with `Drop`
/// what the file held is gone. Does nothing unless `PlayByPlayEnabled` is set and `MainPath` is not blank.
/// Never raises an error: the log does not disturb its caller.
void WritePlayByPlay(std::string_view text, LogReset reset = LogReset::Keep);

/// Reports a run-time error: in a critical message box unless silent, and as a line of "error.log" in
/// `MainPath`: date and time, Fiscalon, customer number, session number, error number, "description",
/// "procedure". A quote inside the two quoted texts is not doubled.
/// Raises the error of a log that can't be written, and error 91 for a box where no toolkit is installed.
void ShowError(int32_t number, std::string_view description, std::string_view procedure, Silent silent);

/// "Error <number> - <description>": how a batch is told of a run-time error.
std::string ErrorReason(const RuntimeError& error);

}  // namespace fiscalon
