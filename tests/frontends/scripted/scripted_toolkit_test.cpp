#include "frontends/scripted/scripted_toolkit.h"

#include <gmock/gmock.h>

#include <algorithm>

#include "core/session.h"
#include "frontends/played/session_recorder.h"
#include "tests/frontends/played/play_scenario.h"
#include "tests/frontends/played/played_screen.h"
#include "tests/support/every_kind_form.h"
#include "tests/support/module_test.h"

namespace fiscalon {
namespace {

using testing::HasSubstr;

/// Each kind leads to the next one, and the last to the first: without a default a further one does not compile.
ControlKind Behind(ControlKind kind) {
  switch (kind) {
    case ControlKind::Label:
      return ControlKind::TextField;
    case ControlKind::TextField:
      return ControlKind::Button;
    case ControlKind::Button:
      return ControlKind::CheckBox;
    case ControlKind::CheckBox:
      return ControlKind::OptionButton;
    case ControlKind::OptionButton:
      return ControlKind::DropDownList;
    case ControlKind::DropDownList:
      return ControlKind::ListBox;
    case ControlKind::ListBox:
      return ControlKind::Frame;
    case ControlKind::Frame:
      break;
  }
  return ControlKind::Label;
}

// The tests of all front ends begin with this form.
TEST(EveryKindForm, HasAControlOfEachKind) {
  const EveryKindForm form;
  ControlKind kind = ControlKind::Label;
  do {
    const auto isOfIt = [kind](const Control* control) { return control->Kind() == kind; };
    EXPECT_TRUE(std::ranges::any_of(form.Controls(), isOfIt)) << static_cast<int>(kind);
    kind = Behind(kind);
  } while (kind != ControlKind::Label);
}

// The acts and looks of a scenario, at a control of each kind.

TEST(ScriptedUser, TypesKeyByKeyIntoTheFocusedField) {
  ExpectPassed(
      "show 15\n type ab\n expect text txtA ab\n expect text lblSeen \"Seen ab\"\n type cdef\n"
      " expect text txtA abcde\n close 0\n");
}

TEST(ScriptedUser, TabAndLineEndInATextAreKeys) {
  ExpectPassed("show 15\n type \"ab\\tcd\"\n expect focus txtLocked\n expect text txtA ab\n close 0\n");
  ExpectPassed("show 15\n focus cmdBeep\n type \"\\n\"\n expect beep\n close 0\n");
}

TEST(ScriptedUser, TypingStopsWhereTheFormCloses) {
  ExpectFailed("show 15\n focus cmdCancel\n type \" x\"\n", 3, "a form to type into",
               "the form was closed before \"x\"");
}

TEST(ScriptedUser, LockedFieldsTakeNothing) {
  ExpectPassed("show 15\n focus txtLocked\n type a\n paste b\n key Backspace\n expect text txtLocked \"\"\n close 0\n");
}

TEST(ScriptedUser, EditingKeysMoveAndErase) {
  ExpectPassed(
      "show 15\n type abc\n key Left\n key Left\n type x\n expect text txtA axbc\n key Home\n key Delete\n"
      " expect text txtA xbc\n key End\n key Backspace\n expect text txtA xb\n key Home\n key Right\n type y\n"
      " expect text txtA xyb\n close 0\n");
}

TEST(ScriptedUser, PasteReplacesTheSelectionAndIsCut) {
  ExpectPassed(
      "show 15\n type abc\n key Tab\n key Shift+Tab\n expect selection txtA abc\n paste 1234567\n"
      " expect text txtA 12345\n expect text lblSeen \"Seen 12345\"\n paste x\n expect text txtA 12345\n close 0\n");
  ExpectPassed("show 15\n focus cmdOK\n paste x\n expect text txtA \"\"\n close 0\n");
}

TEST(ScriptedUser, ClicksTogglesAndOptions) {
  ExpectPassed(
      "show 15\n expect checked chk no\n click chk\n expect checked chk yes\n expect focus chk\n key Space\n"
      " expect checked chk no\n click optA\n expect checked optA yes\n click optB\n expect checked optA no\n"
      " expect checked optB yes\n close 0\n");
  ExpectPassed(
      "show 15\n focus chk\n expect checked chk no\n expect focus chk\n key Alt+C\n expect checked chk yes\n"
      " close 0\n");
}

TEST(ScriptedUser, ChoosesRowsOfLists) {
  ExpectPassed(
      "show 15\n expect items cmb 3\n expect text cmb \"\"\n choose cmb \"two words\"\n expect text cmb \"two words\"\n"
      " expect focus cmb\n expect text lblSeen \"Picked two words\"\n type x\n choose cmb \"two words\"\n"
      " expect text lblSeen \"Picked two words\"\n choose lst First\n expect text lst First\n key Down\n"
      " expect text lst Second\n close 0\n");
  ExpectFailed("show 15\n choose cmb first\n", 2, "a row first in \"cmb\" of \"frmPlayed\"",
               "the rows First, Second, \"two words\"");
  EXPECT_EQ(SenselessReason("show 15\n choose txtA First\n"), "s:2: \"txtA\" of \"frmPlayed\" is no list");
}

TEST(ScriptedUser, UnknownControlIsToldWithTheKnownOnes) {
  const std::string reason = SenselessReason("show 15\n expect focus txtA\n click txtB\n");
  EXPECT_THAT(reason, HasSubstr("s:3: \"frmPlayed\" has no control \"txtB\"; it has txtA, txtLocked, chk, "));
  EXPECT_THAT(SenselessReason("show 15\n expect focus txta\n"), HasSubstr("no control \"txta\""));
  EXPECT_THAT(SenselessReason("show 15\n expect enabled x yes\n"), HasSubstr("no control \"x\""));
}

TEST(ScriptedUser, UnknownMemberIsToldWithTheKnownOnesOfItsArray) {
  EXPECT_EQ(SenselessReason("show 15\n click lblRow(2)\n"),
            "s:2: \"frmPlayed\" has no control \"lblRow(2)\"; it has lblRow(0), lblRow(1)");
}

TEST(ScriptedUser, SeesWhatTheUserSees) {
  ExpectPassed(
      "host CompName Biller\nshow 15\n expect title Biller\n expect enabled txtA yes\n expect visible cmdInside yes\n"
      " expect enabled cmdInside yes\n expect locked txtLocked yes\n expect locked txtA no\n expect locked cmdOK no\n"
      " expect text cmdOK &OK\n expect text chk &Checked\n expect text optA A\n click cmdHide\n"
      " expect enabled txtA no\n expect visible cmdInside no\n expect enabled cmdInside no\n expect visible fra no\n"
      " expect items txtA 0\n expect checked txtA no\n expect selection cmdOK \"\"\n close 0\n");
}

TEST(ScriptedUser, FailuresSayWhatWasSeen) {
  const std::pair<const char*, std::pair<const char*, const char*>> rows[] = {
      {"expect focus txtLocked", {"txtLocked", "txtA"}},
      {"expect text txtA x", {"x", "\"\""}},
      {"expect text lblSeen seen", {"seen", "Seen"}},
      {"expect selection txtA x", {"x", "\"\""}},
      {"expect enabled txtA no", {"no", "yes"}},
      {"expect visible txtA no", {"no", "yes"}},
      {"expect checked chk yes", {"yes", "no"}},
      {"expect locked txtA yes", {"yes", "no"}},
      {"expect title x", {"x", "\"\""}},
      {"expect items lst 2", {"2", "3"}},
      {"expect open no", {"no", "yes"}},
  };
  for (const auto& [line, texts] : rows) ExpectFailed(std::string("show 15\n") + line, 2, texts.first, texts.second);
}

TEST(ScriptedUser, LineEndInAnExpectedTextIsAnyLineEnd) {
  ExpectPassed(
      "show 15\n expect text lblLines \"one\\ntwo\\nthree\\nfour\"\n click cmdBox\n"
      " expect message critical \"A box.\\nTwo lines.\"\n close 0\n");
  ExpectFailed("show 15\n expect text lblLines \"one two\"\n", 2, "\"one two\"", "\"one\\ntwo\\nthree\\nfour\"");
}

TEST(ScriptedUser, ClosesTheWindowForAReason) {
  ExpectPassed("show 15\n close 3\n expect open no\nexpect result False\n");
}

// The toolkit without a scenario.

class ScriptedToolkitTest : public ModuleTest {
 protected:
  ScriptedToolkitTest() { UseToolkit(&scripted); }

