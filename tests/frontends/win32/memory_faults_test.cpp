#include "frontends/win32/played_win32_toolkit.h"
#include "tests/faults/showing_host.h"

namespace fiscalon {
namespace {

TEST(Win32FrontEnd, TellsTheHostThatMemoryIsOutAndGoesOn) {
  PlayedWin32Toolkit frontEnd;
  // Windows take their time.
  ExpectAllocationsMayFailOn(frontEnd, 3);
}

}  // namespace
}  // namespace fiscalon
