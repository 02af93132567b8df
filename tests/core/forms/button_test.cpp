#include "core/forms/button.h"

#include <gtest/gtest.h>

#include "tests/support/test_form.h"

namespace fiscalon {
namespace {

class ChoiceForm : public TestForm {
 public:
  // clang-format off
  CheckBox     chkA     {*this, "chkA",     {.caption = "A", .tabIndex = 0}, Noted("chkA")};
  CheckBox     chkB     {*this, "chkB",     {.caption = "B", .tabIndex = 1}, Noted("chkB")};
  OptionButton optOne   {*this, "optOne",   {.caption = "&One", .tabIndex = 2}, Noted("optOne")};
  OptionButton optTwo   {*this, "optTwo",   {.caption = "&Two", .tabIndex = 3}, Noted("optTwo")};
  OptionButton optThree {*this, "optThree", {.caption = "T&hree", .tabIndex = 4}, Noted("optThree")};
  Frame        fraOther {*this, "fraOther", {.caption = "Other"}};
  OptionButton optFour  {*this, "optFour",  {.caption = "&Four", .tabIndex = 5, .frame = &fraOther}, Noted("optFour")};
  OptionButton optFive  {*this, "optFive",  {.caption = "Fi&ve", .tabIndex = 6, .frame = &fraOther}, Noted("optFive")};
  // clang-format on

