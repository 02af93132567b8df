#include "screens/parts/typed_amount.h"

#include "tests/support/part_test.h"

namespace fiscalon {
namespace {

using testing::ElementsAre;

constexpr AmountRow kOnEnter[] = {
    {amount::Trim}, {amount::ReadMoney}, {amount::IsZero, "Zero."}, {amount::ShowInCents}};
constexpr AmountRow kOnLeaving[] = {{amount::IsNoAmount}};
constexpr AmountRow kSignedOnEnter[] = {{amount::ReadMoney}};

class AmountForm : public PartForm {
 public:
  // clang-format off
  Label       AmountPaid {*this, "AmountPaid", {.caption = "123.45"}};
  TypedAmount Amount     {*this, "Amount",     {.tabIndex = 0, .maxLength = 12},
                          {.onEnter = kOnEnter,
                           .confirmed = [this] { Confirm(); }, .next = [this] { return next; },
                           .onLeaving = kOnLeaving, .left = [this] { notes.emplace_back("left"); },
                           .toBePaid = AmountOn(AmountPaid)},
                          {.keyPress = [](int& character) { if (character == '7') character = 0; }}};
  TypedAmount Signed     {*this, "Signed",     {.tabIndex = 1}, {.keys = ",.-", .onEnter = kSignedOnEnter, .next = &Plain,
                                                                 .failures = Failures::Leave}};
  TypedAmount Plain      {*this, "Plain",      {.tabIndex = 2}, {.toBePaid = AmountOn(AmountPaid)}};
  // clang-format on

  void Confirm() {
    notes.emplace_back("confirmed");
    if (confirmingFails)
      Raise(error_number::kDiskFull);
  }

