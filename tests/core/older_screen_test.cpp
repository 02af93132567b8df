#include "core/older_screen.h"

#include <gmock/gmock.h>

#include "core/module_state.h"
#include "core/platform/runtime_error.h"
#include "tests/support/module_test.h"
#include "tests/support/raises.h"
#include "tests/support/test_form.h"

namespace fiscalon {
namespace {

/// An older screen with buttons of its own names and an output that may fail.
class DateScreen : public OlderScreen {
  using Self = DateScreen;

 public:
  DateScreen() : OlderScreen("DATES", "A screen under test", {.cancel = "Command2", .help = "Command3"}) {}

  // clang-format off
  PayeeHead head       {*this, 9};
  TextField StartDate  {*this, "StartDate",  {.tabIndex = 0, .maxLength = 8},
                        {.change = OnFull(StartDate, Amount), .keyPress = OnKeys(StartDate, kDateKeys, &Self::StartDate_Enter, Amount),
                         .lostFocus = OnDateLeft(StartDate)}};
  TextField Amount     {*this, "Amount",     {.tabIndex = 1, .maxLength = 12}};
  Label     Label6     {*this, "Label6",     {.caption = "Period From:"}};
  Button    Command1   {*this, "Command1",   {.caption = "&OK"},     {.click = On(&Self::Command1_Click)}};
  Button    Command2   {*this, "Command2",   {.caption = "&Cancel"}, {}};
  Button    Command3   {*this, "Command3",   {.caption = "&Help"},   {}};
  Button    Command3D5 {*this, "Command3D5", {.caption = "Other"},   {}};
  // clang-format on

  const Layout& FormLayout() const override { return layout_; }

  using OlderScreen::AmountIn;
  using OlderScreen::AmountSlot;
  using OlderScreen::Chosen;
  using OlderScreen::NumberIn;
  using OlderScreen::NumberSlot;
  using OlderScreen::OutputFailure;
  using OlderScreen::RefuseAndEmpty;
  using OlderScreen::ShowPayment;
  using OlderScreen::ShowWithImplicitCents;
  using OlderScreen::TextSlot;
  using OlderScreen::WithoutColon;
  using OlderScreen::YearIsRefused;

  OutputFailure policy = OutputFailure::Leaves;
  bool outputFails = false;
  bool enterPasses = false;

 private:
  bool StartDate_Enter() { return enterPasses; }
  void Command1_Click() { Accept(policy); }
  void WriteRecords() override {
    if (outputFails)
      Raise(error_number::kDiskFull);
  }

  Layout layout_;
};

class OlderScreenTest : public ModuleTest {
 protected:
  void WhileUp(const std::function<void(FormUser& user)>& acts) { PlayAt(screen, acts); }

