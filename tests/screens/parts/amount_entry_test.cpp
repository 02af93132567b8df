#include "screens/parts/amount_entry.h"

#include "core/platform/runtime_error.h"
#include "tests/support/part_test.h"

namespace fiscalon {
namespace {

using testing::ElementsAre;

class EntryForm : public PartForm {
 public:
  // clang-format off
  const AmountRule amounts = {.cancel = cmdCancel, .recalculate = [this] { Recalculate(); }};
  const AmountRule noted   = {.cancel = cmdCancel, .whenLeft = [this](AmountEntry& box) { notes.push_back(box.Name()); }};
  const AmountRule later   = {.cancel = cmdCancel, .checked = AmountsChecked::OnOkAlone};

  Label       lblDuty   {*this, "lblDuty",   {.caption = "Duty:"}};
  AmountEntry txtTax    {*this, "txtTax",    amounts, {.tabIndex = 0, .name = "Tax", .next = &txtDuty}};
  AmountEntry txtDuty   {*this, "txtDuty",   amounts, {.tabIndex = 1, .name = CaptionOf(lblDuty), .back = &txtTax}};
  AmountEntry txtNoted  {*this, "txtNoted",  noted,   {.tabIndex = 3, .name = "Noted"}};
  AmountEntry txtLater  {*this, "txtLater",  later,   {.tabIndex = 4, .name = "Fee", .range = AmountRange::Positive}};
  TextField   txtPlain  {*this, "txtPlain",  {.tabIndex = 2}};
  Button      cmdCancel {*this, "cmdCancel", {.caption = "Cancel", .cancel = true}, {}};
  // clang-format on

  void Recalculate() {
    notes.emplace_back("recalculated");
    if (recalculatingFails)
      Raise(error_number::kOverflow);
  }

