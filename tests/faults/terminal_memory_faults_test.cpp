#include "frontends/terminal/played_terminal_toolkit.h"
#include "tests/faults/showing_host.h"

namespace fiscalon {
namespace {

TEST(TerminalFrontEnd, TellsTheHostThatMemoryIsOutAndGoesOn) {
  PlayedTerminalToolkit frontEnd;
  ExpectAllocationsMayFailOn(frontEnd);
}

}  // namespace
}  // namespace fiscalon
