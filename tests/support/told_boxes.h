#pragma once

#include <gmock/gmock.h>

#include <string>
#include <vector>

#include "frontends/played/scenario_player.h"
#include "frontends/played/seen_things.h"

namespace fiscalon {

/// Whoever watches a scenario hears the same of a box on each front end, whether its window must have a title or not.
inline void ExpectBoxesToldWithTheirOwnTitles(DrivenToolkit& toolkit) {
  const std::string untitled =
      "message critical \"'Taxation year ends on' must be in the form YYYYMM. Your entry can range from 199001 to "
      "202705.\"";
  const std::string titled = "message critical \"Please enter invoice date.\" title \"Invoice Payments Details\"";
  std::vector<std::string> told;
  PlayWatcher watcher;
  watcher.boxAnswered = [&](const BoxRequest& box, MessageAnswer, Form*) { told.push_back(DescribedBox(box)); };
  const PlayResult result = ScenarioPlayer(toolkit, {.today = DateTime{.date = {2026, 6, 15}}}, watcher)
                                .Play(ParseScenario("boxes", "show 15\n click cmdOK\n expect " + untitled +
                                                                 "\n key Escape\nexpect result False\n"
                                                                 "show 08\n focus InvoiceDate\n key Enter\n expect " +
                                                                 titled + "\n click cmdCancel\nexpect result False\n"));
  EXPECT_TRUE(result.passed) << result.line << ": " << result.seen;
  EXPECT_THAT(told, testing::ElementsAre(untitled, titled));
}

}  // namespace fiscalon
