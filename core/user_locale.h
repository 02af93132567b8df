#pragma once

#include <string>
#include <string_view>

#include "core/module_state.h"
#include "core/values/format.h"
#include "core/values/integers.h"
#include "core/values/money.h"
#include "core/values/to_money.h"

/// The value conversions as the user's locale decides them. Screens and rules call these; the conversions
/// themselves, with the locale as an argument, stand in core/values.
namespace fiscalon {

inline Money ToMoney(std::string_view text) {
  return ToMoney(text, TheModule().locale);
}
inline bool IsNumeric(std::string_view text) {
  return IsNumeric(text, TheModule().locale);
}
inline int16_t ToInt16(std::string_view text) {
  return ToInt16(text, TheModule().locale);
}

inline std::string Format(double value, std::string_view pattern) {
  return Format(value, pattern, TheModule().locale);
}
inline std::string Format(Money value, std::string_view pattern) {
  return Format(value, pattern, TheModule().locale);
}
inline std::string Format(std::string_view text, std::string_view pattern) {
  return Format(text, pattern, TheModule().locale);
}

inline Date Today() {
  return TheModule().clock->Today();
}

}  // namespace fiscalon