  bool recalculatingFails = false;
  std::vector<std::string> notes;
};

class AmountEntryTest : public PartTest<EntryForm> {
 protected:
  /// What the field holds after the check of a text while the focus is elsewhere.
  std::string Checked(AmountEntry& box, std::string_view text) {
    std::string result;
    WhileUp([&](FormUser& user) {
      user.acts.Press(form.txtPlain);
      box.Text(text);
      box.Check();
      result = box.Text();
    });
    form.Unload();
    return result;
  }
};

TEST_F(AmountEntryTest, StandsRightAndTakesTwelveCharacters) {
  EXPECT_EQ(form.txtTax.MaxLength(), 12);
  EXPECT_EQ(form.txtTax.Designed().alignment, Alignment::Right);
  EXPECT_EQ(form.txtDuty.Designed().tabIndex, 1);
}

TEST_F(AmountEntryTest, KeepsAmountsAndMovesOnWhenFull) {
  WhileUp([&](FormUser& user) {
    user.Type("1a2,3.4-");
    EXPECT_EQ(form.txtTax.Text(), "123.4-");
    EXPECT_EQ(FocusName(), "txtTax");
    user.Type("567890");
    EXPECT_EQ(FocusName(), "txtDuty");
  });
}

TEST_F(AmountEntryTest, KeepsTheLocalesSeparator) {
  SetLocale(FrenchCanada());
  WhileUp([&](FormUser& user) {
    user.Type("1.2,3");
    EXPECT_EQ(form.txtTax.Text(), "12,3");
  });
}

TEST_F(AmountEntryTest, IsCheckedByItsNameWhenItIsLeft) {
  WhileUp([&](FormUser& user) {
    user.Type("1234");
    user.Key("Tab");
    EXPECT_EQ(form.txtTax.Text(), "12.34");
    EXPECT_THAT(form.notes, ElementsAre("recalculated"));
    user.Type("-1");
    user.Key("Tab");
    EXPECT_EQ(FocusName(), "txtDuty");
    EXPECT_THAT(form.notes, ElementsAre("recalculated"));
    form.lblDuty.Caption("GST");
    user.Key("Tab");
  });
  EXPECT_THAT(TakeTexts(), ElementsAre("Duty: cannot be negative.", "GST cannot be negative."));
}

TEST_F(AmountEntryTest, CanStepBackWithoutACheck) {
  WhileUp([&](FormUser& user) {
    form.txtDuty.SetFocus();
    user.Type("-1");
    user.Key("Shift+Tab");
    EXPECT_EQ(FocusName(), "txtTax");
    EXPECT_EQ(form.txtDuty.Text(), "-1");
  });
  EXPECT_TRUE(toolkit.boxes.empty());
}

TEST_F(AmountEntryTest, LeavesItsCheckToTheFormThatHasOne) {
  WhileUp([&](FormUser& user) {
    form.txtNoted.SetFocus();
    user.Type("-1");
    form.notes.clear();
    user.Key("Tab");
    EXPECT_EQ(form.txtNoted.Text(), "-1");
  });
  EXPECT_THAT(form.notes, ElementsAre("txtNoted"));
}

TEST_F(AmountEntryTest, HasNoHandlerForLeavingWhereOkAloneChecks) {
  WhileUp([&](FormUser& user) {
    user.acts.Press(form.txtLater);
    user.acts.Press(form.txtTax);
  });
  EXPECT_TRUE(form.HasRun("txtTax_LostFocus"));
  EXPECT_FALSE(form.HasRun("txtLater_LostFocus"));
}

TEST_F(AmountEntryTest, SkipsARecalculationThatFails) {
  form.recalculatingFails = true;
  WhileUp([&](FormUser& user) {
    user.Type("1");
    user.Key("Tab");
    EXPECT_EQ(FocusName(), "txtDuty");
  });
  EXPECT_THAT(form.notes, ElementsAre("recalculated"));
}

TEST_F(AmountEntryTest, TextWithoutASeparatorIsCents) {
  const std::pair<const char*, const char*> rows[] = {
      {"1234", "12.34"}, {"1234.5", "1234.50"},    {"5", "0.05"},    {"0", "0.00"},
      {"", "0.00"},      {"0.005", "0.01"},        {"12.", "12.00"}, {".5", "0.50"},
      {"1.2.3", "1.20"}, {"5-3", "0.05"},          {"-", "0.00"},    {"12.345", "12.35"},
      {"5-", "0.05"},    {"99999999", "999999.99"}};
  for (const auto& [typed, shown] : rows) EXPECT_EQ(Checked(form.txtTax, typed), shown) << typed;
  EXPECT_TRUE(toolkit.boxes.empty());
}

TEST_F(AmountEntryTest, SeparatorIsTheLocales) {
  SetLocale(FrenchCanada());
  EXPECT_EQ(Checked(form.txtTax, "1234"), "12,34");
  EXPECT_EQ(Checked(form.txtTax, "12,34"), "12,00");
  EXPECT_EQ(Checked(form.txtTax, ""), "0,00");
}

TEST_F(AmountEntryTest, AmountOutOfRangeIsRefusedInAPlainBox) {
  EXPECT_EQ(Checked(form.txtTax, "-1"), "-1");
  EXPECT_EQ(Checked(form.txtLater, "-1"), "-1");
  EXPECT_EQ(Checked(form.txtLater, "0"), "0");
  EXPECT_EQ(Checked(form.txtLater, ""), "");
  for (const auto& box : toolkit.boxes) {
    EXPECT_EQ(box.style, MessageStyle::Plain);
    EXPECT_EQ(box.title, "");
  }
  EXPECT_THAT(TakeTexts(), ElementsAre("Tax cannot be negative.", "Fee cannot be zero or negative.",
                                       "Fee cannot be zero or negative.", "Fee cannot be zero or negative."));
}

TEST_F(AmountEntryTest, RefusedAmountGetsTheFocus) {
  WhileUp([&](FormUser&) {
    form.txtPlain.SetFocus();
    form.txtTax.Text("-1");
    EXPECT_EQ(form.txtTax.Check(), AmountCheck::Refused);
    EXPECT_EQ(FocusName(), "txtTax");
  });
}

TEST_F(AmountEntryTest, LeavingToCancelShowsWhatItWouldRefuse) {
  WhileUp([&](FormUser&) {
    form.txtTax.Text("-150");
    form.cmdCancel.SetFocus();
    EXPECT_EQ(form.txtTax.Check(), AmountCheck::Accepted);
    EXPECT_EQ(form.txtTax.Text(), "-1.50");
    EXPECT_EQ(FocusName(), "cmdCancel");
  });
  EXPECT_TRUE(toolkit.boxes.empty());
}

TEST_F(AmountEntryTest, CheckIsSkippedWhereTheFocusHoldsTheWord) {
  WhileUp([&](FormUser&) {
    form.txtPlain.Text("cmdCancel");
    form.txtPlain.SetFocus();
    form.txtTax.Text("-150");
    EXPECT_EQ(form.txtTax.Check(), AmountCheck::Skipped);
    form.txtTax.CheckValues();
    EXPECT_EQ(form.txtTax.Text(), "-150");
  });
  EXPECT_TRUE(toolkit.boxes.empty());
  EXPECT_TRUE(form.notes.empty());
}

TEST_F(AmountEntryTest, AcceptedValueRecalculatesTheForm) {
  WhileUp([&](FormUser&) {
    form.txtTax.Text("-1");
    form.txtTax.CheckValues();
    EXPECT_TRUE(form.notes.empty());
    form.txtTax.Text("150");
    form.txtTax.CheckValues();
    EXPECT_THAT(form.notes, ElementsAre("recalculated"));
    EXPECT_EQ(form.txtTax.Amount(), 1.5);
  });
}

}  // namespace
}  // namespace fiscalon
