#include "core/newer_screen.h"

#include <gmock/gmock.h>

#include "tests/support/module_test.h"
#include "tests/support/test_form.h"

namespace fiscalon {
namespace {

using testing::ElementsAre;

/// A newer screen with one amount, whose routines are noted.
class AmountScreen : public NewerScreen {
  using Self = AmountScreen;

 public:
  AmountScreen() : NewerScreen("frmAmount", "A screen under test") {}

  // clang-format off
  TextField txtDigits   {*this, "txtDigits",   {.tabIndex = 0, .maxLength = 4}, {.change = OnDigitsChange(txtDigits, txtAmount)}};
  TextField txtAmount   {*this, "txtAmount",   {.tabIndex = 1, .maxLength = 8},
                         {.change = OnAmountChange(txtAmount, txtNext), .lostFocus = OnAmountLeft(txtAmount, "Tax")}};
  TextField txtNext     {*this, "txtNext",     {.tabIndex = 2}, {.lostFocus = OnAmountLeft(txtNext, lblDate)}};
  TextField txtPlain    {*this, "txtPlain",    {.tabIndex = 3}};
  Label     lblDate     {*this, "lblDate",     {}};
  Label     lblAmount   {*this, "lblAmount",   {}};
  Button    cmdOK       {*this, "cmdOK",       {.caption = "&OK"}, {.click = On(&Self::cmdOK_Click)}};
  Button    cmdCancel   {*this, "cmdCancel",   {.caption = "Cancel", .cancel = true}, {.click = On(&Self::cmdCancel_Click)}};
  // clang-format on

  const Layout& FormLayout() const override { return layout_; }

  using NewerScreen::AmountCheck;
  using NewerScreen::AmountRange;
  using NewerScreen::AmountSlot;
  using NewerScreen::CheckAmount;
  using NewerScreen::CheckValues;
  using NewerScreen::Chosen;
  using NewerScreen::FocusIsOn;
  using NewerScreen::ShowPayment;
  using NewerScreen::ZeroSlot;

  bool valid = true;
  std::vector<std::string> calls;
  mutable std::vector<std::string> entered;

 protected:
  bool ValidateForm() override {
    calls.push_back("ValidateForm");
    return valid;
  }
  void DoWrite() override { calls.push_back(Chosen() == kTrue ? "DoWrite, chosen" : "DoWrite"); }
  void RecalcForm() override { calls.push_back("RecalcForm"); }
  void Entered(std::string_view routine) const override { entered.emplace_back(routine); }

 private:
  Layout layout_;
};

class NewerScreenTest : public ModuleTest {
 protected:
  void WhileUp(const std::function<void(FormUser& user)>& acts) { PlayAt(screen, acts); }

  /// What the field holds after the check of an amount that was set so.
  std::string Checked(std::string_view text, AmountScreen::AmountRange range) {
    std::string result;
    WhileUp([&](FormUser&) {
      screen.txtPlain.Text(text);
      screen.txtNext.SetFocus();
      screen.CheckAmount(screen.txtPlain, "Tax", range);
      result = screen.txtPlain.Text();
    });
    screen.Unload();
    return result;
  }

