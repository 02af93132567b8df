#pragma once

namespace fiscalon {

/// Why a form's window closes, as `Form_QueryUnload` hears it. Scenarios know the numbers.
enum class CloseReason {
  /// The window's close box or its menu.
  CloseBox = 0,
  Code = 1,
  SystemEnds = 2,
  TaskManager = 3,
  ParentCloses = 4,
  OwnerCloses = 5,
};

}  // namespace fiscalon
