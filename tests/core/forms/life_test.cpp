#include <gtest/gtest.h>

#include "tests/support/raises.h"
#include "tests/support/test_form.h"

namespace fiscalon {
namespace {

/// Every kind of control, designed to be found changed easily.
class AllKindsForm : public TestForm {
 public:
  // clang-format off
  Label        lblOne  {*this, "lblOne",  {.caption = "One"}};
  TextField    txtOne  {*this, "txtOne",  {.tabIndex = 0}, Noted("txtOne")};
  TextField    txtShut {*this, "txtShut", {.tabIndex = 1, .locked = true}, Noted("txtShut")};
  CheckBox     chkOne  {*this, "chkOne",  {.caption = "Check", .tabIndex = 2}};
  OptionButton optOne  {*this, "optOne",  {.caption = "Option", .tabIndex = 3}};
  DropDownList cmbOne  {*this, "cmbOne",  {.tabIndex = 4}};
  ListBox      lstOne  {*this, "lstOne",  {.tabIndex = 5, .enabled = false}};
  Frame        fraOne  {*this, "fraOne",  {.caption = "Frame", .visible = false}};
  Button       cmdOne  {*this, "cmdOne",  {.caption = "Button"}, Noted("cmdOne")};
  // clang-format on

  int own = 0;

