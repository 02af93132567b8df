#pragma once

#include <string>

#include "core/forms/text_field.h"

namespace fiscalon {

/// Whether the user can type over a total.
enum class TotalLock { Locked, Open };

/// A total that the form calculates: right-aligned, no tab stop, locked unless the form says otherwise.
class CalculatedTotal : public TextField {
 public:
  CalculatedTotal(fiscalon::Form& form, std::string name, int tabIndex, TotalLock lock = TotalLock::Locked);

  /// Shows a sum of 64-bit floats as money with two decimals. Error 6 beyond `Money`.
  void Show(double sum);

  /// The number in the field, by `LeadingNumber`.
  double Amount() const;
};

}  // namespace fiscalon
