#pragma once

#include <span>
#include <string_view>

namespace fiscalon {

/// What a two-digit field number of a screen's F records stands for.
struct FieldName {
  std::string_view number = {};
  std::string_view name = {};
};

/// The fields that a screen's F records can hold, by number; empty for a screen that writes no F record and for a code
/// that is none.
std::span<const FieldName> FieldNamesOf(std::string_view screenCode);
/// The name of one of them; empty for a number that the screen does not use.
std::string_view FieldNameOf(std::string_view screenCode, std::string_view number);

}  // namespace fiscalon
