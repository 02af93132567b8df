#pragma once

#include <optional>
#include <string_view>

#include "core/platform/date.h"
#include "core/platform/toolkit.h"
#include "frontends/played/scenario.h"

/// What each line of a scenario may say.
namespace fiscalon {

/// What is wrong with a line, or an empty text: an unknown verb, too few arguments, a word that should be one of a
/// few, a number that is none.
std::string ComplaintAbout(const ScenarioLine& line);

/// "2026-06-15", and "13:05" or "13:05:09" behind it. Nothing for an impossible date or time.
std::optional<DateTime> ParseDateTime(std::string_view date, std::string_view time);

/// A whole number, decimal or 0x hexadecimal, perhaps with a "-".
std::optional<long long> ParseNumber(std::string_view text);

/// True or False in any case, or a number of 16 bits.
std::optional<int> ParseBoolean(std::string_view text);

/// A box as the line that expects it says it: "message critical "Invalid date value."", with its title if it has one.
std::string DescribedBox(const BoxRequest& box);

}  // namespace fiscalon