  AmountScreen screen;
};

TEST_F(NewerScreenTest, OkValidatesThenWritesThenChoosesThenHides) {
  WhileUp([&](FormUser& user) {
    user.acts.Click(screen.cmdOK);
    EXPECT_FALSE(screen.IsUp());
  });
  EXPECT_THAT(screen.calls, ElementsAre("ValidateForm", "DoWrite"));
  EXPECT_EQ(screen.Chosen(), kTrue);
}

TEST_F(NewerScreenTest, OkDoesNothingMoreOnAnInvalidForm) {
  screen.valid = false;
  WhileUp([&](FormUser& user) {
    user.acts.Click(screen.cmdOK);
    EXPECT_TRUE(screen.IsUp());
  });
  EXPECT_THAT(screen.calls, ElementsAre("ValidateForm"));
  EXPECT_EQ(screen.Chosen(), kFalse);
}

TEST_F(NewerScreenTest, CancelAnswersFalseAndHides) {
  screen.Chosen(kTrue);
  WhileUp([&](FormUser& user) {
    user.acts.Click(screen.cmdCancel);
    EXPECT_FALSE(screen.IsUp());
  });
  EXPECT_EQ(screen.Chosen(), kFalse);
  EXPECT_TRUE(screen.calls.empty());
}

TEST_F(NewerScreenTest, EnterMovesOnWithoutShiftAlone) {
  WhileUp([&](FormUser& user) {
    user.Key("Enter");
    EXPECT_TRUE(screen.FocusIsOn("txtAmount"));
    user.Press({.keyCode = key::kEnter, .shift = shift_state::kShift, .character = key::kEnter});
    EXPECT_TRUE(screen.FocusIsOn("txtAmount"));
    user.Press({.keyCode = key::kEnter, .shift = shift_state::kControl, .character = key::kEnter});
    EXPECT_TRUE(screen.FocusIsOn("txtAmount"));
    user.Key("Enter");
    EXPECT_TRUE(screen.FocusIsOn("txtNext"));
  });
}

TEST_F(NewerScreenTest, PaymentIsShownWithDateAndCurrency) {
  screen.PaidDate("06152026");
  screen.PaidAmount("1234.5");
  screen.ShowPayment(screen.lblDate, screen.lblAmount);
  EXPECT_EQ(screen.lblDate.Caption(), "15/06/2026");
  EXPECT_EQ(screen.lblAmount.Caption(), "$1,234.50");
  SetLocale(FrenchCanada());
  screen.ShowPayment(screen.lblDate, screen.lblAmount);
  EXPECT_EQ(screen.lblAmount.Caption(),
            "1\xa0"
            "234,50 $");
}

TEST_F(NewerScreenTest, DigitFieldsKeepDigitsAndMoveOnWhenFull) {
  WhileUp([&](FormUser& user) {
    user.Type("1a2.3-");
    EXPECT_EQ(screen.txtDigits.Text(), "123");
    EXPECT_TRUE(screen.FocusIsOn("txtDigits"));
    user.Type("4");
    EXPECT_EQ(screen.txtDigits.Text(), "1234");
    EXPECT_TRUE(screen.FocusIsOn("txtAmount"));
  });
}

TEST_F(NewerScreenTest, FullDigitFieldKeepsTheFocusWhereTheNextIsHidden) {
  // Hidden is not disabled: the move is tried, fails, and is skipped.
  WhileUp([&](FormUser& user) {
    screen.txtAmount.Visible(false);
    user.Type("1234");
    EXPECT_EQ(screen.txtDigits.Text(), "1234");
    EXPECT_TRUE(screen.FocusIsOn("txtDigits"));
  });
}

TEST_F(NewerScreenTest, AmountFieldsKeepAmountsAndMoveOnWhenFull) {
  WhileUp([&](FormUser& user) {
    screen.txtAmount.SetFocus();
    user.Type("1a2,3.4-");
    EXPECT_EQ(screen.txtAmount.Text(), "123.4-");
    EXPECT_TRUE(screen.FocusIsOn("txtAmount"));
    user.Type("56");
    EXPECT_TRUE(screen.FocusIsOn("txtNext"));
  });
}

TEST_F(NewerScreenTest, AmountThatIsLeftIsCheckedByItsName) {
  WhileUp([&](FormUser& user) {
    screen.txtAmount.SetFocus();
    user.Type("1234");
    user.Key("Tab");
    EXPECT_EQ(screen.txtAmount.Text(), "12.34");
    screen.lblDate.Caption("Duty");
    user.Type("-1");
    user.Key("Tab");
    EXPECT_TRUE(screen.FocusIsOn("txtNext"));
  });
  ASSERT_EQ(toolkit.boxes.size(), 1U);
  EXPECT_EQ(toolkit.boxes[0].text, "Duty cannot be negative.");
}

TEST_F(NewerScreenTest, AmountsWithoutASeparatorAreCents) {
  const std::pair<const char*, const char*> rows[] = {
      {"1234", "12.34"}, {"1234.5", "1234.50"},    {"5", "0.05"},  {"0", "0.00"},     {"", "0.00"},    {"  ", "0.00"},
      {"0.005", "0.01"}, {"12.", "12.00"},         {".5", "0.50"}, {"1.2.3", "1.20"}, {"5-3", "0.05"}, {"x", "0.00"},
      {"1e2", "1.00"},   {"99999999", "999999.99"}};
  for (const auto& [typed, shown] : rows)
    EXPECT_EQ(Checked(typed, AmountScreen::AmountRange::NotNegative), shown) << typed;
  EXPECT_TRUE(toolkit.boxes.empty());
}

TEST_F(NewerScreenTest, SeparatorIsTheLocales) {
  SetLocale(FrenchCanada());
  EXPECT_EQ(Checked("1234", AmountScreen::AmountRange::NotNegative), "12,34");
  EXPECT_EQ(Checked("12,34", AmountScreen::AmountRange::NotNegative), "12,00");
  EXPECT_EQ(Checked("12.34", AmountScreen::AmountRange::NotNegative), "0,12");
  EXPECT_EQ(Checked("", AmountScreen::AmountRange::NotNegative), "0,00");
}

TEST_F(NewerScreenTest, AmountsOutOfRangeAreRefusedInAPlainBox) {
  EXPECT_EQ(Checked("-1", AmountScreen::AmountRange::NotNegative), "-1");
  EXPECT_EQ(Checked("-1", AmountScreen::AmountRange::Positive), "-1");
  EXPECT_EQ(Checked("0", AmountScreen::AmountRange::Positive), "0");
  EXPECT_EQ(Checked("", AmountScreen::AmountRange::Positive), "");
  std::vector<std::string> texts;
  for (const BoxRequest& box : toolkit.boxes) {
    texts.push_back(box.text);
    EXPECT_EQ(box.style, MessageStyle::Plain);
    EXPECT_EQ(box.title, "");
  }
  EXPECT_THAT(texts, ElementsAre("Tax cannot be negative.", "Tax cannot be zero or negative.",
                                 "Tax cannot be zero or negative.", "Tax cannot be zero or negative."));
}

TEST_F(NewerScreenTest, RefusedAmountGetsTheFocus) {
  WhileUp([&](FormUser&) {
    screen.txtNext.SetFocus();
    screen.txtPlain.Text("-1");
    EXPECT_EQ(screen.CheckAmount(screen.txtPlain, "Tax", AmountScreen::AmountRange::NotNegative),
              AmountScreen::AmountCheck::Refused);
    EXPECT_TRUE(screen.FocusIsOn("txtPlain"));
  });
}

TEST_F(NewerScreenTest, LeavingToCancelReformatsWhatItWouldRefuse) {
  WhileUp([&](FormUser&) {
    screen.txtPlain.Text("-150");
    screen.cmdCancel.SetFocus();
    EXPECT_EQ(screen.CheckAmount(screen.txtPlain, "Tax", AmountScreen::AmountRange::Positive),
              AmountScreen::AmountCheck::Accepted);
    EXPECT_EQ(screen.txtPlain.Text(), "-1.50");
    EXPECT_TRUE(screen.FocusIsOn("cmdCancel"));
  });
  EXPECT_TRUE(toolkit.boxes.empty());
}

TEST_F(NewerScreenTest, CheckIsSkippedWhereTheFocusHoldsTheWord) {
  WhileUp([&](FormUser&) {
    screen.txtNext.Text("cmdCancel");
    screen.txtNext.SetFocus();
    screen.txtPlain.Text("-150");
    EXPECT_EQ(screen.CheckAmount(screen.txtPlain, "Tax", AmountScreen::AmountRange::Positive),
              AmountScreen::AmountCheck::Skipped);
    EXPECT_EQ(screen.txtPlain.Text(), "-150");
  });
  EXPECT_TRUE(toolkit.boxes.empty());
}

TEST_F(NewerScreenTest, AcceptedValuesRecalculateTheForm) {
  WhileUp([&](FormUser&) {
    screen.txtPlain.Text("-1");
    screen.CheckValues(screen.txtPlain, "Tax");
    EXPECT_TRUE(screen.calls.empty());
    screen.txtPlain.Text("1");
    screen.CheckValues(screen.txtPlain, "Tax");
    EXPECT_THAT(screen.calls, ElementsAre("RecalcForm"));
  });
}

TEST_F(NewerScreenTest, HandlersTellWhenTheyBegin) {
  WhileUp([&](FormUser& user) {
    user.Type("1");
    user.Key("Tab");
    user.Type("5");
    user.Key("Tab");
    user.acts.Click(screen.cmdCancel);
  });
  EXPECT_THAT(screen.entered,
              ElementsAre("Form_KeyDown", "txtDigits_Change", "Form_KeyDown", "txtAmount_Change", "txtAmount_LostFocus",
                          "txtAmount_Change", "txtNext_LostFocus", "cmdCancel_Click"));
}

TEST_F(NewerScreenTest, SlotsHoldCents) {
  screen.txtPlain.Text("123.45");
  EXPECT_EQ(screen.AmountSlot("01", screen.txtPlain).fieldNum, "01");
  EXPECT_EQ(screen.AmountSlot("01", screen.txtPlain).fieldValue, "000000000000012345");
  screen.txtPlain.Text("-12.34");
  EXPECT_EQ(screen.AmountSlot("02", screen.txtPlain).fieldValue, "-00000000000001234");
  EXPECT_EQ(screen.ZeroSlot("03").fieldNum, "03");
  EXPECT_EQ(screen.ZeroSlot("03").fieldValue, "000000000000000000");
}

}  // namespace
}  // namespace fiscalon