  DateScreen screen;
};

TEST_F(OlderScreenTest, AcceptedOutputIsChosenAndHides) {
  WhileUp([&](FormUser& user) {
    user.acts.Click(screen.Command1);
    EXPECT_FALSE(screen.IsUp());
  });
  EXPECT_EQ(screen.Chosen(), kTrue);
}

TEST_F(OlderScreenTest, FailedOutputLeavesTheFormWhereNothingSkipsIt) {
  screen.outputFails = true;
  EXPECT_EQ(ErrorOf([&] { WhileUp([&](FormUser& user) { user.acts.Click(screen.Command1); }); }), 61);
  EXPECT_EQ(screen.Chosen(), kFalse);
  EXPECT_TRUE(screen.IsLoaded());
}

TEST_F(OlderScreenTest, FailedOutputIsChosenWhereItIsSkipped) {
  screen.outputFails = true;
  screen.policy = DateScreen::OutputFailure::IsSkipped;
  WhileUp([&](FormUser& user) { user.acts.Click(screen.Command1); });
  EXPECT_EQ(screen.Chosen(), kTrue);
}

TEST_F(OlderScreenTest, DateIsLeftUncheckedByTheFormsOwnWaysOutAlone) {
  WhileUp([&](FormUser& user) {
    screen.StartDate.Text("2026");
    user.acts.Press(screen.Command2);
    user.acts.Press(screen.StartDate);
    user.acts.Press(screen.Command3);
    user.acts.Press(screen.StartDate);
    EXPECT_TRUE(toolkit.boxes.empty());
    user.acts.Press(screen.Command3D5);
    ASSERT_EQ(toolkit.boxes.size(), 1U);
    EXPECT_EQ(toolkit.boxes[0].text, "Invalid date value.");
    EXPECT_EQ(screen.ActiveControl(), &screen.StartDate);
  });
}

TEST_F(OlderScreenTest, EnterMovesOnWhereItsCheckPasses) {
  WhileUp([&](FormUser& user) {
    user.Key("Enter");
    EXPECT_EQ(screen.ActiveControl(), &screen.StartDate);
    screen.enterPasses = true;
    user.Key("Enter");
    EXPECT_EQ(screen.ActiveControl(), &screen.Amount);
  });
}

TEST_F(OlderScreenTest, RefusalThatEmptiesShowsTheBoxFirst) {
  WhileUp([&](FormUser&) {
    screen.Amount.Text("12");
    EXPECT_FALSE(DateScreen::RefuseAndEmpty(screen.Amount, "No."));
    EXPECT_EQ(screen.Amount.Text(), "");
    EXPECT_EQ(screen.ActiveControl(), &screen.Amount);
    ASSERT_EQ(toolkit.boxes.size(), 1U);
    EXPECT_EQ(toolkit.boxes[0].text, "No.");
    EXPECT_EQ(toolkit.boxes[0].style, MessageStyle::Critical);
  });
}

TEST_F(OlderScreenTest, NumbersBeyondTheirTypesCountAsZero) {
  EXPECT_EQ(DateScreen::NumberIn("1E400"), 0);
  EXPECT_EQ(DateScreen::NumberIn("12.5 dollars"), 12.5);
  EXPECT_EQ(DateScreen::AmountIn("1E30"), Money());
  EXPECT_EQ(DateScreen::AmountIn("12.5"), Money::FromUnits(125000));
}

TEST_F(OlderScreenTest, AmountWithoutSeparatorIsShownAsCents) {
  screen.Amount.Text("12345");
  DateScreen::ShowWithImplicitCents(screen.Amount, DateScreen::AmountIn("12345"));
  EXPECT_EQ(screen.Amount.Text(), "123.45");
  DateScreen::ShowWithImplicitCents(screen.Amount, DateScreen::AmountIn("123.456"));
  EXPECT_EQ(screen.Amount.Text(), "123.46");
}

TEST_F(OlderScreenTest, DateWarningNamesTheDate) {
  screen.StartDate.Text("20250101");
  toolkit.answers = {MessageAnswer::No, MessageAnswer::Yes};
  EXPECT_TRUE(DateScreen::YearIsRefused(screen.StartDate, DateScreen::WithoutColon(screen.Label6)));
  EXPECT_FALSE(DateScreen::YearIsRefused(screen.StartDate, "To"));
  ASSERT_EQ(toolkit.boxes.size(), 2U);
  EXPECT_EQ(toolkit.boxes[0].text,
            "The year for Period From entered does not correspond to the current year.\r\n"
            "Are you sure you want to use it?");
  EXPECT_EQ(toolkit.boxes[0].title, "Date Warning");
}

TEST_F(OlderScreenTest, SlotsHoldCentsNumbersAndTrimmedTexts) {
  screen.Amount.Text("123.45");
  screen.StartDate.Text(" 20260101 ");
  EXPECT_EQ(DateScreen::AmountSlot("01", screen.Amount).fieldValue, "000000000000012345");
  EXPECT_EQ(DateScreen::NumberSlot("02", 12.0).fieldValue, "000000000000000012");
  EXPECT_EQ(DateScreen::NumberSlot("02", Money::FromUnits(120000)).fieldValue, "000000000000000012");
  EXPECT_EQ(DateScreen::TextSlot("03", screen.StartDate).fieldValue, "20260101");
  EXPECT_EQ(DateScreen::TextSlot("03", screen.StartDate).fieldNum, "03");
}

TEST_F(OlderScreenTest, HeadShowsPayeeAmountAndDate) {
  screen.CompName("Summit Levies");
  screen.PaidAmount(".5");
  screen.PaidDate("06152026");
  screen.ShowPayment(screen.head);
  EXPECT_EQ(screen.head.PayeeName.Text(), "Summit Levies");
  EXPECT_TRUE(screen.head.PayeeName.Locked());
  EXPECT_EQ(screen.head.PayeeName.Designed().tabIndex, 9);
  EXPECT_EQ(screen.head.AmountPaid.Caption(), "0.50");
  EXPECT_EQ(screen.head.PayDate.Caption(), "15/06/2026");
}

}  // namespace
}  // namespace fiscalon
