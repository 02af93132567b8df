#include "core/email_address.h"

#include <algorithm>

#include "core/values/text.h"

namespace fiscalon {

namespace {

constexpr std::string_view kForm = " e-mail address with the form 'name@example.com'.";

bool IsAlphanumeric(char c) {
  return IsDigit(c) || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
}

/// A run of the characters that a mailbox name is made of.
bool IsAtom(std::string_view text) {
  return !text.empty() && std::all_of(text.begin(), text.end(), [](char c) {
    return IsAlphanumeric(c) ||
           (c != '\0' && std::string_view("!#$%&'*+/=?^_`{|}~-").find(c) != std::string_view::npos);
  });
}

/// One name of a domain: letters and digits, and hyphens between them.
bool IsDomainLabel(std::string_view text) {
  return !text.empty() && IsAlphanumeric(text.front()) && IsAlphanumeric(text.back()) &&
         std::all_of(text.begin(), text.end(), [](char c) { return IsAlphanumeric(c) || c == '-'; });
}

/// Whether each of the parts between the dots passes, and there are enough of them.
bool AllParts(std::string_view text, size_t atLeast, bool (*passes)(std::string_view)) {
  size_t parts = 0;
  for (;;) {
    const size_t dot = text.find('.');
    if (!passes(text.substr(0, dot)))
      return false;
    ++parts;
    if (dot == std::string_view::npos)
      return parts >= atLeast;
    text.remove_prefix(dot + 1);
  }
}

}  // namespace

bool IsEmailAddress(std::string_view text) {
  const size_t at = text.find('@');
  return at != std::string_view::npos && AllParts(text.substr(0, at), 1, IsAtom) &&
         AllParts(text.substr(at + 1), 2, IsDomainLabel);
}

bool IsValidEmail(std::string_view text, std::string& message, [[maybe_unused]] Required required) {
  const std::string_view trimmed = Trim(text);
  if (trimmed.empty())
    return true;
  if (trimmed.size() < 5) {
    message = "Please enter a complete" + std::string(kForm);
    return false;
  }
  if (!IsEmailAddress(text)) {
    message = "Please enter a valid" + std::string(kForm);
    return false;
  }
  return true;
}

}  // namespace fiscalon
