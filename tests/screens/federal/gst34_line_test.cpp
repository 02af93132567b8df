#include "screens/federal/gst34_line.h"

#include <gtest/gtest.h>

#include "tests/screens/federal/gst34_entries.h"
#include "tests/support/raises.h"

namespace fiscalon::gst34_line_test {
namespace {

class Gst34Lines : public ScreenTest {
 protected:
  Gst34Lines() {
    session.PaidAmount("12345");
    frontEnd.onBeep = [this] { ++beeps; };
  }

  int beeps = 0;
};

TEST_F(Gst34Lines, NetTaxIsOneDigitWiderThanRefundAndPayment) {
  Show<GOVGST34>("05", [&](GOVGST34& form, UserDriver& user) {
    SetNetTax(form, "123456789.00", "0.00");
    user.PressMouse(form.TotalGST);
    user.PressMouse(form.NetTax);
    EXPECT_EQ(form.NetTax.Text(), "123456789.00");
    EXPECT_EQ(form.PaymentEnclosed.Text(), "123456789.00");
    form.NetTax.Select({.start = 0});
    Type(user, "1");
    EXPECT_EQ(beeps, 0);
    user.PressMouse(form.PaymentEnclosed);
    form.PaymentEnclosed.Select({.start = 0});
    Type(user, "1");
    EXPECT_EQ(beeps, 1);
    SetNetTax(form, "0.00", "123456789.00");
    user.PressMouse(form.TotalITCs);
    user.PressMouse(form.RefundAmount);
    EXPECT_EQ(form.RefundAmount.Text(), "123456789.00");
    form.RefundAmount.Select({.start = 0});
    Type(user, "1");
    EXPECT_EQ(beeps, 2);
    EXPECT_EQ(form.RefundAmount.Text(), "123456789.00");
  });
}

TEST_F(Gst34Lines, NegativeNetTaxHasRoomForItsSign) {
  Show<GOVGST34>("05", [&](GOVGST34& form, UserDriver& user) {
    SetNetTax(form, "0.00", "1234567890.00");
    user.PressMouse(form.TotalITCs);
    user.PressMouse(form.NetTax);
    EXPECT_EQ(form.NetTax.Text(), "-1234567890.00");
    // Ten digits and the sign are one character too many before the point, nine and the sign are not.
    form.NetTax.Select({.start = 1});
    Type(user, "1");
    EXPECT_EQ(beeps, 1);
    form.NetTax.Text("-123456789.00");
    form.NetTax.Select({.start = 1});
    Type(user, "1");
    EXPECT_EQ(beeps, 1);
  });
}

TEST_F(Gst34Lines, KeysInLockedLinesBeepWhereTwoDecimalsStand) {
  Show<GOVGST34>("05", [&](GOVGST34& form, UserDriver& user) {
    user.PressMouse(form.TotalGST);
    user.PressMouse(form.NetTax);
    EXPECT_EQ(form.NetTax.Text(), "0.00");
    form.NetTax.Select({.start = 4});
    Type(user, "5");
    EXPECT_EQ(beeps, 1);
    Type(user, "-,.");
    EXPECT_EQ(beeps, 1);
    EXPECT_EQ(form.NetTax.Text(), "0.00");
  });
}

TEST_F(Gst34Lines, PointMayReplaceASelectedPoint) {
  Show<GOVGST34>("05", [&](GOVGST34& form, UserDriver& user) {
    user.PressMouse(form.Rebates);
    Type(user, "1.50");
    form.Rebates.Select({.start = 1, .length = 2});
    Type(user, ".");
    EXPECT_EQ(form.Rebates.Text(), "1.0");
    EXPECT_EQ(beeps, 0);
  });
}

TEST_F(Gst34Lines, DigitsUnderAPartSelectionCountAsIfTheyStayed) {
  Show<GOVGST34>("05", [&](GOVGST34& form, UserDriver& user) {
    user.PressMouse(form.Rebates);
    Type(user, "12345678901");
    form.Rebates.Select({.start = 3, .length = 2});
    Type(user, "9");
    EXPECT_EQ(form.Rebates.Text(), "12345678901");
    EXPECT_EQ(beeps, 1);
    form.Rebates.Select({.start = 0, .length = 11});
    Type(user, "9");
    EXPECT_EQ(form.Rebates.Text(), "9");
    EXPECT_EQ(beeps, 1);
  });
}

TEST_F(Gst34Lines, LimitOfDigitsDropsKeysAndLeavesThoseOfNoNumberAlone) {
  Show<GOVGST34>("05", [&](GOVGST34& form, UserDriver& user) {
    user.PressMouse(form.Rebates);
    Type(user, "1.50");
    // Two decimals stand before the caret already.
    const auto limited = [&](int key) {
      LimitAmountKey(form.Rebates, key, 11);
      return key;
    };
    EXPECT_EQ(limited('5'), 0);
    EXPECT_EQ(beeps, 1);
    EXPECT_EQ(limited('.'), 0);
    for (const int other : {int{'/'}, int{':'}, int{'a'}, int{','}, key::kBackspace, key::kEnter})
      EXPECT_EQ(limited(other), other);
    EXPECT_EQ(beeps, 1);
  });
}

TEST_F(Gst34Lines, RefundAndPaymentTakeAnyNumberOnBeingLeftAndAreCalculatedAnew) {
  Show<GOVGST34>("05", [](GOVGST34& form, UserDriver& user) {
    user.PressMouse(form.TotalGST);
    Type(user, "1000");
    for (TextField* line : std::initializer_list<TextField*>{&form.RefundAmount, &form.PaymentEnclosed, &form.NetTax}) {
      SCOPED_TRACE(line->Name());
      user.PressMouse(*line);
      line->Text("777");
      user.PressMouse(form.Command1);
      EXPECT_EQ(user.FocusName(), "Command1");
      EXPECT_EQ(form.NetTax.Text(), "10.00");
      EXPECT_EQ(form.RefundAmount.Text(), "0.00");
      EXPECT_EQ(form.PaymentEnclosed.Text(), "10.00");
    }
  });
}

TEST_F(Gst34Lines, NetTaxAloneIsLeftWithOtherText) {
  Show<GOVGST34>("05", [](GOVGST34& form, UserDriver& user) {
    user.PressMouse(form.TotalGST);
    Type(user, "1000");
    user.PressMouse(form.NetTax);
    form.NetTax.Text("7a");
    user.PressMouse(form.Command1);
    EXPECT_EQ(user.FocusName(), "Command1");
    EXPECT_EQ(form.NetTax.Text(), "10.00");
    user.PressMouse(form.RefundAmount);
    form.RefundAmount.Text("7a");
    user.PressMouse(form.Command1);
    EXPECT_EQ(user.FocusName(), "RefundAmount");
    EXPECT_EQ(form.RefundAmount.Text(), "7a");
  });
}

// Each of the two is money, their sum is not.
void SetSumBeyondMoney(GOVGST34& form) {
  form.TotalGST.Text("900000000000000.00");
  form.ImportedTax.Text("900000000000000.00");
}

TEST_F(Gst34Lines, FailedCalculationIsSkippedWhereAnAmountIsLeft) {
  Show<GOVGST34>("05", [](GOVGST34& form, UserDriver& user) {
    user.PressMouse(form.Rebates);
    SetSumBeyondMoney(form);
    user.PressMouse(form.Command1);
    EXPECT_EQ(user.FocusName(), "Command1");
    EXPECT_EQ(form.NetTax.Text(), "900000000000000.00");
    EXPECT_EQ(form.PaymentEnclosed.Text(), "");
  });
}

TEST_F(Gst34Lines, FailedCalculationLeavesTheFormWhereNetTaxIsLeft) {
  EXPECT_EQ(ErrorOf([&] {
              Show<GOVGST34>("05", [](GOVGST34& form, UserDriver& user) {
                user.PressMouse(form.NetTax);
                form.NetTax.Text("0.00");
                SetSumBeyondMoney(form);
                user.PressMouse(form.Command1);
              });
            }),
            6);
}

TEST_F(Gst34Lines, KeyPassesWhereANumberBeyondAllCannotBeMeasured) {
  Show<GOVGST34>("05", [&](GOVGST34& form, UserDriver& user) {
    user.PressMouse(form.Rebates);
    user.Paste("1E999");
    Type(user, "5");
    EXPECT_EQ(form.Rebates.Text(), "1E9995");
    EXPECT_EQ(beeps, 0);
    user.PressMouse(form.Command1);
    EXPECT_EQ(form.Rebates.Text(), "0.00");
  });
}

TEST_F(Gst34Lines, KeyInSuchANetTaxFailsTheForm) {
  EXPECT_EQ(ErrorOf([&] {
              Show<GOVGST34>("05", [](GOVGST34& form, UserDriver& user) {
                user.PressMouse(form.NetTax);
                form.NetTax.Text("1E999");
                Type(user, "5");
              });
            }),
            6);
}

}  // namespace
}  // namespace fiscalon::gst34_line_test
