#include "bindings/c/turn.h"

#include <atomic>
#include <chrono>
#include <mutex>
#include <thread>

#include "bindings/c/failure.h"
#include "bindings/c/fork_watch.h"

namespace fiscalon::c {

namespace {

/// Whether it is a thread's turn, perhaps already. It is not while another one shows a screen.
enum class Came { InTurn, Within, Never };

struct TurnState {
  /// Held by the call whose turn it is, and all that time.
  std::timed_mutex turn = {};
  std::atomic<std::thread::id> thread = {};
  std::atomic<int> screens = 0;
  std::atomic<int> batches = 0;
  std::mutex lock = {};
  int forks = 0;
  Came forkCame = Came::Never;
  /// In a child: what another thread of the parent was at will never end here.
  bool isLost = false;
};

/// It stays: threads may be in a call while the process ends.
TurnState& State() {
  static TurnState& state = *new TurnState;
  return state;
}

Came WaitForTurn(TurnState& state) {
  constexpr std::chrono::milliseconds kUntilALook(1);
  const std::thread::id me = std::this_thread::get_id();
  if (state.thread.load(std::memory_order_relaxed) == me)
    return Came::Within;
  while (!state.turn.try_lock() && !state.turn.try_lock_for(kUntilALook))
    if (state.screens > 0)
      return Came::Never;
  state.thread.store(me, std::memory_order_relaxed);
  return Came::InTurn;
}

void EndTurn(TurnState& state) {
  state.thread.store(std::thread::id(), std::memory_order_relaxed);
  state.turn.unlock();
}

/// A fork waits for the calls of other threads, but for a screen.
void BeforeFork() {
  TurnState& state = State();
  const Came came = WaitForTurn(state);
  state.lock.lock();
  state.forkCame = came;
}

void AfterFork(TurnState& state) {
  const Came came = state.forkCame;
  state.lock.unlock();
  if (came == Came::InTurn)
    EndTurn(state);
}

void AfterForkInParent() {
  AfterFork(State());
}

void AfterForkInChild() {
  TurnState& state = State();
  ++state.forks;
  state.isLost = state.isLost || state.forkCame == Came::Never;
  // The other threads of a batch have stayed in the parent, and so has whoever waits for them.
  state.batches = 0;
  AfterFork(state);
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
  if (state.isLost)
    Fail(FISCALON_ERROR_FORKED,
         "This process was forked while another thread of its parent showed a screen. The library can't be used here.");
  const Came came = WaitForTurn(state);
  if (came == Came::Never)
    Fail(FISCALON_ERROR_THREAD,
         "A screen is open on another thread of this program. Call again when it is closed, or from that thread.");
  endsHere_ = came == Came::InTurn;
}

Turn::~Turn() {
  if (endsHere_)
    EndTurn(State());
}

ScreenTurn::ScreenTurn() {
  TurnState& state = State();
  if (state.batches > 0)
    Fail(FISCALON_ERROR_BUSY, "No screen can be shown while a batch is being judged.");
  ++state.screens;
}

ScreenTurn::~ScreenTurn() {
  --State().screens;
}

BatchTurn::BatchTurn() {
  const Turn turn;
  forks_ = Forks();
  ++State().batches;
}

BatchTurn::~BatchTurn() {
  // A child that came out of one of its callbacks has none any more.
  if (forks_ == Forks())
    --State().batches;
}

void ExpectNoBatch() {
  if (State().batches > 0)
    Fail(FISCALON_ERROR_BUSY, "A batch is being judged by what this would change.");
}

void ExpectNoScreen() {
  if (State().screens > 0)
    Fail(FISCALON_ERROR_BUSY, "A screen is open, which stands on what this would take away.");
}

std::mutex& TheLock() {
  return State().lock;
}

int Forks() {
  return State().forks;
}

}  // namespace fiscalon::c
