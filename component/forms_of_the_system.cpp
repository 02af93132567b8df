#include "component/forms_of_the_system.h"

#include "frontends/win32/win32_toolkit.h"

namespace fiscalon::component {

std::shared_ptr<Toolkit> FormsOfTheSystem() {
  return std::make_shared<Win32Toolkit>();
}

}  // namespace fiscalon::component
