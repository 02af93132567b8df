#pragma once

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdlib>
#include <functional>
#include <iostream>
#include <map>
#include <string>

#include "core/host_setup.h"
#include "core/launch.h"
#include "core/session.h"
#include "tests/support/good_sessions.h"

namespace fiscalon {

/// What a process holds of its system: by name, how much, such as "memory in use".
using Held = std::map<std::string, size_t>;

/// How often a host shows a form, has it cancelled, and shows the next: ten thousand times where FISCALON_LONG is set.
inline int TimesShownAgain() {
  return std::getenv("FISCALON_LONG") != nullptr ? 10'000 : 84;
}

/// Shows the forms of all screens in turn, that often, on the front end that is in use. `show` shows the screen of a
/// session for a host, with a user who closes the form. What is held when each form was up twice is all that may ever
/// be held, but for what `allowed` has more.
inline void ExpectToHoldNoMoreWhenShownAgain(const std::function<bool(const GoodSession&, Levyra&)>& show,
                                             const std::function<Held()>& held, const Held& allowed = {}) {
  const int warmUp = 2 * static_cast<int>(std::size(kGoodSessions));
  Levyra host;
  Held before;
  for (int shown = 0; shown < warmUp + TimesShownAgain(); ++shown) {
    if (shown == warmUp)
      before = held();
    const GoodSession& session = kGoodSessions[static_cast<size_t>(shown) % std::size(kGoodSessions)];
    SetUp(session, host);
    ASSERT_FALSE(show(session, host)) << session.code << " was not cancelled";
  }
  for (const auto& [what, now] : held()) {
    std::cout << what << ": " << before.at(what) << ", after " << TimesShownAgain() << " more shows " << now << '\n';
    const auto more = allowed.find(what);
    EXPECT_LE(now, before.at(what) + (more == allowed.end() ? 0 : more->second)) << what;
  }
}

}  // namespace fiscalon
