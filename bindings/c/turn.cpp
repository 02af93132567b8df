#include "bindings/c/turn.h"

#include <condition_variable>
#include <thread>

#include "bindings/c/failure.h"
#include "bindings/c/fork_watch.h"

namespace fiscalon::c {

namespace {

struct TurnState {
  std::mutex lock = {};
  std::condition_variable changed = {};
  std::thread::id thread = {};
  int calls = 0;
  int screens = 0;
  int batches = 0;
  int forks = 0;
  /// In a child: what another thread of the parent was at will never end here.
  bool isLost = false;
};

/// It stays: threads may be in a call while the process ends.
TurnState& State() {
  static TurnState& state = *new TurnState;
  return state;
}

void BeforeFork() {
  State().lock.lock();
}

void AfterForkInParent() {
  State().lock.unlock();
}

void AfterForkInChild() {
  TurnState& state = State();
  ++state.forks;
  state.isLost = state.isLost || (state.calls > 0 && state.thread != std::this_thread::get_id());
  // The threads of a batch have stayed in the parent, and so has whoever waits for them.
  state.batches = 0;
  state.lock.unlock();
}

/// The first call of the process sees to it that all later ones know of forks.
void WatchForks() {
  static const bool watched = (OnFork(BeforeFork, AfterForkInParent, AfterForkInChild), true);
  static_cast<void>(watched);
}

}  // namespace

Turn::Turn() {
  WatchForks();
  TurnState& state = State();
  const std::thread::id me = std::this_thread::get_id();
  std::unique_lock lock(state.lock);
  if (state.isLost)
    Fail(FISCALON_ERROR_FORKED,
         "This process was forked while another thread of its parent was in the library, which can't be used here.");
  state.changed.wait(lock, [&] { return state.calls == 0 || state.thread == me || state.screens > 0; });
  if (state.calls > 0 && state.thread != me)
    Fail(FISCALON_ERROR_THREAD,
         "A screen is open on another thread of this program. Call again when it is closed, or from that thread.");
  state.thread = me;
  ++state.calls;
}

Turn::~Turn() {
  TurnState& state = State();
  const std::lock_guard lock(state.lock);
  --state.calls;
  if (state.calls == 0)
    state.changed.notify_one();
}

ScreenTurn::ScreenTurn() {
  TurnState& state = State();
  const std::lock_guard lock(state.lock);
  if (state.batches > 0)
    Fail(FISCALON_ERROR_BUSY, "No screen can be shown while a batch is being judged.");
  ++state.screens;
  state.changed.notify_all();
}

ScreenTurn::~ScreenTurn() {
  TurnState& state = State();
  const std::lock_guard lock(state.lock);
  --state.screens;
}

BatchTurn::BatchTurn() {
  const Turn turn;
  TurnState& state = State();
  const std::lock_guard lock(state.lock);
  ++state.batches;
}

BatchTurn::~BatchTurn() {
  TurnState& state = State();
  const std::lock_guard lock(state.lock);
  --state.batches;
}

void ExpectNoBatch() {
  TurnState& state = State();
  const std::lock_guard lock(state.lock);
  if (state.batches > 0)
    Fail(FISCALON_ERROR_BUSY, "A batch is being judged by what this would change.");
}

void ExpectNoScreen() {
  TurnState& state = State();
  const std::lock_guard lock(state.lock);
  if (state.screens > 0)
    Fail(FISCALON_ERROR_BUSY, "A screen is open, which stands on what this would take away.");
}

std::mutex& TheLock() {
  return State().lock;
}

int Forks() {
  return State().forks;
}

}  // namespace fiscalon::c