  Notes ValuesThatAreOn() const {
    Notes names;
    for (const Control* control : Controls()) {
      const auto* toggle = dynamic_cast<const ToggleButton*>(control);
      if (toggle != nullptr && toggle->Value())
        names.push_back(toggle->Name());
    }
    return names;
  }
};

TEST(CheckBox, ClicksWhenItsValueChangesByTheUser) {
  ChoiceForm form;
  Play(form, [&](FormUser& user) {
    user.acts.Click(form.chkA);
    EXPECT_TRUE(form.chkA.Value());
    EXPECT_EQ(form.TakeNotes(), (Notes{"chkA_MouseDown", "chkA_Click"}));
    user.Key("Space");
    EXPECT_FALSE(form.chkA.Value());
    EXPECT_EQ(form.TakeNotes(), Notes{"chkA_Click"});
  });
}

TEST(CheckBox, IsANumberWhereItIsComparedWithAText) {
  ChoiceForm form;
  EXPECT_EQ(form.chkA.ValueInComparisons(), "0");
  form.chkA.Value(true);
  EXPECT_EQ(form.chkA.ValueInComparisons(), "1");
}

TEST(CheckBox, ClicksWhenItsValueChangesByCodeAndNotOtherwise) {
  ChoiceForm form;
  form.Load();
  form.TakeNotes();
  form.chkA.Value(true);
  form.chkA.Value(true);
  form.chkA.Value(false);
  form.chkA.Value(false);
  EXPECT_EQ(form.TakeNotes(), (Notes{"chkA_Click", "chkA_Click"}));
}

TEST(CheckBox, PairKeptOppositeByItsHandlersSettles) {
  ChoiceForm form;
  form.when["chkA_Click"] = [&] { form.chkB.Value(!form.chkA.Value()); };
  form.when["chkB_Click"] = [&] { form.chkA.Value(!form.chkB.Value()); };
  Play(form, [&](FormUser& user) {
    user.acts.Click(form.chkA);
    EXPECT_EQ(form.ValuesThatAreOn(), Notes{"chkA"});
    EXPECT_EQ(form.TakeNotes(), (Notes{"chkA_MouseDown", "chkA_Click"}));
    user.acts.Click(form.chkB);
    EXPECT_EQ(form.ValuesThatAreOn(), Notes{"chkB"});
    EXPECT_EQ(form.TakeNotes(), (Notes{"chkB_MouseDown", "chkA_LostFocus", "chkB_Click", "chkA_Click"}));
  });
}

TEST(OptionButton, TurnsTheOtherOffAndBothClick) {
  ChoiceForm form;
  form.optOne.Value(true);
  form.TakeNotes();
  form.optTwo.Value(true);
  EXPECT_EQ(form.ValuesThatAreOn(), Notes{"optTwo"});
  EXPECT_EQ(form.TakeNotes(), (Notes{"optOne_Click", "optTwo_Click"}));
}

TEST(OptionButton, ShowsTheNewChoiceToBothHandlers) {
  ChoiceForm form;
  form.optOne.Value(true);
  for (const char* handler : {"optOne_Click", "optTwo_Click"})
    form.when[handler] = [&] { EXPECT_EQ(form.ValuesThatAreOn(), Notes{"optTwo"}); };
  form.TakeNotes();
  form.optTwo.Value(true);
  EXPECT_EQ(form.TakeNotes().size(), 2U);
}

TEST(OptionButton, IsNotTurnedOffByTheUser) {
  ChoiceForm form;
  Play(form, [&](FormUser& user) {
    user.acts.Click(form.optOne);
    form.TakeNotes();
    user.acts.Click(form.optOne);
    user.Key("Space");
    EXPECT_EQ(form.ValuesThatAreOn(), Notes{"optOne"});
    EXPECT_EQ(form.TakeNotes(), Notes{"optOne_MouseDown"});
  });
}

TEST(OptionButton, IsTurnedOffByCode) {
  ChoiceForm form;
  form.optOne.Value(true);
  form.TakeNotes();
  form.optOne.Value(false);
  EXPECT_EQ(form.ValuesThatAreOn(), Notes());
  EXPECT_EQ(form.TakeNotes(), Notes{"optOne_Click"});
}

TEST(OptionButton, ChoosesWithinItsFrame) {
  ChoiceForm form;
  form.optOne.Value(true);
  form.optFour.Value(true);
  EXPECT_EQ(form.ValuesThatAreOn(), (Notes{"optOne", "optFour"}));
  form.optFive.Value(true);
  EXPECT_EQ(form.ValuesThatAreOn(), (Notes{"optOne", "optFive"}));
}

TEST(OptionButton, IsChosenByItsAccessKey) {
  ChoiceForm form;
  Play(form, [&](FormUser& user) {
    user.Key("Alt+T");
    EXPECT_EQ(form.ValuesThatAreOn(), Notes{"optTwo"});
    EXPECT_EQ(form.TakeNotes(), (Notes{"chkA_LostFocus", "optTwo_Click"}));
  });
}

TEST(OptionButton, IsChosenByArrowKeysRoundItsGroup) {
  ChoiceForm form;
  Play(form, [&](FormUser& user) {
    user.acts.Click(form.optTwo);
    const std::vector<std::pair<const char*, const char*>> rows = {
        {"Down", "optThree"}, {"Right", "optOne"}, {"Up", "optThree"}, {"Left", "optTwo"}};
    for (const auto& [keyName, chosen] : rows) {
      user.Key(keyName);
      EXPECT_EQ(form.ValuesThatAreOn(), Notes{chosen}) << keyName;
      EXPECT_EQ(form.ActiveControl()->Name(), chosen) << keyName;
    }
    form.optThree.Enabled(false);
    user.Key("Down");
    EXPECT_EQ(form.ValuesThatAreOn(), Notes{"optOne"}) << "a disabled option is passed over";
  });
}

TEST(OptionButton, StaysWhereACheckPullsTheFocusBack) {
  ChoiceForm form;
  form.when["optOne_LostFocus"] = [&] { form.optOne.SetFocus(); };
  Play(form, [&](FormUser& user) {
    user.acts.Click(form.optOne);
    user.Key("Down");
    EXPECT_EQ(form.ValuesThatAreOn(), Notes{"optOne"});
    EXPECT_EQ(form.ActiveControl(), &form.optOne);
  });
}

TEST(Frame, HidesAndDisablesWhatLiesInIt) {
  ChoiceForm form;
  Play(form, [&](FormUser& user) {
    form.fraOther.Enabled(false);
    user.acts.Click(form.optFour);
    user.Key("Alt+F");
    form.fraOther.Enabled(true);
    form.fraOther.Visible(false);
    user.acts.Click(form.optFour);
    EXPECT_EQ(form.ValuesThatAreOn(), Notes());
    EXPECT_EQ(form.TakeNotes(), Notes());
    form.fraOther.Visible(true);
    user.acts.Click(form.optFour);
    EXPECT_EQ(form.ValuesThatAreOn(), Notes{"optFour"});
  });
}

TEST(ValueInComparisons, IsWhatAComparisonWithATextSees) {
  class ValuesForm : public TestForm {
   public:
    Label lbl{*this, "lbl", {.caption = "Label"}};
    Button cmd{*this, "cmdCancel", {.caption = "Cancel"}, {}};
    CheckBox chk{*this, "chk", {.caption = "Check"}};
    TextField txt{*this, "txt", {}};
    DropDownList cmb{*this, "cmb", {}};
  };
  ValuesForm form;
  form.chk.Value(true);
  form.txt.Text("typed");
  form.cmb.AddItem("row");
  EXPECT_EQ(form.lbl.ValueInComparisons(), "Label");
  EXPECT_EQ(form.cmd.ValueInComparisons(), "Cancel");
  EXPECT_EQ(form.chk.ValueInComparisons(), "1");
  EXPECT_EQ(form.txt.ValueInComparisons(), "typed");
  EXPECT_EQ(form.cmb.ValueInComparisons(), "");
  form.cmb.ListIndex(0);
  EXPECT_EQ(form.cmb.ValueInComparisons(), "row");
}

}  // namespace
}  // namespace fiscalon
