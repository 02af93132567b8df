#pragma once

#include <span>
#include <string_view>

namespace fiscalon {

/// The one of the offered words that a word was most likely meant to be: that with the fewest letters put in, left out
/// or replaced. Of two equally near it is the one with the same beginning. Upper and lower case count as the same
/// letter.
std::string_view NearestWord(std::string_view word, std::span<const std::string_view> offered);

}  // namespace fiscalon
