#pragma once

#include <gtest/gtest.h>

#include <string>

#include "frontends/played/scenario_player.h"
#include "frontends/scripted/scripted_toolkit.h"

namespace fiscalon {

inline PlayResult Play(const std::string& text, const PlaySettings& settings = {}, const PlayWatcher& watcher = {}) {
  ScriptedToolkit toolkit;
  return ScenarioPlayer(toolkit, settings, watcher).Play(ParseScenario("s", text));
}

inline void ExpectPassed(const std::string& text, const PlaySettings& settings = {}) {
  const PlayResult result = Play(text, settings);
  EXPECT_TRUE(result.passed) << text << "line " << result.line << ": expected " << result.expected << ", saw "
                             << result.seen;
}

inline void ExpectFailed(const std::string& text, int line, const std::string& expected, const std::string& seen) {
  const PlayResult result = Play(text);
  EXPECT_FALSE(result.passed) << text;
  EXPECT_EQ(result.line, line) << text;
  EXPECT_EQ(result.expected, expected);
  EXPECT_EQ(result.seen, seen);
}

/// What a scenario is told that makes no sense for the form that is up.
inline std::string SenselessReason(const std::string& text) {
  try {
    Play(text);
  } catch (const ScenarioError& error) {
    return error.what();
  }
  return "it made sense";
}

}  // namespace fiscalon
