#include "screens/parts/return_balance.h"

#include "tests/support/part_test.h"

namespace fiscalon {
namespace {

using testing::ElementsAre;

class BalanceForm : public PartForm {
 public:
  PaymentHead head{*this};
  TextField txtBalance{*this, "txtBalance", {.tabIndex = 0}};
  TextField txtFirst{*this, "txtFirst", {.tabIndex = 1}};
};

class ReturnBalance : public PartTest<BalanceForm> {
 protected:
  Balance Tested(std::string_view balance, std::string_view paid) {
    form.txtBalance.Text(balance);
    form.head.AmountPaid.Caption(AsGiven(std::string(paid)));
    return TestBalance(form.txtBalance, form.head, form.txtFirst);
  }

  static constexpr const char* kRefund =
      "If the Amount Payable is less than zero, the Amount to be paid must be zero (0.00).";
  static constexpr const char* kPayment = "The Amount Payable must match the Amount to be paid.";
};

TEST_F(ReturnBalance, IsThePaymentOrARefundForNothing) {
  EXPECT_EQ(Tested("12.34", "$12.34"), Balance::Payment);
  EXPECT_EQ(Tested("0.00", "$0.00"), Balance::Payment);
  EXPECT_EQ(Tested("-12.34", "$0.00"), Balance::Refund);
  EXPECT_TRUE(toolkit.boxes.empty());
}

TEST_F(ReturnBalance, IsRefusedWithABoxAndTheFocus) {
  WhileUp([&](FormUser&) {
    EXPECT_EQ(Tested("12.34", "$12.35"), Balance::Refused);
    EXPECT_EQ(FocusName(), "txtFirst");
    EXPECT_EQ(Tested("-0.01", "$0.01"), Balance::Refused);
  });
  EXPECT_EQ(toolkit.boxes.front().style, MessageStyle::Critical);
  EXPECT_THAT(TakeTexts(), ElementsAre(kPayment, kRefund));
}

TEST_F(ReturnBalance, ThatIsNoAmountIsJudgedAsARefund) {
  EXPECT_EQ(Tested("", "$0.00"), Balance::Refund);
  EXPECT_EQ(Tested("", "$1.00"), Balance::Refused);
  EXPECT_THAT(TakeTexts(), ElementsAre(kRefund));
}

TEST_F(ReturnBalance, IsRefusedWhereNoPaymentWasEverSet) {
  EXPECT_EQ(Tested("-1.00", ""), Balance::Refused);
  EXPECT_EQ(Tested("0.00", ""), Balance::Refused);
  EXPECT_THAT(TakeTexts(), ElementsAre(kRefund, kPayment));
}

TEST_F(ReturnBalance, AmountsAreComparedAsTheLocaleReadsThem) {
  form.head.AmountPaid.Caption("$1,234.50");
  for (const char* same : {"1234.5", "1,234.50", " $1234.50 "}) {
    form.txtBalance.Text(same);
    EXPECT_TRUE(IsAmountToBePaid(form.txtBalance, form.head)) << same;
  }
  for (const char* other : {"1234.51", "", "x", "-1234.50"}) {
    form.txtBalance.Text(other);
    EXPECT_FALSE(IsAmountToBePaid(form.txtBalance, form.head)) << other;
  }
}

}  // namespace
}  // namespace fiscalon
