#include <gtest/gtest.h>

#include <cstdlib>
#include <map>

#include "core/module_to_change.h"
#include "tests/support/logged_test.h"
#include "tests/support/plain_validator.h"
#include "tests/support/random_payments.h"
#include "validation/judge_payment.h"
#include "validation/validate_add_info.h"

namespace fiscalon {
namespace {

/// How many payments are compared: more where the environment asks for more.
int PaymentsToCompare() {
  const bool atLength = std::getenv("FISCALON_LONG") != nullptr;
  return atLength ? 1'000'000 : 20'000;
}

class ThreeJudges : public LoggedTest {
 protected:
  void Compare(int payments, uint64_t seed) {
    RandomPayments random(seed);
    const PaymentJudge judge;
    clsValidateAddInfo validator;
    std::string reason;
    int valid = 0;
    for (int i = 0; i < payments; ++i) {
      const BulkPayment payment = random.Next();
      const std::string expected = ReasonInPlainWords(payment);
      reason.clear();
      const PaymentFigures figures{payment.screen, payment.biller, std::atoll(payment.amount.c_str())};
      const bool passes = judge.Judge(figures, payment.Views(), reason);
      ASSERT_EQ(reason, expected) << Told(payment);
      if (i % 4 == 0) {
        ASSERT_EQ(MessagesOf(judge.FaultsOf(figures, payment.Views())), expected) << Told(payment);
      }
      ASSERT_EQ(passes, expected.empty()) << Told(payment);
      validator.ScreenCode(payment.screen);
      validator.BillerCode(payment.biller);
      validator.PaymentAmount(payment.amount);
      validator.PC4Records(payment.Collection());
      ASSERT_EQ(validator.IsInfoValid(), expected.empty()) << Told(payment);
      ASSERT_EQ(validator.InvalidReason(), expected) << Told(payment);
      valid += expected.empty() ? 1 : 0;
    }
    // Not all of one kind, or nothing was compared.
    EXPECT_GT(valid, payments / 10);
    EXPECT_LT(valid, payments * 9 / 10);
  }

  static std::string MessagesOf(const std::vector<Fault>& faults) {
    std::string messages;
    for (const Fault& fault : faults) messages += (messages.empty() ? "" : ", ") + fault.message;
    return messages;
  }

  static std::string Told(const BulkPayment& payment) {
    std::string told = "screen " + payment.screen + " biller " + payment.biller + " amount " + payment.amount + "\n";
    for (const std::string& record : payment.records) told += record + "\n";
    return told;
  }
};

TEST_F(ThreeJudges, AgreeOnVerdictAndReason) {
  Compare(PaymentsToCompare(), 1);
}

TEST_F(ThreeJudges, AgreeUnderACommaLocale) {
  SetLocale(FrenchCanada());
  Compare(PaymentsToCompare() / 10, 2);
}

TEST_F(ThreeJudges, AgreeWhileThePlayByPlayIsOn) {
  ModuleToChange().playByPlayEnabled = -1;
  Compare(500, 3);
}

}  // namespace
}  // namespace fiscalon