  void ChangeAll() {
    Caption("Other title");
    lblOne.Caption("Other label");
    txtOne.Text("typed");
    txtShut.Locked(false);
    chkOne.Value(true);
    optOne.Value(true);
    cmbOne.AddItem("row");
    cmbOne.ListIndex(0);
    lstOne.Enabled(true);
    fraOne.Visible(true);
    fraOne.Caption("Other frame");
    cmdOne.Caption("Other button");
    own = 7;
  }
};

TEST(FormLoad, ReturnsAllControlsToTheirDesign) {
  AllKindsForm form;
  form.Load();
  form.ChangeAll();
  form.Unload();
  form.Load();
  EXPECT_EQ(form.Caption(), "A form under test");
  EXPECT_EQ(form.lblOne.Caption(), "One");
  EXPECT_EQ(form.txtOne.Text(), "");
  EXPECT_EQ(form.txtOne.Selected(), Selection());
  EXPECT_TRUE(form.txtShut.Locked());
  EXPECT_FALSE(form.chkOne.Value());
  EXPECT_FALSE(form.optOne.Value());
  EXPECT_EQ(form.cmbOne.ListCount(), 0);
  EXPECT_EQ(form.cmbOne.ListIndex(), ListControl::kNothingSelected);
  EXPECT_FALSE(form.lstOne.Enabled());
  EXPECT_FALSE(form.fraOne.Visible());
  EXPECT_EQ(form.fraOne.Caption(), "Frame");
  EXPECT_EQ(form.cmdOne.Caption(), "Button");
}

TEST(FormLoad, RunsFormLoadOnDesignedControls) {
  AllKindsForm form;
  form.Load();
  form.ChangeAll();
  form.Unload();
  std::string seen = "not run";
  form.when["Form_Load"] = [&] { seen = form.txtOne.Text(); };
  form.Load();
  EXPECT_EQ(seen, "");
}

TEST(FormLoad, DoesNothingOnALoadedForm) {
  TwoFieldForm form;
  form.Load();
  form.txtA.Text("kept");
  form.TakeNotes();
  form.Load();
  EXPECT_EQ(form.TakeNotes(), Notes());
  EXPECT_EQ(form.txtA.Text(), "kept");
}

TEST(FormLoad, ComesWithTheFirstTouchOfAControl) {
  const std::vector<std::pair<const char*, std::function<void(AllKindsForm&)>>> touches = {
      {"text read", [](AllKindsForm& form) { form.txtOne.Text(); }},
      {"text set", [](AllKindsForm& form) { form.txtOne.Text("x"); }},
      {"same text set", [](AllKindsForm& form) { form.txtOne.Text(""); }},
      {"locked read", [](AllKindsForm& form) { form.txtOne.Locked(); }},
      {"locked set", [](AllKindsForm& form) { form.txtOne.Locked(true); }},
      {"selection read", [](AllKindsForm& form) { form.txtOne.Selected(); }},
      {"selection set", [](AllKindsForm& form) { form.txtOne.SelectAll(); }},
      {"enabled read", [](AllKindsForm& form) { form.txtOne.Enabled(); }},
      {"enabled set", [](AllKindsForm& form) { form.txtOne.Enabled(true); }},
      {"visible read", [](AllKindsForm& form) { form.txtOne.Visible(); }},
      {"visible set", [](AllKindsForm& form) { form.txtOne.Visible(true); }},
      {"focus", [](AllKindsForm& form) { form.txtOne.SetFocus(); }},
      {"caption read", [](AllKindsForm& form) { form.lblOne.Caption(); }},
      {"caption set", [](AllKindsForm& form) { form.cmdOne.Caption("x"); }},
      {"value read", [](AllKindsForm& form) { form.chkOne.Value(); }},
      {"value set", [](AllKindsForm& form) { form.optOne.Value(true); }},
      {"row added", [](AllKindsForm& form) { form.cmbOne.AddItem("x"); }},
      {"rows cleared", [](AllKindsForm& form) { form.lstOne.Clear(); }},
      {"rows counted", [](AllKindsForm& form) { form.lstOne.ListCount(); }},
      {"row read", [](AllKindsForm& form) { form.lstOne.List(0); }},
      {"selected row read", [](AllKindsForm& form) { form.lstOne.ListIndex(); }},
      {"title read", [](AllKindsForm& form) { form.Caption(); }},
      {"title set", [](AllKindsForm& form) { form.Caption("x"); }},
  };
  for (const auto& [name, touch] : touches) {
    AllKindsForm form;
    ASSERT_FALSE(form.IsLoaded());
    touch(form);
    EXPECT_TRUE(form.IsLoaded()) << name;
    EXPECT_EQ(form.TakeNotes().front(), "Form_Load") << name;
  }
}

TEST(FormLoad, IsNotNeededToLookAtNamesAndTabOrder) {
  TwoFieldForm form;
  EXPECT_EQ(form.FindControl("txtB"), &form.txtB);
  EXPECT_EQ(form.FindControl("txtb"), nullptr);
  EXPECT_EQ(form.TabOrder().size(), 4U);
  EXPECT_FALSE(form.txtA.CanTakeFocus());
  EXPECT_EQ(form.ActiveControl(), nullptr);
  EXPECT_FALSE(form.IsLoaded());
}

TEST(FormShow, LoadsThenFocusesThenActivatesThenRunsWhatWasPostedThenServes) {
  TwoFieldForm form;
  ServingToolkit toolkit;
  form.when["Form_Load"] = [&] {
    EXPECT_FALSE(form.IsUp());
    EXPECT_EQ(form.ActiveControl(), nullptr);
  };
  form.when["Form_Activate"] = [&] {
    EXPECT_TRUE(form.IsUp());
    EXPECT_EQ(form.ActiveControl(), &form.txtA);
    form.txtB.SetFocus();
  };
  toolkit.serve = [&] { form.Note("served"); };
  form.ShowModal(toolkit);
  EXPECT_EQ(form.TakeNotes(), (Notes{"Form_Load", "Form_Activate", "txtA_LostFocus", "served"}));
}

TEST(FormShow, LoadsNoFormThatIsLoaded) {
  TwoFieldForm form;
  form.txtA.Text("set before the show");
  ServingToolkit toolkit;
  toolkit.serve = [&] { EXPECT_EQ(form.txtA.Text(), "set before the show"); };
  form.ShowModal(toolkit);
  EXPECT_EQ(form.TakeNotes(), (Notes{"Form_Load", "txtA_Change", "Form_Activate"}));
}

TEST(FormShow, ActivatesAtEachShow) {
  TwoFieldForm form;
  Play(form, [](FormUser&) {});
  ServingToolkit toolkit;
  form.ShowModal(toolkit);
  EXPECT_EQ(form.TakeNotes(), Notes{"Form_Activate"});
}

TEST(FormShow, ServesNoFormThatHidItselfOnActivation) {
  TwoFieldForm form;
  ServingToolkit toolkit;
  toolkit.serve = [] { ADD_FAILURE() << "served"; };
  form.when["Form_Activate"] = [&] { form.Hide(); };
  form.ShowModal(toolkit);
  EXPECT_FALSE(form.IsUp());
  EXPECT_TRUE(form.IsLoaded());
}

TEST(FormShow, ShowsNoFormThatUnloadedItselfWhileLoading) {
  TwoFieldForm form;
  ServingToolkit toolkit;
  toolkit.serve = [] { ADD_FAILURE() << "served"; };
  form.when["Form_Load"] = [&] { form.Unload(); };
  form.ShowModal(toolkit);
  EXPECT_FALSE(form.IsLoaded());
  EXPECT_EQ(form.TakeNotes(), (Notes{"Form_Load", "Unloaded"}));
}

TEST(FormShow, RefusesAFormThatIsUp) {
  TwoFieldForm form;
  Play(form, [&](FormUser&) {
    ServingToolkit other;
    EXPECT_EQ(ErrorOf([&] { form.ShowModal(other); }), 400);
    EXPECT_TRUE(form.IsUp());
  });
}

// The show ends when the running handler returns, so inside the handler the form is still being shown.
TEST(FormShow, RefusesAFormThatItsOwnHandlerHasHidden) {
  TwoFieldForm form;
  ServingToolkit again;
  form.when["cmdOK_Click"] = [&] {
    form.Hide();
    EXPECT_EQ(ErrorOf([&] { form.ShowModal(again); }), 400);
  };
  Play(form, [&](FormUser& user) { user.acts.Click(form.cmdOK); });
  EXPECT_FALSE(form.IsUp());
}

TEST(FormShow, MayBeShownAgainAfterAnyEnd) {
  TwoFieldForm form;
  Play(form, [&](FormUser&) { form.Hide(); });
  Play(form, [&](FormUser& user) { user.acts.Close(CloseReason::CloseBox); });
  int shows = 0;
  Play(form, [&](FormUser&) { ++shows; });
  EXPECT_EQ(shows, 1);
}

TEST(FormHide, EndsTheShowAfterTheHandlerAndKeepsTheControls) {
  TwoFieldForm form;
  form.when["cmdOK_Click"] = [&] {
    form.Hide();
    form.txtA.Text("after hiding");
    form.Note("handler goes on");
  };
  Play(form, [&](FormUser& user) {
    user.acts.Click(form.cmdOK);
    EXPECT_FALSE(form.IsUp());
  });
  EXPECT_TRUE(form.IsLoaded());
  EXPECT_EQ(form.txtA.Text(), "after hiding");
  EXPECT_EQ(form.TakeNotes(),
            (Notes{"cmdOK_MouseDown", "txtA_LostFocus", "cmdOK_Click", "txtA_Change", "handler goes on"}));
}

TEST(FormHide, DropsWhatIsPosted) {
  TwoFieldForm form;
  form.when["txtA_Change"] = [&] {
    form.txtB.SetFocus();
    form.SendKeys("{TAB}");
    form.Hide();
    form.DoEvents();
  };
  Play(form, [&](FormUser& user) { user.Type("x"); });
  EXPECT_EQ(form.TakeNotes(), Notes{"txtA_Change"});
  EXPECT_EQ(form.ActiveControl(), &form.txtB);
}

TEST(FormHide, IsNoNewsOnAFormThatIsNotLoaded) {
  TwoFieldForm form;
  form.Hide();
  EXPECT_FALSE(form.IsLoaded());
  EXPECT_EQ(form.TakeNotes(), Notes());
}

TEST(FormUnload, DestroysControlStateAndKeepsOwnFields) {
  AllKindsForm form;
  form.Load();
  form.ChangeAll();
  form.Unload();
  EXPECT_FALSE(form.IsLoaded());
  EXPECT_EQ(form.own, 7);
  EXPECT_EQ(form.txtOne.Text(), "");
  EXPECT_EQ(form.own, 7);
}

TEST(FormUnload, DoesNothingOnAnUnloadedForm) {
  TwoFieldForm form;
  form.Unload();
  EXPECT_EQ(form.TakeNotes(), Notes());
  form.Load();
  form.Unload();
  form.Unload();
  EXPECT_EQ(form.TakeNotes(), (Notes{"Form_Load", "Unloaded"}));
}

TEST(FormUnload, EndsTheShowAndDropsWhatIsPosted) {
  TwoFieldForm form;
  form.when["txtA_Change"] = [&] {
    form.txtB.SetFocus();
    form.Unload();
  };
  Play(form, [&](FormUser& user) {
    user.Type("x");
    EXPECT_FALSE(form.IsUp());
  });
  EXPECT_FALSE(form.IsLoaded());
  EXPECT_EQ(form.ActiveControl(), nullptr);
  EXPECT_EQ(form.TakeNotes(), (Notes{"txtA_Change", "Unloaded"}));
}

TEST(FormUnload, IsFollowedByAFreshLoadWhenTheHandlerTouchesAControl) {
  TwoFieldForm form;
  form.when["cmdOK_Click"] = [&] {
    form.Unload();
    form.txtA.Text("fresh");
  };
  Play(form, [&](FormUser& user) {
    form.txtB.Text("lost");
    user.acts.Click(form.cmdOK);
    EXPECT_FALSE(form.IsUp());
  });
  EXPECT_TRUE(form.IsLoaded());
  EXPECT_EQ(form.txtA.Text(), "fresh");
  EXPECT_EQ(form.txtB.Text(), "");
}

TEST(FormClose, AsksTheFormWithTheReasonThenUnloads) {
  for (const int reason : {0, 1, 2, 3, 4, 5}) {
    TwoFieldForm form;
    Play(form, [&](FormUser& user) {
      user.acts.Close(static_cast<CloseReason>(reason));
      EXPECT_FALSE(form.IsUp());
    });
    EXPECT_FALSE(form.IsLoaded());
    EXPECT_EQ(form.TakeNotes(), (Notes{"Form_QueryUnload " + std::to_string(reason), "Unloaded"}));
  }
}

TEST(FormClose, IsStoppedByTheCancelFlag) {
  TwoFieldForm form;
  form.whenClosing = [](bool& cancel, CloseReason /*reason*/) { cancel = true; };
  Play(form, [&](FormUser& user) {
    user.Type("x");
    user.acts.Close(CloseReason::CloseBox);
    EXPECT_TRUE(form.IsUp());
    EXPECT_EQ(form.txtA.Text(), "x");
  });
}

TEST(FormClose, UnloadsAFormThatHidItself) {
  TwoFieldForm form;
  form.whenClosing = [&](bool& /*cancel*/, CloseReason /*reason*/) { form.Hide(); };
  Play(form, [&](FormUser& user) { user.acts.Close(CloseReason::SystemEnds); });
  EXPECT_FALSE(form.IsLoaded());
}

TEST(FormClose, UnloadsAFormWithoutAHandler) {
  class PlainForm : public Form {
   public:
    PlainForm() : Form("frmPlain", "Plain") {}
    const Layout& FormLayout() const override { return layout_; }

   private:
    Layout layout_;
  };
  PlainForm form;
  ServingToolkit toolkit;
  toolkit.serve = [&] { form.Acts().Close(CloseReason::CloseBox); };
  form.ShowModal(toolkit);
  EXPECT_FALSE(form.IsLoaded());
}

TEST(UserActs, DoNothingOnAFormThatIsNotUp) {
  TwoFieldForm form;
  FormUser user(form);
  const auto actEveryWay = [&] {
    EXPECT_FALSE(user.acts.Key(StrokeOf('x')).editing);
    user.acts.EditText(form.txtA, "typed", {});
    EXPECT_FALSE(user.acts.Press(form.txtB));
    user.acts.Release(form.cmdOK);
    user.acts.Click(form.cmdOK);
    user.acts.BringFocus(form.txtB);
    user.acts.SelectText(form.txtA, {.start = 1});
    user.acts.Close(CloseReason::CloseBox);
  };
  actEveryWay();
  EXPECT_FALSE(form.IsLoaded());
  form.Load();
  form.TakeNotes();
  actEveryWay();
  EXPECT_EQ(form.TakeNotes(), Notes());
  EXPECT_EQ(form.txtA.Text(), "");
  EXPECT_TRUE(form.IsLoaded());
}

}  // namespace
}  // namespace fiscalon
