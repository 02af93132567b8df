#include <algorithm>
#include <cmath>
#include <string>

#include "core/values/leading_number.h"
#include "core/values/money.h"
#include "core/values/number_text.h"
#include "tests/fuzz/law.h"

namespace fiscalon {
namespace {

/// Whether the C library reads the text by the same rules: it knows words and hexadecimal numbers besides, and
/// skips white space of more kinds.
bool ReadsAlike(const std::string& text) {
  const size_t start = !text.empty() && (text[0] == '-' || text[0] == '+') ? 1 : 0;
  if (start >= text.size() || (text[start] != '.' && (text[start] < '0' || text[start] > '9')))
    return false;
  return start + 1 >= text.size() || (text[start + 1] != 'x' && text[start + 1] != 'X');
}

void CheckText(std::string_view text) {
  const std::optional<double> number = ResultOf([&] { return LeadingNumber(text); }, error_number::kOverflow);

  std::string cleaned;
  std::copy_if(text.begin(), text.end(), std::back_inserter(cleaned),
               [](char c) { return c != ' ' && c != '\t' && c != '\n'; });
  Law(ResultOf([&] { return LeadingNumber(cleaned); }, error_number::kOverflow) == number, "blanks do not count");
  if (ReadsAlike(cleaned)) {
    const double expected = std::strtod(cleaned.c_str(), nullptr);
    Law(std::isinf(expected) ? !number : number == expected, "the number is the one the C library reads");
  }
  if (!number)
    return;

  const std::string shown = NumberText(*number);
  const std::optional<double> back = ResultOf([&] { return LeadingNumber(shown); }, error_number::kOverflow);
  Law(!back || NumberText(*back) == shown, "a number's text is the text of what it reads as");
  Law(!back || LeadingNumber(BareNumberText(*number)) == *back, "the zero before the point does not count");
  ResultOf([&] { return Money::FromDouble(*number); }, error_number::kOverflow);
}

}  // namespace
}  // namespace fiscalon

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  fiscalon::CheckText(fiscalon::TextOf(data, size));
  return 0;
}
