#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "core/session.h"

/// The properties that a host sets on a `Levyra`, by name, for scenarios and command lines.
namespace fiscalon {

/// What a property takes. A Boolean takes any number of 16 bits too, and a number is kept as it is.
enum class HostPropertyType { Text, Boolean, Byte, Float };

/// A property by its name in the host interface, and what it is, for people.
struct HostPropertyHelp {
  std::string_view name = {};
  std::string_view help = {};
  HostPropertyType type = HostPropertyType::Text;
};
std::vector<HostPropertyHelp> HostProperties();

/// What is wrong with a property's name or value (in UTF-8), or an empty text.
std::string ComplaintAboutHostProperty(std::string_view name, std::string_view value);

/// Sets a property that nothing is wrong with. Raises what the property raises.
void SetHostProperty(Levyra& session, std::string_view name, std::string_view value);

}  // namespace fiscalon
