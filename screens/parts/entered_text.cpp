#include "screens/parts/entered_text.h"

#include "core/resume_next.h"
#include "core/values/leading_number.h"
#include "core/values/text.h"

namespace fiscalon {

const std::string& TrimText(TextField& field) {
  field.Text(std::string(Trim(field.Text())));
  return field.Text();
}

double NumberIn(std::string_view text) {
  double number = 0;
  ResumeNext::Run([&] { number = LeadingNumber(text); });
  return number;
}

Money AmountIn(std::string_view text) {
  Money amount;
  ResumeNext::Run([&] { amount = Money::FromDouble(LeadingNumber(text)); });
  return amount;
}

}  // namespace fiscalon
