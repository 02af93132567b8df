#include "frontends/scripted/front_end.h"
#include "frontends/win32/front_end.h"
#include "tools/fiscalon/front_ends.h"

/// The front ends of the program itself.
namespace fiscalon {

std::span<const FrontEnd> FrontEnds() {
  static constexpr auto kRows = FrontEndTable({scripted::kFrontEnd, win32::kFrontEnd});
  return kRows;
}

}  // namespace fiscalon
