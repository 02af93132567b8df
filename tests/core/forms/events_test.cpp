#include <gtest/gtest.h>

#include "core/forms/form_observer.h"
#include "tests/support/raises.h"
#include "tests/support/test_form.h"

namespace fiscalon {
namespace {

TEST(Sent, RunsBeforeTheActGoesOn) {
  TwoFieldForm form;
  form.when["cmdOK_Click"] = [&] {
    form.txtA.Text("x");
    form.Note("cmdOK_Click goes on");
  };
  Play(form, [&](FormUser& user) {
    user.acts.Click(form.cmdOK);
    EXPECT_EQ(form.TakeNotes(),
              (Notes{"cmdOK_MouseDown", "txtA_LostFocus", "cmdOK_Click", "txtA_Change", "cmdOK_Click goes on"}));
  });
}

TEST(Posted, RunsWhenTheOutermostHandlerHasReturned) {
  TwoFieldForm form;
  form.when["txtA_Change"] = [&] {
    form.txtB.Text("x");
    form.Note("txtA_Change goes on");
  };
  form.when["txtB_Change"] = [&] {
    form.txtB.SetFocus();
    form.Note("txtB_Change goes on");
  };
  Play(form, [&](FormUser& user) {
    user.Type("a");
    EXPECT_EQ(form.TakeNotes(),
              (Notes{"txtA_Change", "txtB_Change", "txtB_Change goes on", "txtA_Change goes on", "txtA_LostFocus"}));
  });
}

TEST(Posted, RunsInTheOrderInWhichItWasPosted) {
  TwoFieldForm form;
  form.when["txtA_Change"] = [&] {
    form.SendKeys("{TAB}");
    form.txtB.SetFocus();
    form.SendKeys("{TAB}");
  };
  for (const char* leaving : {"txtA_LostFocus", "txtB_LostFocus", "cmdOK_LostFocus"})
    form.when[leaving] = [&] { form.Note("focus on " + form.ActiveControl()->Name()); };
  Play(form, [&](FormUser& user) {
    user.Type("a");
    // The Tab that was sent first leaves txtB; txtA's loss of the focus stands behind it, then the second Tab.
    EXPECT_EQ(form.TakeNotes(), (Notes{"txtA_Change", "txtA_LostFocus", "focus on cmdOK", "txtB_LostFocus",
                                       "focus on cmdCancel", "cmdOK_LostFocus", "focus on cmdCancel"}));
  });
}

TEST(Posted, WaitsForTheRunningHandlersOfPostedEventsToo) {
  TwoFieldForm form;
  form.when["txtA_LostFocus"] = [&] {
    form.cmdOK.SetFocus();
    form.Note("txtA_LostFocus goes on");
  };
  Play(form, [&](FormUser& user) {
    user.Key("Tab");
    EXPECT_EQ(form.TakeNotes(), (Notes{"txtA_LostFocus", "txtA_LostFocus goes on", "txtB_LostFocus"}));
  });
}

TEST(SendKeys, MovesTheFocusLikeTab) {
  for (const char* keys : {"{TAB}", "\t"}) {
    TwoFieldForm form;
    form.notesKeys = true;
    form.whenKey["Form_KeyDown"] = [&](int& keyCode) {
      if (keyCode != key::kEnter)
        return;
      keyCode = 0;
      form.SendKeys(keys);
      EXPECT_EQ(form.ActiveControl(), &form.txtA) << "posted, not sent";
    };
    Play(form, [&](FormUser& user) {
      user.Key("Enter");
      EXPECT_EQ(form.TakeNotes(), (Notes{"Form_KeyDown 13", "txtA_LostFocus"}));
      EXPECT_EQ(form.ActiveControl(), &form.txtB);
    });
  }
}

TEST(SendKeys, FromKeyPressMovesOnToo) {
  TwoFieldForm form;
  form.whenKey["Form_KeyPress"] = [&](int& character) {
    if (character != key::kEnter)
      return;
    character = 0;
    form.SendKeys("\t");
  };
  Play(form, [&](FormUser& user) {
    user.Key("Enter");
    EXPECT_EQ(form.ActiveControl(), &form.txtB);
  });
}

TEST(SendKeys, RaisesErrorFiveForOtherKeys) {
  TwoFieldForm form;
  Play(form, [&](FormUser&) {
    for (const char* keys : {"", "a", "{ENTER}", "{TAB}{TAB}", "{tab}"})
      EXPECT_EQ(ErrorOf([&] { form.SendKeys(keys); }), 5) << keys;
  });
}

TEST(SendKeys, GoesNowhereWhileTheFormIsNotUp) {
  TwoFieldForm form;
  form.when["Form_Load"] = [&] { form.SendKeys("{TAB}"); };
  form.Load();
  form.SendKeys("{TAB}");
  Play(form, [&](FormUser&) { EXPECT_EQ(form.ActiveControl(), &form.txtA); });
}

TEST(DoEvents, RunsWhatIsPostedInTheMiddleOfAHandler) {
  TwoFieldForm form;
  form.when["txtA_Change"] = [&] {
    form.txtB.SetFocus();
    form.SendKeys("{TAB}");
    form.Note("before");
    form.DoEvents();
    EXPECT_EQ(form.ActiveControl(), &form.cmdOK);
    form.Note("after");
  };
  Play(form, [&](FormUser& user) {
    user.Type("a");
    EXPECT_EQ(form.TakeNotes(), (Notes{"txtA_Change", "before", "txtA_LostFocus", "txtB_LostFocus", "after"}));
  });
}

TEST(DoEvents, WithinAPostedEventRunsTheRestOfTheQueue) {
  TwoFieldForm form;
  form.when["txtA_Change"] = [&] {
    form.txtB.SetFocus();
    form.cmdOK.SetFocus();
  };
  form.when["txtA_LostFocus"] = [&] {
    form.DoEvents();
    form.Note("txtA_LostFocus goes on");
  };
  Play(form, [&](FormUser& user) {
    user.Type("a");
    EXPECT_EQ(form.TakeNotes(), (Notes{"txtA_Change", "txtA_LostFocus", "txtB_LostFocus", "txtA_LostFocus goes on"}));
  });
}

TEST(DoEvents, WithNothingPostedDoesNothing) {
  TwoFieldForm form;
  form.DoEvents();
  EXPECT_FALSE(form.IsLoaded());
  EXPECT_EQ(form.TakeNotes(), Notes());
}

TEST(MessageBoxes, DoNotRunWhatIsPosted) {
  TwoFieldForm form;
  ServingToolkit toolkit;
  toolkit.whenBoxIsUp = [&](const BoxRequest& box) {
    form.Note(box.text);
    EXPECT_EQ(form.ActiveControl(), &form.txtB);
  };
  form.when["txtA_Change"] = [&] {
    form.txtB.SetFocus();
    toolkit.ShowMessage({.text = "box"});
    form.Note("answered");
  };
  toolkit.serve = [&] {
    form.TakeNotes();
    FormUser(form).Type("a");
  };
  form.ShowModal(toolkit);
  EXPECT_EQ(form.TakeNotes(), (Notes{"txtA_Change", "box", "answered", "txtA_LostFocus"}));
}

TEST(MessageBoxes, LetNoActReachTheFormBehindThem) {
  TwoFieldForm form;
  ServingToolkit toolkit;
  toolkit.whenBoxIsUp = [&](const BoxRequest& /*box*/) {
    FormUser user(form);
    user.Type("b");
    user.Key("Tab");
    user.Key("Escape");
    user.acts.Click(form.cmdOK);
    user.acts.EditText(form.txtB, "edited", {});
    user.acts.BringFocus(form.txtB);
    user.acts.Close(CloseReason::CloseBox);
  };
  form.when["txtA_Change"] = [&] {
    toolkit.ShowMessage({.text = "box"});
    form.Note("answered");
  };
  toolkit.serve = [&] {
    form.TakeNotes();
    FormUser(form).Type("a");
    EXPECT_TRUE(form.IsUp());
    EXPECT_EQ(form.txtA.Text(), "a");
    EXPECT_EQ(form.txtB.Text(), "");
    EXPECT_EQ(form.ActiveControl(), &form.txtA);
  };
  form.ShowModal(toolkit);
  EXPECT_EQ(form.TakeNotes(), (Notes{"txtA_Change", "answered"}));
}

TEST(Forms, ShownFromAHandlerOfAnotherHaveTheirOwnEvents) {
  TwoFieldForm outer;
  TwoFieldForm inner;
  ServingToolkit innerToolkit;
  innerToolkit.serve = [&] {
    FormUser user(inner);
    user.Key("Tab");
    user.acts.Close(CloseReason::CloseBox);
  };
  outer.when["txtA_Change"] = [&] {
    outer.txtB.SetFocus();
    inner.ShowModal(innerToolkit);
    EXPECT_TRUE(outer.IsUp());
    outer.Note("inner is closed");
  };
  Play(outer, [&](FormUser& user) {
    user.Type("a");
    EXPECT_EQ(outer.TakeNotes(), (Notes{"txtA_Change", "inner is closed", "txtA_LostFocus"}));
  });
  EXPECT_EQ(inner.TakeNotes(),
            (Notes{"Form_Load", "Form_Activate", "txtA_LostFocus", "Form_QueryUnload 0", "Unloaded"}));
}

TEST(FormObserver, HearsOfEachHandlerBeforeItRuns) {
  class HandlerObserver : public FormObserver {
   public:
    explicit HandlerObserver(TestForm& form) : form_(form) {}
    void HandlerRuns(std::string_view object, std::string_view event) override {
      form_.Note("hears " + std::string(object) + " " + std::string(event));
    }

   private:
    TestForm& form_;
  };
  TwoFieldForm form;
  HandlerObserver observer(form);
  ServingToolkit toolkit;
  toolkit.observer = &observer;
  toolkit.serve = [&] {
    form.TakeNotes();
    FormUser(form).acts.Click(form.cmdOK);
    form.Acts().Close(CloseReason::CloseBox);
  };
  form.ShowModal(toolkit);
  EXPECT_EQ(form.TakeNotes(),
            (Notes{"hears cmdOK MouseDown", "cmdOK_MouseDown", "hears txtA LostFocus", "txtA_LostFocus",
                   "hears cmdOK Click", "cmdOK_Click", "hears Form QueryUnload", "Form_QueryUnload 0", "Unloaded"}));
}

/// A form that writes down which handlers begin.
class LoggingForm : public TwoFieldForm {
 public:
  LoggingForm() {
    when["txtA_Change"] = [this] { Note("runs"); };
  }
  TextField txtSilent{*this, "txtSilent", {.tabIndex = 9}};

