#pragma once

#include <stdexcept>

namespace fiscalon {

/// How the program ends.
enum class ExitStatus {
  Done = 0,
  /// A failed expectation, a cancelled screen, something that is not valid.
  Invalid = 1,
  /// Bad usage, or a file that can't be read or written.
  Unusable = 2,
  /// A folder that does not answer: what a later run may do. The number is that of a temporary failure in sysexits.h.
  Stalled = 75,
};

/// Why a command can't do its work, in a sentence for the user. It ends the program with `Unusable`.
class CommandError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// A command line that its command can't be run by. The user is told of the command's help too.
class UsageError : public CommandError {
 public:
  using CommandError::CommandError;
};

}  // namespace fiscalon
