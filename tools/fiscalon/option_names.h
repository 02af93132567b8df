#pragma once

#include <algorithm>
#include <charconv>
#include <limits>
#include <optional>
#include <string>
#include <type_traits>
#include <vector>

#include "core/platform/utf8_path.h"
#include "tools/fiscalon/nearest.h"

/// Checks of what options are given. Each answers the complaint, or nothing.
namespace fiscalon {

/// Of options that name a file or a folder: an empty name, as an unset variable gives, is none.
inline std::string NameGiven(const std::string& name) {
  return name.empty() ? "a name is needed, and it is empty" : "";
}

/// Of options that name files without their endings: a folder alone would make hidden files of these.
inline std::string NameStemGiven(const std::string& name) {
  const std::string last = Utf8Of(Utf8Path(name).filename());
  if (!name.empty() && (last.empty() || last == "." || last == ".."))
    return "a name is needed behind the folder \"" + name + "\"";
  return NameGiven(name);
}

/// The number that a whole text is. CLI11 by itself takes "-1" for the largest whole number there is, and "nan" for a
/// number in any range.
template <typename Number>
std::optional<Number> NumberIn(const std::string& text) {
  Number number = {};
  const char* const end = text.data() + text.size();
  const auto [stop, error] = std::from_chars(text.data(), end, number);
  return error == std::errc{} && stop == end ? std::optional(number) : std::nullopt;
}

/// Of options that take a number out of a range, both ends included.
template <typename Number>
class NumberFrom {
 public:
  explicit NumberFrom(Number least, Number most = std::numeric_limits<Number>::max()) : least_(least), most_(most) {}

  std::string operator()(const std::string& text) const {
    const std::optional<Number> number = NumberIn<Number>(text);
    // What is no number at all is neither less nor more.
    if (number && *number >= least_ && *number <= most_)
      return {};
    std::string complaint = "\"" + text + "\" is no " + kNumber + " from " + Shown(least_);
    if (most_ < std::numeric_limits<Number>::max())
      complaint += " to " + Shown(most_);
    else if (number == std::nullopt && !text.empty() && text.find_first_not_of("0123456789") == text.npos)
      complaint += " that there is room for";
    return complaint;
  }

 private:
  static constexpr const char* kNumber = std::is_integral_v<Number> ? "whole number" : "number";

  static std::string Shown(Number number) {
    char text[32];
    return {text, std::to_chars(text, text + sizeof text, number).ptr};
  }

  Number least_;
  Number most_;
};

/// Words with commas between them.
inline std::string Listed(const std::vector<std::string>& words) {
  std::string all;
  for (const std::string& word : words) all.append(all.empty() ? "" : ", ").append(word);
  return all;
}

/// Of options that take one of a few words.
class OneOf {
 public:
  explicit OneOf(std::vector<std::string> known) : known_(std::move(known)) {}

  std::string operator()(const std::string& given) const {
    if (std::find(known_.begin(), known_.end(), given) != known_.end())
      return {};
    return "\"" + given + "\" is none of " + Listed(known_) + DidYouMean(given, known_);
  }

 private:
  std::vector<std::string> known_;
};

}  // namespace fiscalon
