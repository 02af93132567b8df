#pragma once

#include <memory>

#include "core/platform/toolkit.h"

namespace fiscalon::component {

/// The front end that shows forms to the users of hosts that have not installed another.
std::shared_ptr<Toolkit> FormsOfTheSystem();

}  // namespace fiscalon::component
