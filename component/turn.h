#pragma once

namespace fiscalon::component {

/// A call's turn in the library, which belongs to one thread at a time: hosts may make objects in several apartments,
/// and all of them share the library's state. Calls within a call have the turn already. While another thread shows
/// a screen this throws RPC_E_SERVERCALL_RETRYLATER, for nobody knows how long its user will take.
class Turn {
 public:
  Turn();
  ~Turn();
  Turn(const Turn&) = delete;
  Turn& operator=(const Turn&) = delete;
};

/// Says that the turn's thread shows a screen.
class ScreenTurn {
 public:
  ScreenTurn();
  ~ScreenTurn();
  ScreenTurn(const ScreenTurn&) = delete;
  ScreenTurn& operator=(const ScreenTurn&) = delete;
};

}  // namespace fiscalon::component
