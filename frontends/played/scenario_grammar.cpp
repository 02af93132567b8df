#include "frontends/played/scenario_grammar.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <charconv>
#include <chrono>
#include <cstdint>
#include <limits>

#include "core/forms/keys.h"
#include "core/platform/locale.h"
#include "frontends/played/host_properties.h"

namespace fiscalon {
namespace {

/// What may stand in an argument's place.
enum class Place {
  Text,
  Number,
  Position,
  Boolean,
  YesNo,
  Key,
  Style,
  Button,
  Reason,
  LocaleName,
  Date,
  Time,
  TitleWord
};

struct PlaceRow {
  Place place;
  std::string_view wanted;
  bool (*fits)(const std::string& argument);
};

template <size_t N>
bool IsOneOf(const std::string& word, const std::array<std::string_view, N>& words) {
  return std::find(words.begin(), words.end(), word) != words.end();
}

bool IsNumberBetween(const std::string& word, long long from, long long to) {
  const auto number = ParseNumber(word);
  return number && *number >= from && *number <= to;
}

constexpr std::array<std::string_view, 2> kYesNo = {"yes", "no"};
constexpr std::array<std::string_view, 5> kStyles = {"critical", "exclamation", "question", "information", "plain"};
constexpr std::array<std::string_view, 4> kButtons = {"OK", "Cancel", "Yes", "No"};

// clang-format off
constexpr std::array kPlaces = {
    PlaceRow{Place::Text,       "a text",                                             [](const std::string&) { return true; }},
    PlaceRow{Place::Number,     "a number of 32 bits",                                [](const std::string& word) { return IsNumberBetween(word, std::numeric_limits<int32_t>::min(), std::numeric_limits<uint32_t>::max()); }},
    PlaceRow{Place::Position,   "a number from 0 on",                                 [](const std::string& word) { return IsNumberBetween(word, 0, 1'000'000); }},
    PlaceRow{Place::Boolean,    "True or False",                                      [](const std::string& word) { return ParseBoolean(word).has_value(); }},
    PlaceRow{Place::YesNo,      "yes or no",                                          [](const std::string& word) { return IsOneOf(word, kYesNo); }},
    PlaceRow{Place::Key,        "a key: Tab, Shift+Tab, Enter, Escape, Backspace, Delete, Space, Left, Right, Up, Down, Home, End or Alt+LETTER",
                                                                                      [](const std::string& word) { return StrokeNamed(word).has_value(); }},
    PlaceRow{Place::Style,      "critical, exclamation, question, information or plain", [](const std::string& word) { return IsOneOf(word, kStyles); }},
    PlaceRow{Place::Button,     "OK, Cancel, Yes or No",                              [](const std::string& word) { return IsOneOf(word, kButtons); }},
    PlaceRow{Place::Reason,     "a close reason from 0 to 5",                         [](const std::string& word) { return IsNumberBetween(word, 0, 5); }},
    PlaceRow{Place::LocaleName, "a locale: en-CA, en-US, fr-CA or system",            [](const std::string& word) { return NamedLocale(word).has_value(); }},
    PlaceRow{Place::Date,       "a date such as 2026-06-15",                          [](const std::string& word) { return ParseDateTime(word, "").has_value(); }},
    PlaceRow{Place::Time,       "a time such as 13:05:09",                            [](const std::string& word) { return ParseDateTime("2026-01-01", word).has_value(); }},
    PlaceRow{Place::TitleWord,  "the word title",                                     [](const std::string& word) { return word == "title"; }},
};
// clang-format on

constexpr size_t kMostPlaces = 4;

/// One form that a line can have. `least` and `most` count arguments behind the words.
struct LineForm {
  std::string_view words;
  size_t least;
  size_t most;
  std::array<Place, kMostPlaces> places = {};
};

// clang-format off
constexpr std::array kLineForms = {
    LineForm{"today",            1, 2, {Place::Date, Place::Time}},
    LineForm{"locale",           1, 1, {Place::LocaleName}},
    LineForm{"host",             2, 2, {Place::Text, Place::Text}},
    LineForm{"show",             1, 1, {Place::Text}},
    LineForm{"type",             1, 1, {Place::Text}},
    LineForm{"key",              1, 1, {Place::Key}},
    LineForm{"focus",            1, 1, {Place::Text}},
    LineForm{"click",            1, 1, {Place::Text}},
    LineForm{"choose",           2, 2, {Place::Text, Place::Text}},
    LineForm{"paste",            1, 1, {Place::Text}},
    LineForm{"answer",           1, 1, {Place::Button}},
    LineForm{"close",            1, 1, {Place::Reason}},
    LineForm{"expect message",   2, 4, {Place::Style, Place::Text, Place::TitleWord, Place::Text}},
    LineForm{"expect beep",      0, 0, {}},
    LineForm{"expect help",      2, 2, {Place::Text, Place::Number}},
    LineForm{"expect focus",     1, 1, {Place::Text}},
    LineForm{"expect text",      2, 2, {Place::Text, Place::Text}},
    LineForm{"expect selection", 2, 2, {Place::Text, Place::Text}},
    LineForm{"expect enabled",   2, 2, {Place::Text, Place::YesNo}},
    LineForm{"expect visible",   2, 2, {Place::Text, Place::YesNo}},
    LineForm{"expect checked",   2, 2, {Place::Text, Place::YesNo}},
    LineForm{"expect locked",    2, 2, {Place::Text, Place::YesNo}},
    LineForm{"expect title",     1, 1, {Place::Text}},
    LineForm{"expect items",     2, 2, {Place::Text, Place::Position}},
    LineForm{"expect open",      1, 1, {Place::YesNo}},
    LineForm{"expect result",    1, 1, {Place::Boolean}},
    LineForm{"expect error",     3, 3, {Place::Number, Place::Text, Place::Text}},
    LineForm{"expect chosen",    1, 1, {Place::Boolean}},
    LineForm{"expect records",   1, 1, {Place::Position}},
    LineForm{"expect record",    2, 2, {Place::Position, Place::Text}},
    LineForm{"expect length",    2, 2, {Place::Position, Place::Position}},
    LineForm{"expect invoice",   4, 4, {Place::Position, Place::Text, Place::Text, Place::Text}},
    LineForm{"expect file",      2, 2, {Place::Text, Place::YesNo}},
};
// clang-format on

std::string ComplaintAboutPlace(Place place, const std::string& argument) {
  const auto row =
      std::find_if(kPlaces.begin(), kPlaces.end(), [&](const PlaceRow& each) { return each.place == place; });
  return row->fits(argument) ? std::string() : "expected " + std::string(row->wanted) + ", not \"" + argument + "\"";
}

std::string ComplaintAboutForm(const LineForm& form, std::span<const std::string> arguments) {
  // A title takes two arguments or none.
  const bool countFits = arguments.size() >= form.least && arguments.size() <= form.most &&
                         !(form.words == "expect message" && arguments.size() == 3);
  if (!countFits)
    return "\"" + std::string(form.words) + "\" takes " +
           (form.words == "expect message" ? std::string("a style, a text, and perhaps title and a title")
            : form.least == form.most
                ? std::to_string(form.least) + (form.least == 1 ? " argument" : " arguments")
                : std::to_string(form.least) + " or " + std::to_string(form.most) + " arguments") +
           ", not " + std::to_string(arguments.size());
  for (size_t i = 0; i < arguments.size(); ++i)
    if (std::string complaint = ComplaintAboutPlace(form.places[i], arguments[i]); !complaint.empty())
      return complaint;
  return form.words == "host" ? ComplaintAboutHostProperty(arguments[0], arguments[1]) : std::string();
}

}  // namespace

std::string ComplaintAbout(const ScenarioLine& line) {
  std::string words = line.verb;
  size_t first = 0;
  if (line.verb == "expect") {
    if (line.arguments.empty())
      return "\"expect\" needs to say what is expected";
    words += ' ' + line.arguments[0];
    first = 1;
  }
  for (const LineForm& form : kLineForms)
    if (form.words == words)
      return ComplaintAboutForm(form, std::span(line.arguments).subspan(first));
  return "\"" + words + "\" is nothing that a scenario can say";
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
