#pragma once

#include <string>
#include <string_view>

#include "core/forms/text_field.h"
#include "screens/parts/asked.h"
#include "screens/parts/validation_guard.h"

namespace fiscalon {

/// Whether a business number is all digits, and these agree with their check digit.
bool ValidateGSTAccountNumber(std::string_view number);

/// A GST account number, such as 123456782RT0001: a CRA business number with its program. Letters become capitals as
/// they are typed; the number is checked when it is left.
class AccountNumber : public TextField {
 public:
  AccountNumber(fiscalon::Form& form, std::string name, const FieldDesign& design, ValidationGuard& guard,
                Asked<Control*> next);

 private:
  static FieldEvents EventsOf(AccountNumber* self);
  static void KeyPressed(int& character);
  /// Shows its own message.
  bool CheckGSTAccountField() const;

  ValidationGuard& guard_;
  Asked<Control*> next_;
};

}  // namespace fiscalon
