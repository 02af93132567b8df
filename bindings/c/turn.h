#pragma once

#include <mutex>

namespace fiscalon::c {

/// A call's turn in the library, which belongs to one thread at a time. Calls within a call have the turn already.
/// While another thread shows a screen this throws FISCALON_ERROR_THREAD, for nobody knows how long its user will take.
class Turn {
 public:
  Turn();
  ~Turn();
  Turn(const Turn&) = delete;
  Turn& operator=(const Turn&) = delete;

 private:
  bool endsHere_ = false;
};

/// Says that the turn's thread shows a screen. Throws FISCALON_ERROR_BUSY while a batch is being judged.
class ScreenTurn {
 public:
  ScreenTurn();
  ~ScreenTurn();
  ScreenTurn(const ScreenTurn&) = delete;
  ScreenTurn& operator=(const ScreenTurn&) = delete;
};

/// Says that a batch is being judged, which goes on without a turn.
class BatchTurn {
 public:
  BatchTurn();
  ~BatchTurn();
  BatchTurn(const BatchTurn&) = delete;
  BatchTurn& operator=(const BatchTurn&) = delete;

 private:
  int forks_ = 0;
};

// Asked within a turn, by what changes that which batches judge by, and by what takes away that which screens stand on.
// They throw FISCALON_ERROR_BUSY.
void ExpectNoBatch();
void ExpectNoScreen();

/// What is looked at beside turns is looked at under this, for a moment each time. A fork waits for it.
std::mutex& TheLock();

/// How often this process has come out of a fork.
int Forks();

}  // namespace fiscalon::c
