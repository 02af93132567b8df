#pragma once

#include <string_view>

#include "core/platform/locale.h"

namespace fiscalon {

/// What stands between the digits of a number. Points into its locale.
struct Separators {
  std::string_view decimal = {};
  /// Between groups; may be empty.
  std::string_view group = {};

  friend bool operator==(const Separators&, const Separators&) = default;
};

inline Separators SeparatorsOfNumbers(const Locale& locale) {
  return {locale.decimal, locale.group};
}

inline Separators SeparatorsOfMoney(const Locale& locale) {
  return {locale.moneyDecimal ? *locale.moneyDecimal : locale.decimal,
          locale.moneyGroup ? *locale.moneyGroup : locale.group};
}

}  // namespace fiscalon