 private:
  void Begins(std::string_view object, std::string_view event) override {
    Note("(" + std::string(object) + "_" + std::string(event) + ")");
  }
};

TEST(Begins, IsCalledBeforeEachHandlerOfFormAndControlsByItsName) {
  LoggingForm form;
  form.Load();
  EXPECT_EQ(form.TakeNotes(), (Notes{"(Form_Load)", "Form_Load"}));
  Play(form, [&](FormUser& user) {
    user.Type("x");
    EXPECT_EQ(form.TakeNotes(), (Notes{"(Form_KeyDown)", "(txtA_KeyDown)", "(Form_KeyPress)", "(txtA_KeyPress)",
                                       "(txtA_Change)", "txtA_Change", "runs"}));
    user.acts.Click(form.cmdOK);
    EXPECT_EQ(form.TakeNotes(), (Notes{"(cmdOK_MouseDown)", "cmdOK_MouseDown", "(txtA_LostFocus)", "txtA_LostFocus",
                                       "(cmdOK_Click)", "cmdOK_Click"}));
  });
}

TEST(Begins, IsNotCalledForAControlWithoutTheHandler) {
  LoggingForm form;
  form.txtSilent.Text("x");
  EXPECT_EQ(form.TakeNotes(), (Notes{"(Form_Load)", "Form_Load"}));
}

}  // namespace
}  // namespace fiscalon
