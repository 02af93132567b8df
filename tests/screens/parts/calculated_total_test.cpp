#include "screens/parts/calculated_total.h"

#include "tests/support/part_test.h"

namespace fiscalon {
namespace {

class TotalForm : public PartForm {
 public:
  CalculatedTotal txtTotal{*this, "txtTotal", 14};
  CalculatedTotal txtOpen{*this, "txtOpen", 16, TotalLock::Open};
};

using CalculatedTotalTest = PartTest<TotalForm>;

TEST_F(CalculatedTotalTest, IsNoTabStopAndLockedUnlessTheFormOpensIt) {
  EXPECT_TRUE(form.txtTotal.Locked());
  EXPECT_FALSE(form.txtOpen.Locked());
  EXPECT_EQ(form.txtOpen.Designed().tabIndex, 16);
  for (const CalculatedTotal* total : {&form.txtTotal, &form.txtOpen}) {
    EXPECT_FALSE(total->Designed().tabStop);
    EXPECT_EQ(total->Designed().alignment, Alignment::Right);
    EXPECT_EQ(total->MaxLength(), 12);
  }
}

TEST_F(CalculatedTotalTest, ShowsASumAsMoneyWithTwoDecimals) {
  form.txtTotal.Show(0.1 + 0.2);
  EXPECT_EQ(form.txtTotal.Text(), "0.30");
  form.txtTotal.Show(-50);
  EXPECT_EQ(form.txtTotal.Text(), "-50.00");
  EXPECT_EQ(form.txtTotal.Amount(), -50);
  // The sum becomes money, 1.005, before it is shown.
  form.txtTotal.Show(1.00499999);
  EXPECT_EQ(form.txtTotal.Text(), "1.01");
}

TEST_F(CalculatedTotalTest, RefusesASumBeyondMoney) {
  EXPECT_EQ(ErrorOf([&] { form.txtTotal.Show(1e20); }), 6);
}

}  // namespace
}  // namespace fiscalon
