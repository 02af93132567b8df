#pragma once

#include <ole2.h>

#include <cstdint>
#include <string>
#include <variant>

namespace fiscalon::component {

/// A member's position, from 1, or its key.
using IndexKey = std::variant<int32_t, std::string>;

/// What a host means by `vntIndexKey`: a number of any kind is a position, rounded to a whole one, a text is a key; by
/// value or by reference, as a script passes its variables. Error 9 for a number that no position can be, 13 for
/// anything else.
IndexKey ReadIndexKey(const VARIANT& given);

}  // namespace fiscalon::component
