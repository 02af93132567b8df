#include "tools/fiscalon/nearest.h"

#include <algorithm>
#include <cctype>

namespace fiscalon {
namespace {

bool IsSameLetter(char a, char b) {
  return std::tolower(static_cast<unsigned char>(a)) == std::tolower(static_cast<unsigned char>(b));
}

/// How many letters must be put in, left out, replaced, or swapped with their neighbour to make one word of the other.
size_t Distance(std::string_view a, std::string_view b) {
  std::vector<std::vector<size_t>> steps(a.size() + 1, std::vector<size_t>(b.size() + 1));
  for (size_t i = 0; i <= a.size(); ++i) steps[i][0] = i;
  for (size_t j = 0; j <= b.size(); ++j) steps[0][j] = j;
  for (size_t i = 1; i <= a.size(); ++i)
    for (size_t j = 1; j <= b.size(); ++j) {
      const size_t other = IsSameLetter(a[i - 1], b[j - 1]) ? 0 : 1;
      steps[i][j] = std::min({steps[i - 1][j] + 1, steps[i][j - 1] + 1, steps[i - 1][j - 1] + other});
      if (i > 1 && j > 1 && IsSameLetter(a[i - 1], b[j - 2]) && IsSameLetter(a[i - 2], b[j - 1]))
        steps[i][j] = std::min(steps[i][j], steps[i - 2][j - 2] + 1);
    }
  return steps[a.size()][b.size()];
}

}  // namespace

std::string Nearest(std::string_view word, const std::vector<std::string>& known) {
  constexpr size_t kLongestWord = 64;
  if (word.size() > kLongestWord)
    return {};
  std::string nearest;
  // Half of a word's letters make another word, but one letter may always be missing.
  size_t least = std::max<size_t>(word.size() / 2 + 1, 2);
  for (const std::string& each : known)
    if (const size_t distance = Distance(word, each); distance < least) {
      least = distance;
      nearest = each;
    }
  return nearest;
}

std::string DidYouMean(std::string_view word, const std::vector<std::string>& known) {
  const std::string nearest = Nearest(word, known);
  return nearest.empty() ? "" : "; did you mean \"" + nearest + "\"?";
}

}  // namespace fiscalon
