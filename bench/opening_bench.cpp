#include <benchmark/benchmark.h>

#include <iterator>
#include <string>

#include "bench/started_module.h"
#include "core/session.h"
#include "frontends/qt/played_qt_toolkit.h"
#include "frontends/scripted/scripted_toolkit.h"
#include "tests/support/good_sessions.h"

/// Each form by each front end, from the host's call until the user could act, and closed again at once: what a user
/// waits for. Qt's "offscreen" platform lays out and paints as at a display.
namespace fiscalon {
namespace {

void OpenEach(benchmark::State& state, DrivenToolkit& toolkit) {
  const GoodSession& good = kGoodSessions[state.range(0)];
  state.SetLabel(std::string(good.code));
  StartModule();
  int opened = 0;
  toolkit.onForm = [&opened](Form& /*form*/, UserDriver& user) {
    ++opened;
    user.CloseWindow(CloseReason::CloseBox);
  };
  UseToolkit(&toolkit);
  Levyra session;
  SetUp(good, session);
  int launches = 0;
  for ([[maybe_unused]] auto _ : state) {
    session.ShowLevyraScreen(good.code);
    ++launches;
  }
  if (opened != launches)
    state.SkipWithError("a launch has opened no form");
  ResetModule();
}

void BM_OpeningByScript(benchmark::State& state) {
  ScriptedToolkit toolkit;
  OpenEach(state, toolkit);
}
BENCHMARK(BM_OpeningByScript)->Unit(benchmark::kMicrosecond)->DenseRange(0, std::size(kGoodSessions) - 1);

void BM_OpeningByQt(benchmark::State& state) {
  // One application for all, as a host has one.
  static PlayedQtToolkit toolkit;
  OpenEach(state, toolkit);
}
BENCHMARK(BM_OpeningByQt)->Unit(benchmark::kMicrosecond)->DenseRange(0, std::size(kGoodSessions) - 1);

}  // namespace
}  // namespace fiscalon
