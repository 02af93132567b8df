#pragma once

#include <string>
#include <string_view>

#include "frontends/played/scenario.h"

namespace fiscalon {

/// What the reader says of a text that it refuses.
inline std::string Complaint(std::string_view text) {
  try {
    ParseScenarios("s", text);
  } catch (const ScenarioError& error) {
    return error.what();
  }
  return "no complaint";
}

}  // namespace fiscalon