  ScriptedToolkit scripted;
  Levyra session;
};

TEST_F(ScriptedToolkitTest, WithoutAnyoneAtTheKeysAFormClosesAtOnce) {
  EXPECT_FALSE(session.ShowLevyraScreen("15"));
}

TEST_F(ScriptedToolkitTest, BoxGetsItsDefaultAnswerBeepAndHelpNoEcho) {
  EXPECT_EQ(TheToolkit().ShowMessage({.text = "x"}), MessageAnswer::Ok);
  EXPECT_EQ(TheToolkit().ShowMessage({.text = "x", .buttons = MessageButtons::YesNo}), MessageAnswer::Yes);
  TheToolkit().Beep();
  TheToolkit().OpenHelp("file", 1);
}

TEST_F(ScriptedToolkitTest, CallsWhoeverDrivesIt) {
  std::vector<std::string> heard;
  scripted.onForm = [&](Form& form, UserDriver& user) {
    heard.push_back(form.Name() + " " + user.FocusName());
    user.Type('x');
    user.Click(*form.FindControl("cmdHelp"));
    user.Click(*form.FindControl("cmdBeep"));
    user.Click(*form.FindControl("cmdAsk"));
    heard.push_back(user.Text(*form.FindControl("lblSeen")));
    user.Click(*form.FindControl("cmdOK"));
  };
  scripted.onMessage = [&](const BoxRequest& box) {
    heard.push_back(box.text);
    return MessageAnswer::No;
  };
  scripted.onBeep = [&] { heard.push_back("beep"); };
  scripted.onHelp = [&](std::string_view file, int32_t context) {
    heard.push_back(std::string(file) + " " + std::to_string(context));
  };
  EXPECT_TRUE(session.ShowLevyraScreen("15"));
  EXPECT_THAT(heard,
              testing::ElementsAre("frmPlayed txtA", "/help/ZELMOR.CHM>ShowTopic 100000004", "beep", "Sure?", "No"));
}

TEST_F(ScriptedToolkitTest, HearsEachHandler) {
  std::vector<std::string> heard;
  scripted.onEvent = [&](const std::string& handler) { heard.push_back(handler); };
  scripted.onForm = [](Form&, UserDriver& user) { user.Type('x'); };
  session.ShowLevyraScreen("15");
  EXPECT_THAT(heard,
              testing::ElementsAre("Form_Load", "Form_Activate", "Form_KeyDown", "Form_KeyPress", "txtA_Change"));
}

TEST_F(ScriptedToolkitTest, WhatItsDriverThrowsComesOutOfTheShow) {
  scripted.onForm = [](Form&, UserDriver&) { throw std::logic_error("a failed test"); };
  EXPECT_THROW(session.ShowLevyraScreen("15"), std::logic_error);
  scripted.onForm = [](Form& form, UserDriver& user) { user.Click(*form.FindControl("cmdBox")); };
  scripted.onMessage = [](const BoxRequest&) -> MessageAnswer { throw std::logic_error("a failed test"); };
  EXPECT_THROW(session.ShowLevyraScreen("15"), std::logic_error);
}

/// A screen whose host sets its callbacks anew while one of them runs.
class SelfReplacing : public ModuleTest {};

TEST_F(SelfReplacing, CallbacksMayPutOthersInTheirPlace) {
  ScriptedToolkit frontEnd;
  UseToolkit(&frontEnd);
  std::vector<std::string> seen;
  const std::string longEnoughForTheHeap(100, 'x');
  frontEnd.onForm = [&frontEnd, &seen, longEnoughForTheHeap](Form& form, UserDriver& user) {
    frontEnd.onForm = nullptr;
    seen.push_back("form " + longEnoughForTheHeap);
    user.Click(*form.FindControl("cmdOK"));
  };
  frontEnd.onMessage = [&frontEnd, &seen, longEnoughForTheHeap](const BoxRequest& box) {
    frontEnd.onMessage = nullptr;
    seen.push_back("box " + longEnoughForTheHeap);
    return box.DefaultAnswer();
  };
  frontEnd.onEvent = [&frontEnd, &seen, longEnoughForTheHeap](const std::string& handler) {
    frontEnd.onEvent = nullptr;
    seen.push_back(handler + " " + longEnoughForTheHeap);
  };
  frontEnd.onBeep = [&frontEnd, &seen, longEnoughForTheHeap] {
    frontEnd.onBeep = nullptr;
    seen.push_back("beep " + longEnoughForTheHeap);
  };
  frontEnd.onHelp = [&frontEnd, &seen, longEnoughForTheHeap](std::string_view, int32_t) {
    frontEnd.onHelp = nullptr;
    seen.push_back("help " + longEnoughForTheHeap);
  };
  Levyra session;
  EXPECT_TRUE(session.ShowLevyraScreen("15"));
  frontEnd.Beep();
  frontEnd.OpenHelp("help", 1);
  frontEnd.ShowMessage({.text = "a box"});
  EXPECT_EQ(seen, (std::vector<std::string>{"Form_Load " + longEnoughForTheHeap, "form " + longEnoughForTheHeap,
                                            "beep " + longEnoughForTheHeap, "help " + longEnoughForTheHeap,
                                            "box " + longEnoughForTheHeap}));
}

TEST(ScriptedToolkit, ItsUserCanBeWatched) {
  EveryKindForm form;
  ScriptedToolkit frontEnd;
  SessionRecorder recorder;
  frontEnd.Watch(&recorder);
  frontEnd.onForm = [&](Form&, UserDriver& user) {
    user.Click(form.txtPeriod);
    user.Type('2');
    user.Paste("0261");
    user.Click(form.chkFinal);
    user.PressMouse(form.cmdOK);
    user.Choose(form.cmbProvince, 1);
    frontEnd.Beep();
    user.CloseWindow(CloseReason::CloseBox);
  };
  form.ShowModal(frontEnd);
  EXPECT_EQ(recorder.Text(),
            "click txtPeriod\ntype 2\npaste 0261\nclick chkFinal\nfocus cmdOK\nchoose cmbProvince Manitoba\n"
            "expect beep\nclose 0\n");
}

}  // namespace
}  // namespace fiscalon
