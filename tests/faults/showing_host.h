#pragma once

#include <gtest/gtest.h>

#include <cstdlib>
#include <memory>
#include <new>
#include <string>

#include "core/host_setup.h"
#include "core/module_state.h"
#include "core/module_to_change.h"
#include "frontends/played/driven_toolkit.h"
#include "tests/faults/allocation_fault.h"
#include "tests/faults/screen_sessions.h"

namespace fiscalon {

/// A host that has a payment collected on a front end, with a user who answers all boxes and confirms.
inline std::string CollectOn(DrivenToolkit& frontEnd, const ScreenSession& session) {
  ResetModule();
  UseFixedClock({.date = {.year = 2026, .month = 6, .day = 15}});
  UseLocale(EnglishCanada());
  UseToolkit(&frontEnd);
  frontEnd.onForm = [&session](Form& form, UserDriver& user) {
    // A box first: nothing is entered yet.
    Confirm(session, form, user);
    if (form.IsUp())
      FillIn(session.good, form, user);
    if (form.IsUp())
      Confirm(session, form, user);
  };
  Levyra host;
  SetPayment(host, session);
  host.GovFilename("");
  std::string evidence = host.ShowLevyraScreen(session.good.code) ? "confirmed\n" : "cancelled\n";
  if (const auto records = host.PC4Records())
    for (const PC4& record : *records) evidence += record.TheDate() + record.Amount() + record.Description() + "\n";
  return evidence;
}

/// Fails allocations of sessions, one at a time: the host gets `std::bad_alloc`, or all that it expects where the front
/// end can do without, and the next session is as if nothing had been. The usual run tries few of them, on forms that
/// have every kind of control; the long one many, on all.
inline void ExpectAllocationsMayFailOn(DrivenToolkit& frontEnd, size_t few = 20) {
  const bool atLength = std::getenv("FISCALON_LONG") != nullptr;
  const size_t tried = atLength ? 10 * few : few;
  for (const ScreenSession& session : ScreenSessions()) {
    constexpr std::string_view kUsual[] = {"02", "08", "10", "20"};
    if (!atLength && std::find(std::begin(kUsual), std::end(kUsual), session.good.code) == std::end(kUsual))
      continue;
    SCOPED_TRACE(session.Name());
    const std::string expected = CollectOn(frontEnd, session);
    ASSERT_NE(expected.find("confirmed"), std::string::npos) << expected;
    size_t allocations = 0;
    {
      const AllocationFault none(SIZE_MAX);
      CollectOn(frontEnd, session);
      allocations = none.Allocations();
    }
    size_t told = 0;
    for (size_t i = 0; i < tried && !testing::Test::HasFailure(); ++i) {
      const size_t nth = 1 + i * allocations / tried;
      try {
        const AllocationFault fault(nth);
        EXPECT_EQ(CollectOn(frontEnd, session), expected) << "allocation " << nth;
      } catch (const std::bad_alloc&) {
        ++told;
      }
      EXPECT_EQ(CollectOn(frontEnd, session), expected) << "after allocation " << nth;
    }
    EXPECT_GT(told, tried / 2) << "of " << allocations;
  }
  ResetModule();
}

}  // namespace fiscalon
