#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <variant>

#include "core/forms/toolkit.h"

namespace fiscalon {

struct SeenBeep {};

/// A help page that was opened. The file's name is in the code page.
struct SeenHelp {
  std::string file = {};
  int32_t context = 0;
};

/// What the window of a box without a title of its own bears: the application's name.
constexpr std::string_view kApplicationTitle = "Fiscalon";

/// What a user is shown in passing, and a scenario must claim.
using SeenThing = std::variant<BoxRequest, SeenBeep, SeenHelp>;

// In the words of the line that expects it, in UTF-8, such as "message critical "Invalid date value."".
std::string DescribedBox(const BoxRequest& box);
std::string DescribedHelp(const std::string& file, int32_t context);
std::string Described(const SeenThing& thing);

/// CR LF, CR and LF alike stand for one line end.
std::string WithPlainLineEnds(std::string text);
/// In UTF-8; a blank that ends no line is one like any other: who writes a scenario sees no difference.
std::string WithPlainBlanks(std::string text);

}  // namespace fiscalon
