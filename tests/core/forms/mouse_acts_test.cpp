#include <gtest/gtest.h>

#include "tests/support/test_form.h"

namespace fiscalon {
namespace {

TEST(Press, RunsMouseDownThenMovesTheFocusThenRunsWhatIsPosted) {
  TwoFieldForm form;
  form.when["cmdOK_MouseDown"] = [&] { EXPECT_EQ(form.ActiveControl(), &form.txtA); };
  form.when["txtA_LostFocus"] = [&] { EXPECT_EQ(form.ActiveControl(), &form.cmdOK); };
  Play(form, [&](FormUser& user) {
    EXPECT_TRUE(user.acts.Press(form.cmdOK));
    EXPECT_EQ(form.TakeNotes(), (Notes{"cmdOK_MouseDown", "txtA_LostFocus"}));
    user.acts.Release(form.cmdOK);
    EXPECT_EQ(form.TakeNotes(), Notes{"cmdOK_Click"});
  });
}

TEST(Press, WithoutAReleaseClicksNothing) {
  TwoFieldForm form;
  Play(form, [&](FormUser& user) {
    user.acts.Press(form.cmdOK);
    user.acts.Press(form.txtB);
    EXPECT_EQ(form.TakeNotes(), (Notes{"cmdOK_MouseDown", "txtA_LostFocus", "txtB_MouseDown", "cmdOK_LostFocus"}));
  });
}

// What a MouseDown posts runs when that handler has returned, before the press moves the focus.
TEST(Press, RunsWhatMouseDownPostedBeforeTheFocusMoves) {
  TwoFieldForm form;
  form.when["cmdOK_MouseDown"] = [&] { form.txtB.SetFocus(); };
  form.when["txtA_LostFocus"] = [&] { EXPECT_EQ(form.ActiveControl(), &form.txtB); };
  Play(form, [&](FormUser& user) {
    user.acts.Click(form.cmdOK);
    EXPECT_EQ(form.TakeNotes(), (Notes{"cmdOK_MouseDown", "txtA_LostFocus", "txtB_LostFocus", "cmdOK_Click"}));
  });
}

TEST(Press, OnADisabledOrHiddenControlDoesNothing) {
  TwoFieldForm form;
  form.cmdOK.Enabled(false);
  form.cmdCancel.Visible(false);
  Play(form, [&](FormUser& user) {
    EXPECT_FALSE(user.acts.Press(form.cmdOK));
    user.acts.Click(form.cmdOK);
    user.acts.Click(form.cmdCancel);
    EXPECT_EQ(form.TakeNotes(), Notes());
    EXPECT_EQ(form.ActiveControl(), &form.txtA);
  });
}

TEST(Press, LeavesTheFocusWhereMouseDownDisablesTheControl) {
  TwoFieldForm form;
  form.when["cmdOK_MouseDown"] = [&] { form.cmdOK.Enabled(false); };
  Play(form, [&](FormUser& user) {
    user.acts.Click(form.cmdOK);
    EXPECT_EQ(form.TakeNotes(), Notes{"cmdOK_MouseDown"});
    EXPECT_EQ(form.ActiveControl(), &form.txtA);
  });
}

TEST(Press, OnTheControlThatHasTheFocusRunsMouseDownAlone) {
  TwoFieldForm form;
  Play(form, [&](FormUser& user) {
    EXPECT_TRUE(user.acts.Press(form.txtA));
    EXPECT_EQ(form.TakeNotes(), Notes{"txtA_MouseDown"});
  });
}

TEST(Press, OnALabelOrFrameDoesNothing) {
  class LabelForm : public TestForm {
   public:
    Label lblA{*this, "lblA", {.caption = "A"}};
    Frame fraA{*this, "fraA", {.caption = "Frame"}};
    TextField txtA{*this, "txtA", {}, Noted("txtA")};
  };
  LabelForm form;
  Play(form, [&](FormUser& user) {
    EXPECT_FALSE(user.acts.Press(form.lblA));
    user.acts.Click(form.fraA);
    EXPECT_EQ(form.TakeNotes(), Notes());
    EXPECT_EQ(form.ActiveControl(), &form.txtA);
  });
}

TEST(Click, IsCancelledByACheckThatPullsTheFocusBack) {
  TwoFieldForm form;
  form.when["txtA_LostFocus"] = [&] { form.txtA.SetFocus(); };
  Play(form, [&](FormUser& user) {
    EXPECT_FALSE(user.acts.Press(form.cmdOK));
    user.acts.Release(form.cmdOK);
    EXPECT_EQ(form.TakeNotes(), (Notes{"cmdOK_MouseDown", "txtA_LostFocus", "cmdOK_LostFocus"}));
    EXPECT_EQ(form.ActiveControl(), &form.txtA);
    user.acts.Click(form.cmdOK);
    EXPECT_EQ(form.TakeNotes(), (Notes{"cmdOK_MouseDown", "txtA_LostFocus", "cmdOK_LostFocus"}));
  });
}

TEST(Click, IsCancelledByACheckThatMovesTheFocusElsewhere) {
  TwoFieldForm form;
  form.when["txtA_LostFocus"] = [&] { form.txtB.SetFocus(); };
  Play(form, [&](FormUser& user) {
    user.acts.Click(form.cmdOK);
    EXPECT_EQ(form.TakeNotes(), (Notes{"cmdOK_MouseDown", "txtA_LostFocus", "cmdOK_LostFocus"}));
  });
}

TEST(Click, ComesAfterACheckThatLetsTheFocusGo) {
  TwoFieldForm form;
  form.when["txtA_LostFocus"] = [&] {
    form.txtA.SetFocus();
    form.cmdOK.SetFocus();
  };
  Play(form, [&](FormUser& user) {
    user.acts.Click(form.cmdOK);
    // The check runs a second time for the second loss of the focus, and no third time.
    EXPECT_EQ(form.TakeNotes(), (Notes{"cmdOK_MouseDown", "txtA_LostFocus", "cmdOK_LostFocus", "txtA_LostFocus",
                                       "cmdOK_LostFocus", "cmdOK_Click"}));
  });
}

TEST(Click, StopsWhereTheFormHides) {
  for (const char* handler : {"cmdOK_MouseDown", "txtA_LostFocus"}) {
    TwoFieldForm form;
    form.when[handler] = [&] { form.Hide(); };
    Play(form, [&](FormUser& user) {
      user.acts.Click(form.cmdOK);
      EXPECT_FALSE(form.IsUp());
      EXPECT_EQ(form.TakeNotes().back(), handler);
    });
  }
}

TEST(Click, OfAButtonCanBeRepeated) {
  TwoFieldForm form;
  Play(form, [&](FormUser& user) {
    user.acts.Click(form.cmdOK);
    form.TakeNotes();
    user.acts.Click(form.cmdOK);
    EXPECT_EQ(form.TakeNotes(), (Notes{"cmdOK_MouseDown", "cmdOK_Click"}));
  });
}

// A flag that the press of one button sets spares the field its check: the check runs before the click.
TEST(MouseDown, RunsBeforeTheCheckOfTheFieldThatIsLeft) {
  TwoFieldForm form;
  bool skipCheck = false;
  form.when["cmdCancel_MouseDown"] = [&] { skipCheck = true; };
  form.when["txtA_LostFocus"] = [&] {
    if (!std::exchange(skipCheck, false))
      form.txtA.SetFocus();
  };
  Play(form, [&](FormUser& user) {
    user.acts.Click(form.cmdOK);
    EXPECT_EQ(form.ActiveControl(), &form.txtA);
    form.TakeNotes();
    user.acts.Click(form.cmdCancel);
    EXPECT_EQ(form.TakeNotes(), (Notes{"cmdCancel_MouseDown", "txtA_LostFocus", "cmdCancel_Click"}));
  });
}

}  // namespace
}  // namespace fiscalon
