#include "component/forms_of_the_system.h"

#include "frontends/scripted/scripted_toolkit.h"

namespace fiscalon::component {

std::shared_ptr<Toolkit> FormsOfTheSystem() {
  return std::make_shared<ScriptedToolkit>();
}

}  // namespace fiscalon::component
