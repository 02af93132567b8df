#pragma once

#include <string>

namespace fiscalon {

/// A check of options that name a file or a folder: an empty name, as an unset variable gives, is none. The complaint,
/// or nothing.
inline std::string NameGiven(const std::string& name) {
  return name.empty() ? "a name is needed, and it is empty" : "";
}

}  // namespace fiscalon
