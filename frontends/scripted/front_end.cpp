#include "frontends/scripted/front_end.h"

#include "frontends/scripted/scripted_toolkit.h"

namespace fiscalon::scripted {

std::unique_ptr<DrivenToolkit> NewPlayed() {
  return std::make_unique<ScriptedToolkit>();
}

}  // namespace fiscalon::scripted
