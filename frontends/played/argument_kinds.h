#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "core/platform/date.h"

/// What may stand in an argument's place, and how it is read.
namespace fiscalon {

struct ArgumentKind {
  /// As the usage of a line names it.
  std::string_view name = {};
  /// What was expected where an argument does not fit.
  std::string_view wanted = {};
  /// Null for a kind that every text fits.
  bool (*fits)(const std::string& argument) = nullptr;
};

// clang-format off
namespace argument {
extern const ArgumentKind kText, kTitle, kName, kDollarName, kControl, kPath, kCode, kProperty, kValue, kFile, kSource, kDescription,
                          kMemberDate, kAmount, kDate, kTime, kLocale, kLanguage, kKey, kButton, kReason, kStyle, kTitleWord, kYesNo, kTrueFalse, kNumber,
                          kContext, kPosition, kCount;
}  // namespace argument
// clang-format on

/// The name that begins there with its dollar, such as "$FROM"; empty where none does.
std::string_view DollarNameAt(std::string_view text, size_t at);

/// "2026-06-15", and "13:05" or "13:05:09" behind it. Nothing for an impossible date or time.
std::optional<DateTime> ParseDateTime(std::string_view date, std::string_view time);

/// A whole number, decimal or 0x hexadecimal, perhaps with a "-".
std::optional<long long> ParseNumber(std::string_view text);

/// True or False in any case, or a number of 16 bits.
std::optional<int> ParseBoolean(std::string_view text);

}  // namespace fiscalon
