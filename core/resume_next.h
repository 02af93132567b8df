#pragma once

#include "core/platform/runtime_error.h"

namespace fiscalon {

/// The policy of a routine that goes on with the next statement after a run-time failure. A routine that
/// has it says so by wrapping each statement that may fail; nothing else in the library swallows an error.
/// Only a `RuntimeError` is swallowed: anything else is a defect and goes through.
class ResumeNext {
 public:
  /// Runs a statement, and skips it when it fails.
  template <typename Statement>
  static void Run(Statement&& statement) {
    try {
      statement();
    } catch (const RuntimeError&) {
    }
  }

  /// Tests a condition. Where the test itself fails, the next statement is the first one inside the
  /// branch, so the condition counts as met.
  template <typename Condition>
  static bool Holds(Condition&& condition) {
    try {
      return condition();
    } catch (const RuntimeError&) {
      return true;
    }
  }

  /// The same of a check: whether it answers false, or can't be made.
  template <typename Check>
  static bool Fails(Check&& check) {
    return Holds([&] { return !check(); });
  }
};

/// What becomes of a run-time failure in a routine that serves forms of either policy.
enum class Failures { Skipped, Leave };

template <typename Statement>
void Attempt(Failures failures, Statement&& statement) {
  if (failures == Failures::Leave)
    statement();
  else
    ResumeNext::Run(statement);
}

}  // namespace fiscalon
