#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "core/wording/language.h"

namespace fiscalon {

/// What a user is to read: a text of the catalogue, or one of the user's and the host's own (`AsGiven`). Code compares
/// and logs the English of it, and front ends show it in the language of the form:
///
///     lblAmountPayable.Caption("Amount payable:");
///     Refuse(Box[i], Filled("Please enter Box {1} field.", AsGiven(NumberOf(i))));
class Wording {
 public:
  Wording() = default;
  // A literal becomes one by itself, and nothing else does: what is put together of texts has no words in the
  // catalogue.
  Wording(const char* text) : text_(text) {}
  Wording(std::string_view text) : text_(text) {}
  Wording(const std::string&) = delete;

  bool IsEmpty() const { return text_.empty(); }
  std::string English() const { return In({}); }
  std::string In(const Language& language) const;

 private:
  friend Wording AsGiven(std::string text);
  friend Wording Filled(std::string_view text, std::vector<Wording> places);

  std::string text_;
  bool isGiven_ = false;
  std::vector<Wording> places_;
};

/// A name, an amount, a date: the same in every language.
Wording AsGiven(std::string text);

/// A text of the catalogue with what its places hold, "{1}" the first one, which may be another such text.
Wording Filled(std::string_view text, std::vector<Wording> places);

template <class... Places>
Wording Filled(std::string_view text, const Wording& first, const Places&... others) {
  return Filled(text, std::vector<Wording>{first, Wording(others)...});
}

}  // namespace fiscalon
