#include <gtest/gtest.h>

#include <stdexcept>

#include "core/forms/form_observer.h"
#include "tests/support/raises.h"
#include "tests/support/test_form.h"

namespace fiscalon {
namespace {

/// Front ends hear when the show is over.
class CountingObserver : public FormObserver {
 public:
  int ends = 0;
  int others = 0;
  void ShowEnded() override { ++ends; }
  void ControlChanged(const Control& /*control*/) override { ++others; }
  void CaptionChanged() override { ++others; }
  void HandlerRuns(std::string_view /*object*/, std::string_view /*event*/) override { ++others; }
};

TEST(FormError, EndsTheShowAndComesOutWithTheFormLoaded) {
  const std::vector<std::pair<const char*, std::function<void(TwoFieldForm&, FormUser&)>>> acts = {
      {"txtA_Change", [](TwoFieldForm&, FormUser& user) { user.Type("x"); }},
      {"txtA_LostFocus", [](TwoFieldForm&, FormUser& user) { user.Key("Tab"); }},
      {"cmdOK_MouseDown", [](TwoFieldForm& form, FormUser& user) { user.acts.Click(form.cmdOK); }},
      {"cmdOK_Click", [](TwoFieldForm& form, FormUser& user) { user.acts.Click(form.cmdOK); }},
      {"cmdCancel_Click", [](TwoFieldForm&, FormUser& user) { user.Key("Escape"); }},
  };
  for (const auto& [handler, act] : acts) {
    TwoFieldForm form;
    form.when[handler] = [] { Raise(error_number::kOverflow); };
    ServingToolkit toolkit;
    toolkit.serve = [&, &act = act] {
      FormUser user(form);
      EXPECT_NO_THROW(act(form, user));
      EXPECT_FALSE(form.IsUp());
    };
    EXPECT_EQ(ErrorOf([&] { form.ShowModal(toolkit); }), 6) << handler;
    EXPECT_TRUE(form.IsLoaded()) << handler;
    EXPECT_FALSE(form.IsUp()) << handler;
  }
}

TEST(FormError, OfKeyHandlersComesOutToo) {
  for (const char* handler : {"Form_KeyDown", "txtA_KeyDown", "Form_KeyPress", "txtA_KeyPress"}) {
    TwoFieldForm form;
    form.whenKey[handler] = [](int&) { Raise(error_number::kTypeMismatch); };
    ServingToolkit toolkit;
    toolkit.serve = [&] { EXPECT_FALSE(form.Acts().Key(StrokeOf('x')).editing); };
    EXPECT_EQ(ErrorOf([&] { form.ShowModal(toolkit); }), 13) << handler;
  }
}

TEST(FormError, OfLoadAndActivateComesOutBeforeServing) {
  for (const char* handler : {"Form_Load", "Form_Activate"}) {
    TwoFieldForm form;
    form.when[handler] = [] { Raise(error_number::kOverflow); };
    ServingToolkit toolkit;
    toolkit.serve = [] { ADD_FAILURE() << "served"; };
    EXPECT_EQ(ErrorOf([&] { form.ShowModal(toolkit); }), 6) << handler;
    EXPECT_FALSE(form.IsUp()) << handler;
  }
}

TEST(FormError, OfActivateLeavesTheFormLoaded) {
  TwoFieldForm form;
  form.when["Form_Activate"] = [] { Raise(error_number::kOverflow); };
  ServingToolkit toolkit;
  EXPECT_EQ(ErrorOf([&] { form.ShowModal(toolkit); }), 6);
  EXPECT_TRUE(form.IsLoaded());
}

TEST(FormError, OfLoadLeavesNothingForTheNextShow) {
  TwoFieldForm form;
  form.when["Form_Load"] = [&] {
    form.txtA.Text("half");
    Raise(error_number::kOverflow);
  };
  ServingToolkit toolkit;
  EXPECT_EQ(ErrorOf([&] { form.ShowModal(toolkit); }), 6);
  EXPECT_FALSE(form.IsLoaded());
  // Code that touches a control loads it too, and meets the same.
  EXPECT_EQ(ErrorOf([&] { form.txtB.Text("x"); }), 6);
  EXPECT_FALSE(form.IsLoaded());
  form.when.clear();
  toolkit.serve = [&] { EXPECT_EQ(form.txtA.Text() + form.txtB.Text(), ""); };
  form.ShowModal(toolkit);
}

TEST(FormError, OfQueryUnloadLeavesTheFormLoaded) {
  TwoFieldForm form;
  form.whenClosing = [](bool&, CloseReason) { Raise(error_number::kOverflow); };
  ServingToolkit toolkit;
  toolkit.serve = [&] { form.Acts().Close(CloseReason::CloseBox); };
  EXPECT_EQ(ErrorOf([&] { form.ShowModal(toolkit); }), 6);
  EXPECT_TRUE(form.IsLoaded());
}

TEST(FormError, KeepsAFormUnloadedThatUnloadedItselfFirst) {
  TwoFieldForm form;
  form.when["cmdOK_Click"] = [&] {
    form.Unload();
    Raise(error_number::kOverflow);
  };
  ServingToolkit toolkit;
  toolkit.serve = [&] { form.Acts().Click(form.cmdOK); };
  EXPECT_EQ(ErrorOf([&] { form.ShowModal(toolkit); }), 6);
  EXPECT_FALSE(form.IsLoaded());
}

TEST(FormError, SurvivesAFrontEndThatReadsTheUnloadedForm) {
  TwoFieldForm form;
  form.when["cmdOK_Click"] = [&] {
    form.Unload();
    Raise(error_number::kOverflow);
  };
  ServingToolkit toolkit;
  toolkit.serve = [&] {
    form.Acts().Click(form.cmdOK);
    EXPECT_EQ(form.txtA.Text(), "");
  };
  EXPECT_EQ(ErrorOf([&] { form.ShowModal(toolkit); }), 6);
}

TEST(FormError, ComesOutBeforeAnErrorOfTheFrontEnd) {
  TwoFieldForm form;
  form.when["cmdOK_Click"] = [] { Raise(error_number::kOverflow); };
  ServingToolkit toolkit;
  toolkit.serve = [&] {
    form.Acts().Click(form.cmdOK);
    throw std::runtime_error("the window is gone");
  };
  EXPECT_EQ(ErrorOf([&] { form.ShowModal(toolkit); }), 6);
}

TEST(FormError, OfTheFrontEndComesOutOfAFormThatIsDown) {
  TwoFieldForm form;
  ServingToolkit toolkit;
  toolkit.serve = [] { throw std::runtime_error("no display"); };
  EXPECT_THROW(form.ShowModal(toolkit), std::runtime_error);
  EXPECT_FALSE(form.IsUp());
  EXPECT_TRUE(form.IsLoaded());
}

TEST(FormError, IsForgottenByTheNextShow) {
  TwoFieldForm form;
  form.when["Form_Activate"] = [] { Raise(error_number::kOverflow); };
  ServingToolkit toolkit;
  EXPECT_EQ(ErrorOf([&] { form.ShowModal(toolkit); }), 6);
  form.when.clear();
  EXPECT_EQ(ErrorOf([&] { form.ShowModal(toolkit); }), 0);
}

TEST(FormError, DropsWhatIsPosted) {
  TwoFieldForm form;
  form.when["txtA_Change"] = [&] {
    form.txtB.SetFocus();
    Raise(error_number::kOverflow);
  };
  ServingToolkit toolkit;
  toolkit.serve = [&] { FormUser(form).Type("x"); };
  EXPECT_EQ(ErrorOf([&] { form.ShowModal(toolkit); }), 6);
  form.TakeNotes();
  Play(form, [&](FormUser& user) { user.acts.Close(CloseReason::CloseBox); });
  EXPECT_EQ(form.TakeNotes(), (Notes{"Form_QueryUnload 0", "Unloaded"}));
}

TEST(FormError, InAHandlerOutsideAnActGoesToTheCaller) {
  TwoFieldForm form;
  form.when["txtA_Change"] = [] { Raise(error_number::kOverflow); };
  EXPECT_EQ(ErrorOf([&] { form.txtA.Text("x"); }), 6);
  EXPECT_TRUE(form.IsLoaded());
}

TEST(FormObserver, HearsOnceThatTheShowIsOver) {
  TwoFieldForm form;
  ServingToolkit toolkit;
  CountingObserver observer;
  toolkit.observer = &observer;
  form.when["cmdOK_Click"] = [&] {
    form.Hide();
    form.Unload();
  };
  toolkit.serve = [&] { form.Acts().Click(form.cmdOK); };
  form.ShowModal(toolkit);
  EXPECT_EQ(observer.ends, 1);
}

TEST(FormObserver, HearsNothingAfterAShowHoweverItEnded) {
  for (const char* failing : {"", "Form_Load", "Form_Activate", "cmdOK_Click"}) {
    TwoFieldForm form;
    CountingObserver observer;
    form.when[failing] = [] { Raise(error_number::kOverflow); };
    ServingToolkit toolkit;
    toolkit.observer = &observer;
    toolkit.serve = [&] { form.Acts().Click(form.cmdOK); };
    EXPECT_EQ(ErrorOf([&] { form.ShowModal(toolkit); }), *failing == '\0' ? 0 : 6) << failing;
    const int heard = observer.others;
    EXPECT_GT(heard, 0) << failing;
    form.when.clear();
    form.txtA.Text("x");
    form.Caption("x");
    ServingToolkit unobserving;
    form.ShowModal(unobserving);
    EXPECT_EQ(observer.others, heard) << failing;
  }
}

}  // namespace
}  // namespace fiscalon
