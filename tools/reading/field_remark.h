#pragma once

#include <string>

#include "core/platform/locale.h"
#include "tools/reading/record_meaning.h"

namespace fiscalon {

/// Writes amounts of money as a locale does, in UTF-8: "$1,234.50".
class MoneyWords {
 public:
  explicit MoneyWords(const Locale& locale);

  /// Appends an amount of cents. One that is beyond what amounts of money can be stands as plain dollars.
  void Append(std::string& out, const SignedDigits& cents) const;

 private:
  std::string decimal_;
  std::string group_;
  std::string positivePrefix_;
  std::string positiveSuffix_;
  std::string negativePrefix_;
  std::string negativeSuffix_;
};

/// Appends what stands in a field, in words for the user (UTF-8): "11 of 30 characters", "12345, as cents $123.45".
void AppendRemark(std::string& out, const ShownField& field, std::string_view text, const MoneyWords& money);
std::string RemarkOn(const ShownRecord& record, const ShownField& field, const Locale& locale);

/// What is always blank is passed over, unless something stands in it.
bool IsWorthALine(const ShownField& field);

}  // namespace fiscalon