  Control* next = &Signed;
  bool confirmingFails = false;
  std::vector<std::string> notes;
};

class TypedAmountTest : public PartTest<AmountForm> {
 protected:
  /// Whether `Plain` with that text passes the rows, or what it then shows.
  bool Passes(std::string_view text, const std::vector<AmountRow>& rows) {
    form.Plain.Text(text);
    return form.Plain.Passes(rows);
  }
  std::string Shown(std::string_view text, const std::vector<AmountRow>& rows) {
    EXPECT_TRUE(Passes(text, rows)) << text;
    return form.Plain.Text();
  }
};

TEST_F(TypedAmountTest, TakesTheKeysOfAnAmount) {
  WhileUp([&](FormUser& user) {
    user.Type("1a2-.,$3");
    EXPECT_EQ(form.Amount.Text(), "12.,3");
    form.Signed.SetFocus();
    user.Type("1a2-.,$3");
    EXPECT_EQ(form.Signed.Text(), "12-.,3");
  });
}

TEST_F(TypedAmountTest, FormsOwnHandlerSeesAKeyFirst) {
  WhileUp([&](FormUser& user) {
    user.Type("678");
    EXPECT_EQ(form.Amount.Text(), "68");
  });
}

TEST_F(TypedAmountTest, EnterConfirmsAndMovesOnWhereItsRowsPass) {
  WhileUp([&](FormUser& user) {
    user.Type("0");
    user.Key("Enter");
    EXPECT_EQ(FocusName(), "Amount");
    EXPECT_TRUE(form.notes.empty());
    EXPECT_THAT(TakeTexts(), ElementsAre("Zero."));
    user.Type("1234");
    user.Key("Enter");
    EXPECT_EQ(form.Amount.Text(), "12.34");
    EXPECT_EQ(FocusName(), "Signed");
    EXPECT_THAT(form.notes, ElementsAre("confirmed", "left"));
  });
}

TEST_F(TypedAmountTest, EnterStaysWhereTheNextIsDisabledOrNone) {
  WhileUp([&](FormUser& user) {
    form.Signed.Enabled(false);
    user.Type("1");
    user.Key("Enter");
    EXPECT_EQ(FocusName(), "Amount");
    form.next = nullptr;
    user.Key("Enter");
    EXPECT_EQ(FocusName(), "Amount");
  });
}

TEST_F(TypedAmountTest, FailureOfAConfirmationEndsThereWhereFailuresAreSkipped) {
  form.confirmingFails = true;
  WhileUp([&](FormUser& user) {
    user.Type("1");
    user.Key("Enter");
    EXPECT_EQ(FocusName(), "Signed");
  });
}

TEST_F(TypedAmountTest, NumberBeyondMoneyLeavesTheFormThatLetsFailuresOut) {
  EXPECT_EQ(ErrorOf([&] {
              WhileUp([&](FormUser& user) {
                form.Amount.Text("1");
                user.acts.Press(form.Signed);
                user.Paste(form.Signed, "1E20");
                user.Key("Enter");
              });
            }),
            6);
}

TEST_F(TypedAmountTest, NumberBeyondMoneyIsZeroElsewhere) {
  EXPECT_FALSE(Passes("1E20", {{amount::ReadMoney}, {amount::IsZero}}));
  EXPECT_TRUE(Passes("1E20", {{amount::ReadNumber}, {amount::IsZero}}));
  EXPECT_FALSE(Passes("1E400", {{amount::ReadNumber}, {amount::IsZero}}));
}

TEST_F(TypedAmountTest, LeavingRunsItsRowsAndThenWhatFollows) {
  WhileUp([&](FormUser& user) {
    user.Key("Tab");
    EXPECT_EQ(FocusName(), "Amount");
    EXPECT_TRUE(form.notes.empty());
    user.Type("1");
    user.Key("Tab");
    EXPECT_EQ(FocusName(), "Signed");
    EXPECT_THAT(form.notes, ElementsAre("left"));
  });
}

TEST_F(TypedAmountTest, HasNoHandlerForLeavingWhereNothingFollows) {
  WhileUp([&](FormUser& user) {
    user.Type("1");
    user.acts.Press(form.Plain);
    user.acts.Press(form.Amount);
  });
  EXPECT_TRUE(form.HasRun("Amount_LostFocus"));
  EXPECT_FALSE(form.HasRun("Plain_LostFocus"));
}

TEST_F(TypedAmountTest, RowsTellAmounts) {
  struct Row {
    bool (*test)(TestedAmount&);
    std::string met;
    std::string notMet;
  };
  const Row rows[] = {{amount::IsMissing, "  ", "0"},         {amount::IsNoAmount, "", "1,5"},
                      {amount::IsNoAmount, "-1", "1.5"},      {amount::IsNoAmount, "1 2", " 12 "},
                      {amount::IsNegative, "-0.01", "0"},     {amount::IsZero, "x", "0.01"},
                      {amount::IsZeroWhileDue, "", "1"},      {amount::HasFraction, "5000.01", "5000.00"},
                      {amount::Exceeds, "123.46", "123.45"},  {amount::Differs, "123.46", "123.450"},
                      {amount::Differs, "12345", " 123.45 "}, {amount::IsZero, "0.00", "-1"}};
  for (const Row& row : rows) {
    const std::vector<AmountRow> test = {{amount::ReadNumber}, {*row.test}};
    EXPECT_FALSE(Passes(row.met, test)) << &row - rows << ": " << row.met;
    EXPECT_TRUE(Passes(row.notMet, test)) << &row - rows << ": " << row.notMet;
  }
}

TEST_F(TypedAmountTest, ZeroIsNotMissedWhereNothingIsDue) {
  const std::vector<AmountRow> test = {{amount::ReadNumber}, {amount::IsZeroWhileDue}};
  EXPECT_FALSE(Passes("0", test));
  form.AmountPaid.Caption("0.00");
  EXPECT_TRUE(Passes("0", test));
}

TEST_F(TypedAmountTest, MoneyHasFourDecimals) {
  const std::vector<AmountRow> zero = {{amount::ReadMoney}, {amount::IsZero}};
  EXPECT_FALSE(Passes("0.00004", zero));
  EXPECT_TRUE(Passes("0.0001", zero));
  EXPECT_TRUE(Passes("0.00004", {{amount::ReadNumber}, {amount::IsZero}}));
}

TEST_F(TypedAmountTest, RowsShowAmounts) {
  struct Row {
    bool (*show)(TestedAmount&);
    std::string text;
    std::string shown;
  };
  const Row rows[] = {{amount::ShowInCents, "12345", "123.45"},
                      {amount::ShowInCents, "123.456", "123.46"},
                      {amount::ShowInCents, "", "0.00"},
                      {amount::ShowInDollars, "12345", "12345.00"},
                      {amount::ShowInDollars, "1,000", "1.00"},
                      {amount::ShowWhole, "12.5", "13"},
                      {amount::ShowWhole, "0.4", "0"},
                      {amount::ShowZero, "x", "0.00"},
                      {amount::ShowZero, "1", "1"},
                      {amount::FillEmpty, "  ", "0.00"},
                      {amount::FillEmpty, "0", "0"},
                      {amount::Trim, "  1 2 ", "1 2"}};
  for (const Row& row : rows)
    for (const auto read : {amount::ReadNumber, amount::ReadMoney})
      EXPECT_EQ(Shown(row.text, {{*read}, {*row.show}}), row.shown) << row.text;
}

TEST_F(TypedAmountTest, MoneyIsRoundedTwiceOnItsWayToTheScreen) {
  // First to four decimals, halves to even, and then to two.
  EXPECT_EQ(Shown("1.00499999", {{amount::ReadMoney}, {amount::ShowInDollars}}), "1.01");
  EXPECT_EQ(Shown("1.00499999", {{amount::ReadNumber}, {amount::ShowInDollars}}), "1.00");
}

TEST_F(TypedAmountTest, WhatWasShownAsCentsCountsFromThereOn) {
  EXPECT_FALSE(Passes("12346", {{amount::ReadMoney}, {amount::ShowInCents}, {amount::Exceeds}}));
  EXPECT_TRUE(Passes("12345", {{amount::ReadMoney}, {amount::ShowInCents}, {amount::Exceeds}, {amount::Differs}}));
}

TEST_F(TypedAmountTest, SeparatorIsTheLocales) {
  SetLocale(FrenchCanada());
  EXPECT_EQ(Shown("1234", {{amount::ReadMoney}, {amount::ShowInCents}}), "12,34");
  EXPECT_EQ(Shown("12,50", {{amount::ReadMoney}, {amount::ShowInCents}}), "12,00");
  EXPECT_EQ(Shown("", {{amount::FillEmpty}}), "0,00");
}

}  // namespace
}  // namespace fiscalon
