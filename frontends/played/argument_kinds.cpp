#include "frontends/played/argument_kinds.h"

#include <algorithm>
#include <cctype>
#include <charconv>
#include <chrono>
#include <cstdint>
#include <initializer_list>
#include <limits>

#include "core/forms/keys.h"
#include "core/platform/locale.h"
#include "core/values/text.h"
#include "core/wording/language.h"

namespace fiscalon {
namespace {

bool IsOneOf(const std::string& word, std::initializer_list<std::string_view> words) {
  return std::find(words.begin(), words.end(), word) != words.end();
}

bool IsNumberBetween(const std::string& word, long long from, long long to) {
  const auto number = ParseNumber(word);
  return number && *number >= from && *number <= to;
}

bool IsNumberOf32Bits(const std::string& word) {
  return IsNumberBetween(word, std::numeric_limits<int32_t>::min(), std::numeric_limits<uint32_t>::max());
}

bool IsCount(const std::string& word) {
  return IsNumberBetween(word, 0, 1'000'000);
}

/// Scenarios are reported by name, one line each.
bool IsName(const std::string& word) {
  return !word.empty() && std::none_of(word.begin(), word.end(), [](unsigned char each) { return each < ' '; });
}

bool IsDollarName(const std::string& word) {
  return word.size() > 1 && DollarNameAt(word, 0).size() == word.size();
}

}  // namespace

// clang-format off
namespace argument {
const ArgumentKind kText        {"TEXT"};
const ArgumentKind kTitle       {"TITLE"};
const ArgumentKind kName        {"NAME",        "a name of one line",                     IsName};
const ArgumentKind kDollarName  {"$NAME",       "a name such as $FROM, of a dollar, a letter, and letters, digits or _", IsDollarName};
const ArgumentKind kControl     {"CONTROL"};
const ArgumentKind kPath        {"PATH"};
const ArgumentKind kCode        {"CODE"};
const ArgumentKind kProperty    {"PROPERTY"};
const ArgumentKind kValue       {"VALUE"};
const ArgumentKind kFile        {"FILE"};
const ArgumentKind kSource      {"SOURCE"};
const ArgumentKind kDescription {"DESCRIPTION"};
const ArgumentKind kMemberDate {"DATE"};
const ArgumentKind kAmount      {"AMOUNT"};
const ArgumentKind kDate        {"DATE",        "a date such as 2026-06-15",              [](const std::string& word) { return ParseDateTime(word, "").has_value(); }};
const ArgumentKind kTime        {"TIME",        "a time such as 13:05:09",                [](const std::string& word) { return ParseDateTime("2026-01-01", word).has_value(); }};
const ArgumentKind kLocale      {"NAME",        "a locale: en-CA, en-US, fr-CA or system", [](const std::string& word) { return NamedLocale(word).has_value(); }};
const ArgumentKind kLanguage    {"NAME",        "a language: en or fr",                   [](const std::string& word) { return NamedLanguage(word).has_value(); }};
const ArgumentKind kKey         {"NAME",        "a key: Tab, Shift+Tab, Enter, Escape, Backspace, Delete, Space, Left, Right, Up, Down, Home, End, Shift+Enter, Ctrl+Enter or Alt+LETTER",
                                                                                          [](const std::string& word) { return StrokeNamed(word).has_value(); }};
const ArgumentKind kButton      {"BUTTON",      "OK, Cancel, Yes or No",                  [](const std::string& word) { return IsOneOf(word, {"OK", "Cancel", "Yes", "No"}); }};
const ArgumentKind kReason      {"REASON",      "a close reason from 0 to 5",             [](const std::string& word) { return IsNumberBetween(word, 0, 5); }};
const ArgumentKind kStyle       {"STYLE",       "critical, exclamation, question, information or plain",
                                                                                          [](const std::string& word) { return IsOneOf(word, {"critical", "exclamation", "question", "information", "plain"}); }};
const ArgumentKind kTitleWord   {"title",       "the word title",                         [](const std::string& word) { return word == "title"; }};
const ArgumentKind kYesNo       {"yes|no",      "yes or no",                              [](const std::string& word) { return IsOneOf(word, {"yes", "no"}); }};
const ArgumentKind kTrueFalse   {"True|False",  "True or False",                          [](const std::string& word) { return ParseBoolean(word).has_value(); }};
const ArgumentKind kNumber      {"NUMBER",      "a number of 32 bits",                    IsNumberOf32Bits};
const ArgumentKind kContext     {"CONTEXT",     "a number of 32 bits",                    IsNumberOf32Bits};
const ArgumentKind kPosition    {"I",           "a number from 0 on",                     IsCount};
const ArgumentKind kCount       {"N",           "a number from 0 on",                     IsCount};
}  // namespace argument
// clang-format on

std::string_view DollarNameAt(std::string_view text, size_t at) {
  const auto isLetter = [](char each) { return (each >= 'A' && each <= 'Z') || (each >= 'a' && each <= 'z'); };
  const auto isOfName = [&](char each) { return isLetter(each) || IsDigit(each) || each == '_'; };
  const std::string_view rest = text.substr(std::min(at, text.size()));
  if (rest.size() < 2 || rest[0] != '$' || !isLetter(rest[1]))
    return {};
  const auto end = std::find_if_not(rest.begin() + 1, rest.end(), isOfName);
  return rest.substr(0, static_cast<size_t>(end - rest.begin()));
}

std::optional<DateTime> ParseDateTime(std::string_view date, std::string_view time) {
  const auto number = [](std::string_view text, size_t from, size_t length) {
    int value = -1;
    const std::string_view digits = from < text.size() ? text.substr(from, length) : std::string_view();
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), value);
    const bool whole = error == std::errc() && end == digits.data() + digits.size() && digits.size() == length;
    return whole && digits.front() != '-' ? value : -1;
  };
  if (date.size() != 10 || date[4] != '-' || date[7] != '-')
    return std::nullopt;
  const int year = number(date, 0, 4), month = number(date, 5, 2), day = number(date, 8, 2);
  if (year < 100 || month < 0 || day < 0 ||
      !std::chrono::year_month_day(std::chrono::year(year), std::chrono::month(static_cast<unsigned>(month)),
                                   std::chrono::day(static_cast<unsigned>(day)))
           .ok())
    return std::nullopt;
  DateTime result{.date = {.year = year, .month = month, .day = day}};
  if (time.empty())
    return result;
  const bool hasSeconds = time.size() == 8 && time[5] == ':';
  if ((!hasSeconds && time.size() != 5) || time[2] != ':')
    return std::nullopt;
  result.hour = number(time, 0, 2);
  result.minute = number(time, 3, 2);
  result.second = hasSeconds ? number(time, 6, 2) : 0;
  const bool possible = result.hour >= 0 && result.hour < 24 && result.minute >= 0 && result.minute < 60 &&
                        result.second >= 0 && result.second < 60;
  return possible ? std::optional(result) : std::nullopt;
}

std::optional<long long> ParseNumber(std::string_view text) {
  const bool negative = text.starts_with('-');
  if (negative)
    text.remove_prefix(1);
  const bool hexadecimal = text.starts_with("0x") || text.starts_with("0X");
  if (hexadecimal)
    text.remove_prefix(2);
  long long value = 0;
  if (text.empty() || text.front() == '-')
    return std::nullopt;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value, hexadecimal ? 16 : 10);
  if (error != std::errc() || end != text.data() + text.size())
    return std::nullopt;
  return negative ? -value : value;
}

std::optional<int> ParseBoolean(std::string_view text) {
  std::string lower(text);
  std::transform(lower.begin(), lower.end(), lower.begin(),
                 [](unsigned char letter) { return static_cast<char>(std::tolower(letter)); });
  if (lower == "true")
    return -1;
  if (lower == "false")
    return 0;
  const auto number = ParseNumber(text);
  if (!number || *number < -32768 || *number > 32767)
    return std::nullopt;
  return static_cast<int>(*number);
}

}  // namespace fiscalon
