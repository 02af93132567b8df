#pragma once

#include <string>

namespace fiscalon {

/// The plain text of a number under any locale: "0.05", "-1234.5", "1E+15", "3.33333333333333E-02". It has at
/// most 15 significant digits and "." as its point; a number that is too large, or would need more than 15
/// decimals, has an exponent. Error 6 for infinities and for what is no number.
std::string NumberText(double value);

/// The same without the zero before the point: ".05", "-.5".
std::string BareNumberText(double value);

}  // namespace fiscalon
