#include <gtest/gtest.h>

#include "core/forms/form_observer.h"
#include "tests/support/raises.h"
#include "tests/support/test_form.h"

namespace fiscalon {
namespace {

/// Controls declared in another order than that of their tab indexes.
class MixedOrderForm : public TestForm {
 public:
  // clang-format off
  Button       cmdOK     {*this, "cmdOK",     {.caption = "&OK"}, Noted("cmdOK")};
  Button       cmdCancel {*this, "cmdCancel", {.caption = "Cancel", .cancel = true}, Noted("cmdCancel")};
  Button       cmdHelp   {*this, "cmdHelp",   {.caption = "&Help"}, Noted("cmdHelp")};
  TextField    txtLast   {*this, "txtLast",   {.tabIndex = 20, .locked = true}, Noted("txtLast")};
  Label        lblFirst  {*this, "lblFirst",  {}};
  TextField    txtFirst  {*this, "txtFirst",  {.tabIndex = 1}, Noted("txtFirst")};
  Frame        fraMiddle {*this, "fraMiddle", {}};
  DropDownList cmbThird  {*this, "cmbThird",  {.tabIndex = 4, .frame = &fraMiddle}, Noted("cmbThird")};
  CheckBox     chkSecond {*this, "chkSecond", {.tabIndex = 3, .frame = &fraMiddle}, Noted("chkSecond")};
  TextField    txtNoStop {*this, "txtNoStop", {.tabIndex = 5, .tabStop = false}, Noted("txtNoStop")};
  // clang-format on
};

std::string ActiveName(const Form& form) {
  return form.ActiveControl() == nullptr ? "" : form.ActiveControl()->Name();
}

/// The names of the controls that have the focus after each of several presses of a key.
Notes FocusAfterEach(Form& form, FormUser& user, std::string_view keyName, int times) {
  Notes names;
  for (int i = 0; i < times; ++i) {
    user.Key(keyName);
    names.push_back(ActiveName(form));
  }
  return names;
}

TEST(TabOrder, FollowsIndexesThenPutsTheOthersAsDeclared) {
  MixedOrderForm form;
  Notes names;
  for (const Control* control : form.TabOrder()) names.push_back(control->Name());
  EXPECT_EQ(names,
            (Notes{"txtFirst", "chkSecond", "cmbThird", "txtNoStop", "txtLast", "cmdOK", "cmdCancel", "cmdHelp"}));
}

TEST(Tab, GoesRoundTheTabStops) {
  MixedOrderForm form;
  Play(form, [&](FormUser& user) {
    EXPECT_EQ(FocusAfterEach(form, user, "Tab", 8),
              (Notes{"chkSecond", "cmbThird", "txtLast", "cmdOK", "cmdCancel", "cmdHelp", "txtFirst", "chkSecond"}));
  });
}

TEST(ShiftTab, GoesRoundBackward) {
  MixedOrderForm form;
  Play(form, [&](FormUser& user) {
    EXPECT_EQ(FocusAfterEach(form, user, "Shift+Tab", 8),
              (Notes{"cmdHelp", "cmdCancel", "cmdOK", "txtLast", "cmbThird", "chkSecond", "txtFirst", "cmdHelp"}));
  });
}

TEST(Tab, LeavesOutWhatCannotTakeTheFocus) {
  MixedOrderForm form;
  form.chkSecond.Enabled(false);
  form.cmbThird.Visible(false);
  form.cmdOK.Enabled(false);
  Play(form, [&](FormUser& user) {
    EXPECT_EQ(FocusAfterEach(form, user, "Tab", 4), (Notes{"txtLast", "cmdCancel", "cmdHelp", "txtFirst"}));
    EXPECT_EQ(FocusAfterEach(form, user, "Shift+Tab", 3), (Notes{"cmdHelp", "cmdCancel", "txtLast"}));
  });
}

TEST(Tab, GoesOnFromAControlThatIsNoTabStop) {
  MixedOrderForm form;
  Play(form, [&](FormUser& user) {
    user.acts.Press(form.txtNoStop);
    EXPECT_EQ(ActiveName(form), "txtNoStop");
    EXPECT_EQ(FocusAfterEach(form, user, "Tab", 1), Notes{"txtLast"});
    user.acts.Press(form.txtNoStop);
    EXPECT_EQ(FocusAfterEach(form, user, "Shift+Tab", 1), Notes{"cmbThird"});
  });
}

TEST(Tab, StaysOnTheOnlyTabStopWithoutLeavingIt) {
  TwoFieldForm form;
  form.txtB.Enabled(false);
  form.cmdOK.Enabled(false);
  form.cmdCancel.Enabled(false);
  Play(form, [&](FormUser& user) {
    EXPECT_EQ(FocusAfterEach(form, user, "Tab", 1), Notes{"txtA"});
    EXPECT_EQ(FocusAfterEach(form, user, "Shift+Tab", 1), Notes{"txtA"});
    EXPECT_EQ(form.TakeNotes(), Notes());
  });
}

TEST(Tab, StartsAtAnEndWhereNothingHasTheFocus) {
  const auto startsAt = [](std::string_view keyName) {
    TwoFieldForm form;
    std::string name;
    const std::vector<Control*> controls = form.Controls();
    for (Control* control : controls) control->Enabled(false);
    Play(form, [&](FormUser& user) {
      EXPECT_EQ(form.ActiveControl(), nullptr);
      for (Control* control : controls) control->Enabled(true);
      user.Key(keyName);
      name = ActiveName(form);
    });
    return name;
  };
  EXPECT_EQ(startsAt("Tab"), "txtA");
  EXPECT_EQ(startsAt("Shift+Tab"), "cmdCancel");
}

TEST(FirstFocus, GoesToTheFirstInTabOrderThatCanTakeIt) {
  MixedOrderForm form;
  form.when["Form_Load"] = [&] { form.txtFirst.Enabled(false); };
  Play(form, [&](FormUser&) { EXPECT_EQ(ActiveName(form), "chkSecond"); });
}

TEST(FirstFocus, GoesAlsoToALockedFieldAndToOneWithoutTabStop) {
  MixedOrderForm form;
  form.txtFirst.Enabled(false);
  form.fraMiddle.Visible(false);
  Play(form, [&](FormUser&) { EXPECT_EQ(ActiveName(form), "txtNoStop"); });
  form.txtNoStop.Visible(false);
  Play(form, [&](FormUser&) { EXPECT_EQ(ActiveName(form), "txtLast"); });
}

TEST(FirstFocus, IsTakenFromNoControlOfAnEarlierShow) {
  TwoFieldForm form;
  Play(form, [&](FormUser& user) {
    user.acts.BringFocus(form.txtB);
    form.Hide();
    EXPECT_EQ(form.ActiveControl(), &form.txtB);
    form.TakeNotes();
  });
  ServingToolkit toolkit;
  form.ShowModal(toolkit);
  EXPECT_EQ(form.ActiveControl(), &form.txtA);
  EXPECT_EQ(form.TakeNotes(), Notes{"Form_Activate"});
}

TEST(CanTakeFocus, NeedsItselfAndItsFramesVisibleAndEnabledOnAFormThatIsUp) {
  MixedOrderForm form;
  form.Load();
  EXPECT_FALSE(form.chkSecond.CanTakeFocus());
  Play(form, [&](FormUser&) {
    EXPECT_TRUE(form.chkSecond.CanTakeFocus());
    EXPECT_FALSE(form.lblFirst.CanTakeFocus());
    EXPECT_FALSE(form.fraMiddle.CanTakeFocus());
    form.chkSecond.Enabled(false);
    EXPECT_FALSE(form.chkSecond.CanTakeFocus());
    form.chkSecond.Enabled(true);
    form.chkSecond.Visible(false);
    EXPECT_FALSE(form.chkSecond.CanTakeFocus());
    form.chkSecond.Visible(true);
    form.fraMiddle.Enabled(false);
    EXPECT_FALSE(form.chkSecond.CanTakeFocus());
    EXPECT_TRUE(form.chkSecond.Enabled());
    form.fraMiddle.Enabled(true);
    form.fraMiddle.Visible(false);
    EXPECT_FALSE(form.chkSecond.CanTakeFocus());
  });
  EXPECT_FALSE(form.txtFirst.CanTakeFocus());
}

TEST(SetFocus, RaisesErrorFiveWhereTheFocusCannotGo) {
  MixedOrderForm form;
  Play(form, [&](FormUser&) {
    form.txtLast.Enabled(false);
    EXPECT_EQ(ErrorOf([&] { form.txtLast.SetFocus(); }), 5);
    form.cmdHelp.Visible(false);
    EXPECT_EQ(ErrorOf([&] { form.cmdHelp.SetFocus(); }), 5);
    form.fraMiddle.Enabled(false);
    EXPECT_EQ(ErrorOf([&] { form.chkSecond.SetFocus(); }), 5);
    EXPECT_EQ(ErrorOf([&] { form.lblFirst.SetFocus(); }), 5);
    EXPECT_EQ(ActiveName(form), "txtFirst");
    form.Hide();
    EXPECT_EQ(ErrorOf([&] { form.cmdOK.SetFocus(); }), 5);
  });
  EXPECT_EQ(form.TakeNotes(), Notes());
}

TEST(SetFocus, DoesNothingBeforeTheFormIsShown) {
  TwoFieldForm form;
  form.when["Form_Load"] = [&] {
    form.txtB.Enabled(false);
    EXPECT_EQ(ErrorOf([&] { form.txtB.SetFocus(); }), 0);
    EXPECT_EQ(ErrorOf([&] { form.cmdOK.SetFocus(); }), 0);
  };
  form.Load();
  form.cmdCancel.SetFocus();
  EXPECT_EQ(form.ActiveControl(), nullptr);
  Play(form, [&](FormUser&) { EXPECT_EQ(ActiveName(form), "txtA"); });
}

TEST(SetFocus, DoesNothingOnTheControlThatHasTheFocus) {
  TwoFieldForm form;
  form.when["txtA_Change"] = [&] { form.txtA.SetFocus(); };
  Play(form, [&](FormUser& user) {
    user.Type("ab");
    EXPECT_EQ(form.TakeNotes(), (Notes{"txtA_Change", "txtA_Change"}));
    EXPECT_EQ(form.txtA.Text(), "ab") << "the text was selected again";
  });
}

TEST(SetFocus, DoesNothingOnTheControlThatHadTheFocusWhenTheFormHid) {
  TwoFieldForm form;
  form.when["txtA_Change"] = [&] {
    form.Hide();
    EXPECT_EQ(ErrorOf([&] { form.txtA.SetFocus(); }), 0);
    EXPECT_EQ(ErrorOf([&] { form.txtB.SetFocus(); }), 5);
  };
  Play(form, [&](FormUser& user) { user.Type("x"); });
  EXPECT_EQ(form.TakeNotes(), Notes{"txtA_Change"});
}

TEST(LostFocus, IsPostedWhileTheNewControlIsActiveAtOnce) {
  TwoFieldForm form;
  form.when["cmdOK_Click"] = [&] {
    form.txtB.SetFocus();
    EXPECT_EQ(ActiveName(form), "txtB");
    form.Note("cmdOK_Click goes on");
  };
  form.when["cmdOK_LostFocus"] = [&] { EXPECT_EQ(ActiveName(form), "txtB"); };
  Play(form, [&](FormUser& user) {
    form.cmdOK.SetFocus();
    user.acts.Click(form.cmdOK);
    EXPECT_EQ(form.TakeNotes(),
              (Notes{"cmdOK_MouseDown", "txtA_LostFocus", "cmdOK_Click", "cmdOK_Click goes on", "cmdOK_LostFocus"}));
  });
}

TEST(LostFocus, RunsInTheOrderOfTheMoves) {
  TwoFieldForm form;
  form.when["txtA_Change"] = [&] {
    form.txtB.SetFocus();
    form.cmdOK.SetFocus();
    form.cmdCancel.SetFocus();
  };
  for (const char* leaving : {"txtA_LostFocus", "txtB_LostFocus", "cmdOK_LostFocus"})
    form.when[leaving] = [&] { EXPECT_EQ(ActiveName(form), "cmdCancel"); };
  Play(form, [&](FormUser& user) {
    user.Type("x");
    EXPECT_EQ(form.TakeNotes(), (Notes{"txtA_Change", "txtA_LostFocus", "txtB_LostFocus", "cmdOK_LostFocus"}));
  });
}

TEST(LostFocus, ThatPullsTheFocusBackPostsThatOfTheControlThatHadJustReceivedIt) {
  TwoFieldForm form;
  form.when["txtA_LostFocus"] = [&] {
    EXPECT_EQ(ActiveName(form), "txtB");
    form.txtA.SetFocus();
  };
  form.when["txtB_LostFocus"] = [&] { EXPECT_EQ(ActiveName(form), "txtA"); };
  Play(form, [&](FormUser& user) {
    user.Key("Tab");
    EXPECT_EQ(form.TakeNotes(), (Notes{"txtA_LostFocus", "txtB_LostFocus"}));
    EXPECT_EQ(ActiveName(form), "txtA");
  });
}

TEST(LostFocus, OfTwoFieldsThatPullFromEachOtherRunsTwiceEachInAnAct) {
  TwoFieldForm form;
  form.when["txtA_LostFocus"] = [&] { form.txtA.SetFocus(); };
  form.when["txtB_LostFocus"] = [&] { form.txtB.SetFocus(); };
  Play(form, [&](FormUser& user) {
    user.Key("Tab");
    EXPECT_EQ(form.TakeNotes(), (Notes{"txtA_LostFocus", "txtB_LostFocus", "txtA_LostFocus", "txtB_LostFocus"}));
    EXPECT_EQ(ActiveName(form), "txtB");
    user.Key("Tab");
    EXPECT_EQ(form.TakeNotes(), (Notes{"txtB_LostFocus", "cmdOK_LostFocus"})) << "the next act counts afresh";
  });
}

TEST(LostFocus, ThatMovesOnToItselfThroughAnotherRunsTwiceInAnAct) {
  TwoFieldForm form;
  form.when["txtA_LostFocus"] = [&] {
    form.txtA.SetFocus();
    form.txtB.SetFocus();
  };
  Play(form, [&](FormUser& user) {
    user.Key("Tab");
    // Each run moves to txtA and away again, so it posts txtB's and txtA's own.
    EXPECT_EQ(form.TakeNotes(), (Notes{"txtA_LostFocus", "txtB_LostFocus", "txtA_LostFocus", "txtB_LostFocus"}));
  });
}

// The key and the edit that follows it are one act, and so are the press and the release of a click.
TEST(LostFocus, RunsTwiceInAllPartsOfAnAct) {
  TwoFieldForm form;
  const auto pullAway = [&] {
    form.txtB.SetFocus();
    form.txtA.SetFocus();
  };
  form.whenKey["txtA_KeyPress"] = [&](int&) { pullAway(); };
  form.when["txtA_Change"] = [&] {
    pullAway();
    pullAway();
  };
  Play(form, [&](FormUser& user) {
    user.Type("x");
    EXPECT_EQ(form.TakeNotes(),
              (Notes{"txtA_LostFocus", "txtB_LostFocus", "txtA_Change", "txtA_LostFocus", "txtB_LostFocus"}));
    user.Paste(form.txtA, "y");
    EXPECT_EQ(form.TakeNotes(),
              (Notes{"txtA_Change", "txtA_LostFocus", "txtB_LostFocus", "txtA_LostFocus", "txtB_LostFocus"}));
  });
}

TEST(Escape, RunsNoFocusLossCheck) {
  TwoFieldForm form;
  Play(form, [&](FormUser& user) {
    user.Key("Escape");
    EXPECT_EQ(form.TakeNotes(), Notes{"cmdCancel_Click"});
    EXPECT_EQ(ActiveName(form), "txtA");
  });
}

TEST(Closing, RunsNoFocusLossCheck) {
  TwoFieldForm form;
  form.whenClosing = [&](bool& /*cancel*/, CloseReason /*reason*/) { EXPECT_EQ(ActiveName(form), "txtA"); };
  Play(form, [&](FormUser& user) { user.acts.Close(CloseReason::CloseBox); });
  EXPECT_EQ(form.TakeNotes(), (Notes{"Form_QueryUnload 0", "Unloaded"}));
}

TEST(Focus, MovesOnWhenItsControlIsDisabledOrHidden) {
  using Change = std::function<void(MixedOrderForm&)>;
  const std::vector<Change> changes = {[](MixedOrderForm& form) { form.chkSecond.Enabled(false); },
                                       [](MixedOrderForm& form) { form.chkSecond.Visible(false); }};
  for (const Change& change : changes) {
    MixedOrderForm form;
    form.when["chkSecond_Click"] = [&] { change(form); };
    Play(form, [&](FormUser& user) {
      user.acts.Click(form.chkSecond);
      EXPECT_EQ(ActiveName(form), "cmbThird");
      EXPECT_EQ(form.TakeNotes(),
                (Notes{"chkSecond_MouseDown", "txtFirst_LostFocus", "chkSecond_Click", "chkSecond_LostFocus"}));
    });
  }
}

TEST(Focus, LeavesAFrameThatIsDisabledOrHidden) {
  using Change = std::function<void(MixedOrderForm&)>;
  const std::vector<Change> changes = {[](MixedOrderForm& form) { form.fraMiddle.Enabled(false); },
                                       [](MixedOrderForm& form) { form.fraMiddle.Visible(false); }};
  for (const Change& change : changes) {
    MixedOrderForm form;
    form.when["chkSecond_Click"] = [&] { change(form); };
    Play(form, [&](FormUser& user) {
      user.acts.Click(form.chkSecond);
      EXPECT_EQ(ActiveName(form), "txtLast");
      EXPECT_EQ(form.TakeNotes(),
                (Notes{"chkSecond_MouseDown", "txtFirst_LostFocus", "chkSecond_Click", "chkSecond_LostFocus"}));
    });
  }
}

TEST(Focus, IsLostWhereNothingCanTakeIt) {
  TwoFieldForm form;
  form.when["txtA_Change"] = [&] {
    for (Control* control : form.Controls()) control->Enabled(false);
  };
  Play(form, [&](FormUser& user) {
    user.Type("x");
    EXPECT_EQ(form.ActiveControl(), nullptr);
    // Disabling goes from the first control to the last, so the focus flees through all of them.
    EXPECT_EQ(form.TakeNotes(),
              (Notes{"txtA_Change", "txtA_LostFocus", "txtB_LostFocus", "cmdOK_LostFocus", "cmdCancel_LostFocus"}));
    EXPECT_FALSE(user.acts.Key(StrokeOf('x')).editing);
    EXPECT_FALSE(user.acts.Key(*StrokeNamed("Tab")).editing);
    EXPECT_TRUE(form.IsUp());
  });
}

TEST(BringFocus, MovesTheFocusLikeTheKeyboard) {
  MixedOrderForm form;
  form.txtLast.Text("total");
  Play(form, [&](FormUser& user) {
    user.acts.BringFocus(form.txtLast);
    EXPECT_EQ(ActiveName(form), "txtLast");
    EXPECT_EQ(form.txtLast.Selected(), (Selection{.start = 0, .length = 5}));
    EXPECT_EQ(form.TakeNotes(), Notes{"txtFirst_LostFocus"});
    form.cmdOK.Enabled(false);
    user.acts.BringFocus(form.cmdOK);
    user.acts.BringFocus(form.lblFirst);
    EXPECT_EQ(ActiveName(form), "txtLast");
  });
}

TEST(FormObserver, HearsWhereTheFocusGoesAndHow) {
  class FocusObserver : public FormObserver {
   public:
    Notes heard;
    void FocusMoved(const Control& control, FocusBy by) override {
      heard.push_back(control.Name() + (by == FocusBy::Mouse ? " by mouse" : " by keyboard or code"));
    }
  };
  TwoFieldForm form;
  FocusObserver observer;
  ServingToolkit toolkit;
  toolkit.observer = &observer;
  toolkit.serve = [&] {
    form.Acts().Press(form.txtB);
    form.Acts().Key(*StrokeNamed("Tab"));
  };
  form.ShowModal(toolkit);
  EXPECT_EQ(observer.heard, (Notes{"txtA by keyboard or code", "txtB by mouse", "cmdOK by keyboard or code"}));
}

/// The name of the control that keeps the focus in silence.
std::string WaitingName(const Form& form) {
  return form.WaitingControl() == nullptr ? "" : form.WaitingControl()->Name();
}

TEST(WaitingControl, IsTheOneThatTakesTheFocusBackInSilence) {
  for (const char* way : {"Tab", "Shift+Tab", "mouse", "assistive program", "Alt+O"}) {
    TwoFieldForm form;
    form.when["txtA_LostFocus"] = [&] { form.txtA.SetFocus(); };
    Play(form, [&](FormUser& user) {
      EXPECT_EQ(WaitingName(form), "") << "nobody has asked to go on yet";
      if (way == std::string("mouse"))
        user.acts.Click(form.cmdOK);
      else if (way == std::string("assistive program"))
        user.acts.BringFocus(form.txtB);
      else
        user.Key(way);
      EXPECT_EQ(ActiveName(form), "txtA") << way;
      EXPECT_EQ(WaitingName(form), "txtA") << way;
    });
  }
}

TEST(WaitingControl, StandsWhileTheUserTypesAndGoesWithTheFocus) {
  TwoFieldForm form;
  form.when["txtA_LostFocus"] = [&] {
    if (form.txtA.Text() != "right")
      form.txtA.SetFocus();
  };
  Play(form, [&](FormUser& user) {
    user.Type("wrong\t");
    EXPECT_EQ(WaitingName(form), "txtA");
    user.Type("right");
    EXPECT_EQ(WaitingName(form), "txtA");
    user.Key("Tab");
    EXPECT_EQ(ActiveName(form), "txtB");
    EXPECT_EQ(WaitingName(form), "");
  });
}

TEST(WaitingControl, IsNoneWhereABoxTellsWhy) {
  TwoFieldForm form;
  ServingToolkit toolkit;
  bool isSilent = true;
  form.when["txtA_LostFocus"] = [&] {
    if (!isSilent)
      form.UserWasTold();
    form.txtA.SetFocus();
  };
  toolkit.serve = [&] {
    form.Acts().Key(*StrokeNamed("Tab"));
    EXPECT_EQ(WaitingName(form), "txtA");
    isSilent = false;
    form.Acts().Key(*StrokeNamed("Tab"));
    EXPECT_EQ(ActiveName(form), "txtA");
    EXPECT_EQ(WaitingName(form), "");
  };
  form.ShowModal(toolkit);
}

TEST(WaitingControl, IsTheOneWhereEnterIsRefusedInSilence) {
  TwoFieldForm form;
  form.whenKey["txtA_KeyPress"] = [&](int&) { form.txtA.SetFocus(); };
  Play(form, [&](FormUser& user) {
    user.Type("x");
    EXPECT_EQ(WaitingName(form), "") << "a character that the field does not take asks for nothing";
    user.Key("Enter");
    EXPECT_EQ(WaitingName(form), "txtA");
  });
}

TEST(WaitingControl, IsNoneWhereAHandlerLeadsOn) {
  TwoFieldForm form;
  form.when["txtA_LostFocus"] = [&] { form.cmdCancel.SetFocus(); };
  form.when["cmdOK_Click"] = [&] { form.cmdOK.SetFocus(); };
  Play(form, [&](FormUser& user) {
    user.Key("Tab");
    EXPECT_EQ(ActiveName(form), "cmdCancel");
    EXPECT_EQ(WaitingName(form), "");
    user.acts.Click(form.cmdOK);
    user.acts.Click(form.cmdOK);
    EXPECT_EQ(WaitingName(form), "") << "who clicks what has the focus does not ask to go on";
  });
}

TEST(WaitingControl, IsForgottenWhenTheFormIsShownAgain) {
  TwoFieldForm form;
  form.when["txtA_LostFocus"] = [&] { form.txtA.SetFocus(); };
  Play(form, [&](FormUser& user) {
    user.Key("Tab");
    form.Hide();
  });
  form.when.clear();
  Play(form, [&](FormUser&) { EXPECT_EQ(WaitingName(form), ""); });
}

}  // namespace
}  // namespace fiscalon
