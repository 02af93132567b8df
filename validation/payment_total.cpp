#include "validation/payment_total.h"

#include "core/module_state.h"
#include "core/quebec_source_deductions.h"
#include "core/resume_next.h"
#include "core/user_locale.h"
#include "core/values/leading_number.h"
#include "core/values/number_text.h"

namespace fiscalon {

void PaymentTotal::Keep(int addend, std::string_view value) {
  texts_[static_cast<size_t>(addend)] = NumberText(LeadingNumber(value) / 100);
}

bool PaymentTotal::Equals(const Expectation& expected, std::string& total) const {
  const auto& [a, b, c, d, e] = texts_;
  total.clear();
  if (expected.logging != Logging::None)
    RecalcFormQueRevSrcDeduct(total, a, b, c, d, e, Batch::Yes);
  else
    ResumeNext::Run(
        [&] { total = Format(TotalQueRevSrcDeduct(texts_[0], texts_[1], texts_[2], texts_[3], texts_[4]), "0.00"); });
  return Money::FromDouble(expected.paymentAmount) == Money::FromDouble(LeadingNumber(total));
}

bool QuickTotal::IsReadBackAsWritten() {
  return TheModule().locale.decimal == ".";
}

}  // namespace fiscalon
