#pragma once

#include <gtest/gtest.h>

#include <memory>

#include "core/host_setup.h"
#include "core/module_to_change.h"
#include "tests/support/recording_toolkit.h"

namespace fiscalon {

/// A test over the module's state: a fixed clock, June 15, 2026, 13:05:09, English (Canada), and a toolkit
/// that records. What a test changes is gone after it.
class ModuleTest : public testing::Test {
 protected:
  ModuleTest() {
    ResetModule();
    SetToday({2026, 6, 15});
    SetLocale(EnglishCanada());
    UseToolkit(&toolkit);
  }
  ~ModuleTest() override { ResetModule(); }

  static void SetToday(const Date& today) { UseFixedClock({today, 13, 5, 9}); }

  /// As the construction of a `Levyra` under that locale leaves the module.
  static void SetLocale(const Locale& locale) { UseLocale(locale); }

  RecordingToolkit toolkit;
};

}  // namespace fiscalon
