#pragma once

#include <string_view>

namespace fiscalon {

/// The number at the start of a text, whatever follows it: "12.5abc" is 12.5, "1,234" is 1, "abc" and "" are 0.
/// The point is always "."; blanks, tabs and line feeds are passed over wherever they stand. One sign may lead,
/// and an exponent (e or E) counts as far as it goes: "12e" is 12. Error 6 beyond the range of a 64-bit float;
/// what is too small for one is 0.
double LeadingNumber(std::string_view text);

}  // namespace fiscalon
