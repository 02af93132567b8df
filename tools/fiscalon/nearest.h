#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace fiscalon {

/// The known word that is nearest to one that is not known, as a mistyped one is: few letters are missing, doubled,
/// swapped or others. Empty where none is near. Upper and lower case count as the same letter.
std::string Nearest(std::string_view word, const std::vector<std::string>& known);

/// `; did you mean "play"?`, or nothing where no known word is near.
std::string DidYouMean(std::string_view word, const std::vector<std::string>& known);

}  // namespace fiscalon
