#include "validation/payment_total.h"

#include <algorithm>
#include <numeric>

#include "core/module_state.h"
#include "core/remittance_period.h"
#include "core/resume_next.h"
#include "core/user_locale.h"
#include "core/values/leading_number.h"
#include "core/values/number_text.h"

namespace fiscalon {

void PaymentTotal::Keep(int addend, uint64_t cents) {
  const auto index = static_cast<size_t>(addend);
  cents_[index] = cents;
  if (cents > kLargestExact) {
    cents_[index] = kInexact;
    texts_[index] = NumberText(static_cast<double>(cents) / 100);
  }
}

void PaymentTotal::Keep(int addend, std::string_view value) {
  const auto index = static_cast<size_t>(addend);
  texts_[index] = NumberText(LeadingNumber(value) / 100);
  cents_[index] = kInexact;
}

bool PaymentTotal::PlainlyMakes(const Expectation& expected) const {
  if (expected.logging == Logging::Entries || TheModule().locale.decimal != "." ||
      std::find(cents_.begin(), cents_.end(), kInexact) != cents_.end())
    return false;
  const uint64_t total = std::accumulate(cents_.begin(), cents_.end(), uint64_t{0});
  return static_cast<double>(total) / 100 == expected.paymentAmount;
}

std::string PaymentTotal::Text(size_t addend) const {
  return cents_[addend] == kInexact ? texts_.at(addend) : NumberText(static_cast<double>(cents_[addend]) / 100);
}

bool PaymentTotal::Makes(const Expectation& expected) const {
  if (PlainlyMakes(expected))
    return true;
  const std::string a = Text(0), b = Text(1), c = Text(2), d = Text(3), e = Text(4);
  std::string total;
  if (expected.logging != Logging::None)
    RecalcFormQueRevSrcDeduct(total, a, b, c, d, e, Batch::Yes);
  else
    ResumeNext::Run([&] { total = Format(TotalQueRevSrcDeduct(a, b, c, d, e), "0.00"); });
  return Money::FromDouble(expected.paymentAmount) == Money::FromDouble(LeadingNumber(total));
}

}  // namespace fiscalon
