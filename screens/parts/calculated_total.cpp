#include "screens/parts/calculated_total.h"

#include <utility>

#include "core/user_locale.h"
#include "core/values/leading_number.h"

namespace fiscalon {

CalculatedTotal::CalculatedTotal(fiscalon::Form& form, std::string name, int tabIndex, TotalLock lock)
    : TextField(form, std::move(name),
                {.tabIndex = tabIndex,
                 .maxLength = 12,
                 .alignment = Alignment::Right,
                 .tabStop = false,
                 .locked = lock == TotalLock::Locked}) {}

void CalculatedTotal::Show(double sum) {
  Text(Format(Money::FromDouble(sum), "0.00"));
}

double CalculatedTotal::Amount() const {
  return LeadingNumber(Text());
}

}  // namespace fiscalon
