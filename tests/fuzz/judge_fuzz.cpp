// One payment from arbitrary bytes: the tables and short cuts say what the plain validator says.

#include <string>
#include <vector>

#include "core/host_setup.h"
#include "tests/fuzz/law.h"
#include "tests/support/plain_validator.h"
#include "validation/judge_payment.h"

namespace fiscalon {
namespace {

void Check(std::string_view input) {
  if (input.size() < 4)
    return;
  UseFixedClock({.date = {2026, 6, 15}});
  UseLocale(LocaleOf(static_cast<uint8_t>(input[0])));
  const int64_t cents = static_cast<unsigned char>(input[1]) * 100 + static_cast<unsigned char>(input[2]);
  BulkPayment payment{.screen = input[3] % 2 == 0 ? "03" : "20",
                      .biller = input[3] % 3 == 0 ? "001052" : "",
                      .amount = std::to_string(cents)};
  input.remove_prefix(4);
  while (!input.empty()) {
    const size_t end = input.find('\n');
    payment.records.emplace_back(input.substr(0, end));
    input.remove_prefix(end == input.npos ? input.size() : end + 1);
  }
  std::string reason;
  const bool valid = PaymentJudge().Judge({payment.screen, payment.biller, cents}, payment.Views(), reason);
  Law(valid == reason.empty(), "a reason stands where a payment is not valid");
  Law(reason == ReasonInPlainWords(payment), "the judge says what the plain validator says");
}

}  // namespace
}  // namespace fiscalon

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  fiscalon::Check(fiscalon::TextOf(data, size));
  return 0;
}
