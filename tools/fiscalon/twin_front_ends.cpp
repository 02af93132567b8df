#include "frontends/qt/front_end.h"
#include "frontends/scripted/front_end.h"
#include "tools/fiscalon/front_ends.h"

/// The front ends of the twin with Qt.
namespace fiscalon {

std::span<const FrontEnd> FrontEnds() {
  static constexpr auto kRows = FrontEndTable({scripted::kFrontEnd, qt::kFrontEnd});
  return kRows;
}

}  // namespace fiscalon
