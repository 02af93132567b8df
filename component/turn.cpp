#include "component/turn.h"

#include <condition_variable>
#include <mutex>

#include "component/failure.h"

namespace fiscalon::component {

namespace {

struct TurnState {
  std::mutex lock = {};
  std::condition_variable changed = {};
  DWORD thread = 0;
  int calls = 0;
  int screens = 0;
};

TurnState& State() {
  static TurnState state;
  return state;
}

}  // namespace

Turn::Turn() {
  TurnState& state = State();
  const DWORD me = GetCurrentThreadId();
  std::unique_lock lock(state.lock);
  state.changed.wait(lock, [&] { return state.calls == 0 || state.thread == me || state.screens > 0; });
  if (state.calls > 0 && state.thread != me)
    throw ComponentError(RPC_E_SERVERCALL_RETRYLATER,
                         "A screen is open on another thread of this program. Call again when it is closed.");
  state.thread = me;
  ++state.calls;
}

Turn::~Turn() {
  TurnState& state = State();
  const std::lock_guard lock(state.lock);
  --state.calls;
  state.changed.notify_one();
}

ScreenTurn::ScreenTurn() {
  TurnState& state = State();
  const std::lock_guard lock(state.lock);
  ++state.screens;
  state.changed.notify_all();
}

ScreenTurn::~ScreenTurn() {
  TurnState& state = State();
  const std::lock_guard lock(state.lock);
  --state.screens;
}

}  // namespace fiscalon::component
