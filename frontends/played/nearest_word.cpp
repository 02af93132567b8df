#include "frontends/played/nearest_word.h"

#include <algorithm>
#include <cctype>
#include <numeric>
#include <string>
#include <utility>
#include <vector>

namespace fiscalon {
namespace {

std::string Lower(std::string_view text) {
  std::string lower(text);
  std::transform(lower.begin(), lower.end(), lower.begin(),
                 [](unsigned char letter) { return static_cast<char>(std::tolower(letter)); });
  return lower;
}

/// How many letters must be put in, taken out or replaced to make one word of the other.
size_t LettersApart(std::string_view a, std::string_view b) {
  std::vector<size_t> row(b.size() + 1);
  std::iota(row.begin(), row.end(), size_t{0});
  for (const char letter : a) {
    size_t diagonal = row[0]++;
    for (size_t i = 0; i < b.size(); ++i) {
      const size_t replaced = diagonal + (letter == b[i] ? 0 : 1);
      diagonal = row[i + 1];
      row[i + 1] = std::min({replaced, row[i] + 1, row[i + 1] + 1});
    }
  }
  return row.back();
}

}  // namespace

std::string_view NearestWord(std::string_view word, std::span<const std::string_view> offered) {
  // None is near to a word that is much longer than any.
  constexpr size_t kLongest = 32;
  const std::string wanted = Lower(word.substr(0, kLongest));
  std::string_view nearest;
  auto least = std::pair(std::string_view::npos, true);
  for (const std::string_view each : offered) {
    const std::string known = Lower(each);
    const auto apart = std::pair(LettersApart(wanted, known), wanted.substr(0, 1) != known.substr(0, 1));
    if (apart >= least)
      continue;
    least = apart;
    nearest = each;
  }
  return nearest;
}

}  // namespace fiscalon
