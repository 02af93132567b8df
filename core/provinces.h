#pragma once

#include "core/forms/list_control.h"

namespace fiscalon {

/// Fills a list with the two-letter codes of the provinces and territories, in alphabetical order, and leaves nothing
/// selected. What the list held before is gone.
void LoadProvinces(ListControl& list);

}  // namespace fiscalon
