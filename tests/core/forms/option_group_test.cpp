#include <gtest/gtest.h>

#include "core/forms/form_misuse.h"
#include "tests/support/test_form.h"

namespace fiscalon {
namespace {

/// Options of the form and options of a frame, with a field between and behind them.
class GroupsForm : public TestForm {
 public:
  // clang-format off
  TextField    txtFirst {*this, "txtFirst", {.tabIndex = 0}, Noted("txtFirst")};
  OptionButton optA     {*this, "optA",     {.caption = "A", .tabIndex = 1}, Noted("optA")};
  OptionButton optB     {*this, "optB",     {.caption = "B", .tabIndex = 2}, Noted("optB")};
  OptionButton optC     {*this, "optC",     {.caption = "C", .tabIndex = 3}, Noted("optC")};
  Frame        fra      {*this, "fra",      {.caption = "Frame"}};
  OptionButton optX     {*this, "optX",     {.caption = "X", .tabIndex = 4, .frame = &fra}, Noted("optX")};
  OptionButton optY     {*this, "optY",     {.caption = "Y", .tabIndex = 5, .frame = &fra}, Noted("optY")};
  TextField    txtLast  {*this, "txtLast",  {.tabIndex = 6}, Noted("txtLast")};
  // clang-format on

  std::string Active() const { return ActiveControl() == nullptr ? "" : ActiveControl()->Name(); }
  Notes FocusAfterEach(FormUser& user, std::string_view keyName, int times) const {
    Notes names;
    for (int i = 0; i < times; ++i) {
      user.Key(keyName);
      names.push_back(Active());
    }
    return names;
  }
};

TEST(OptionGroup, IsOneTabStopAtItsFirstOptionWhereNoneIsOn) {
  GroupsForm form;
  Play(form, [&](FormUser& user) {
    EXPECT_EQ(form.FocusAfterEach(user, "Tab", 4), (Notes{"optA", "optX", "txtLast", "txtFirst"}));
    EXPECT_EQ(form.FocusAfterEach(user, "Shift+Tab", 4), (Notes{"txtLast", "optX", "optA", "txtFirst"}));
  });
}

TEST(OptionGroup, IsOneTabStopAtTheOptionThatIsOn) {
  GroupsForm form;
  form.optB.Value(true);
  form.optY.Value(true);
  Play(form, [&](FormUser& user) {
    EXPECT_EQ(form.FocusAfterEach(user, "Tab", 4), (Notes{"optB", "optY", "txtLast", "txtFirst"}));
    EXPECT_EQ(form.FocusAfterEach(user, "Shift+Tab", 4), (Notes{"txtLast", "optY", "optB", "txtFirst"}));
  });
}

TEST(OptionGroup, IsLeftFromAnyOfItsOptions) {
  GroupsForm form;
  form.optC.Value(true);
  Play(form, [&](FormUser& user) {
    // The focus came without a click: another option is on.
    user.acts.BringFocus(form.optA);
    EXPECT_EQ(form.FocusAfterEach(user, "Tab", 1), Notes{"optX"});
    user.acts.BringFocus(form.optA);
    EXPECT_EQ(form.FocusAfterEach(user, "Shift+Tab", 1), Notes{"txtFirst"});
  });
}

TEST(OptionGroup, TurnsNothingOnByTheFocusAlone) {
  GroupsForm form;
  Play(form, [&](FormUser& user) {
    user.Key("Tab");
    user.acts.Press(form.optB);
    form.optC.SetFocus();
    for (const OptionButton* option : {&form.optA, &form.optB, &form.optC}) EXPECT_FALSE(option->Value());
    EXPECT_EQ(form.TakeNotes(), (Notes{"txtFirst_LostFocus", "optB_MouseDown", "optA_LostFocus"}));
  });
}

TEST(OptionGroup, MovesWithinByArrowKeysAndTurnsOnWhereTheyCome) {
  GroupsForm form;
  Play(form, [&](FormUser& user) {
    user.Key("Tab");
    form.TakeNotes();
    user.Key("Down");
    EXPECT_TRUE(form.optB.Value());
    EXPECT_EQ(form.TakeNotes(), (Notes{"optA_LostFocus", "optB_Click"}));
    EXPECT_EQ(form.FocusAfterEach(user, "Right", 2), (Notes{"optC", "optA"})) << "options of the frame are others";
    EXPECT_EQ(form.FocusAfterEach(user, "Up", 1), Notes{"optC"});
    EXPECT_TRUE(form.optC.Value());
    EXPECT_FALSE(form.optX.Value());
  });
}

TEST(OptionGroup, StopsAtTheFirstThatCanTakeTheFocusWhereTheOneThatIsOnCannot) {
  GroupsForm form;
  form.optC.Value(true);
  form.optC.Enabled(false);
  form.optA.Visible(false);
  Play(form, [&](FormUser& user) {
    EXPECT_EQ(form.FocusAfterEach(user, "Tab", 2), (Notes{"optB", "optX"}));
    form.fra.Enabled(false);
    EXPECT_EQ(form.Active(), "txtLast");
  });
}

TEST(OptionGroup, KeepsTheFocusWhenItsActiveOptionGoes) {
  GroupsForm form;
  Play(form, [&](FormUser& user) {
    user.acts.Click(form.optB);
    form.optB.Enabled(false);
    EXPECT_EQ(form.Active(), "optX") << "the next tab stop; the first option of the group lies before it";
    user.acts.Click(form.optA);
    form.optA.Visible(false);
    EXPECT_EQ(form.Active(), "optC") << "the only option of the group that is left is the next tab stop";
  });
}

TEST(OptionGroup, TakesTheFirstFocusAtTheOptionThatIsOn) {
  GroupsForm form;
  form.txtFirst.Enabled(false);
  form.optB.Value(true);
  Play(form, [&](FormUser&) { EXPECT_EQ(form.Active(), "optB"); });
}

TEST(OptionGroup, WithTwoOptionsOnAtDesignIsAnErrorThatNamesFormAndControl) {
  class TwoOnForm : public TestForm {
   public:
    Frame fra{*this, "fra", {}};
    OptionButton optOne{*this, "optOne", {.value = true}};
    OptionButton optTwo{*this, "optTwo", {.value = true, .frame = &fra}};
    OptionButton optThree{*this, "optThree", {.value = true}};
  };
  try {
    TwoOnForm form;
    ADD_FAILURE() << "two options on";
  } catch (const FormMisuse& error) {
    EXPECT_STREQ(error.what(), "frmTest.optThree: is on at design, and so is optOne of the same group");
  }
}

}  // namespace
}  // namespace fiscalon
