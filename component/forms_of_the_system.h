#pragma once

#include <memory>

namespace fiscalon {
class Toolkit;
}

namespace fiscalon::component {

/// The front end that shows forms to the users of hosts that have not installed another.
std::shared_ptr<Toolkit> FormsOfTheSystem();

}  // namespace fiscalon::component
