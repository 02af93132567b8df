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
};

}  // namespace fiscalon
