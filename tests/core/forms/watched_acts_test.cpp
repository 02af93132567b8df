#include "core/forms/watched_acts.h"

#include <gtest/gtest.h>

#include <string>
#include <variant>

#include "tests/support/test_form.h"

namespace fiscalon {
namespace {

/// Notes on the form itself what it hears, between what the handlers note there.
class NotingWatcher : public ActWatcher {
 public:
  explicit NotingWatcher(TestForm& form) : form_(form) {}

  void ActBegins(const UserAct& act) override {
    form_.Note(std::visit([](const auto& done) { return Told(done); }, act));
  }
  void ActEnded() override { form_.Note("."); }

 private:
  static std::string Told(const KeyAct& act) {
    constexpr const char* kHalves[] = {"", " alone", " as a character"};
    const KeyStroke& stroke = act.stroke;
    return "key " + std::to_string(stroke.keyCode) + "+" + std::to_string(stroke.shift) + " " +
           std::to_string(stroke.character) + kHalves[static_cast<int>(act.half)];
  }
  static std::string Told(const EditAct& act) {
    const bool byKey = act.origin == EditAct::Origin::Key;
    return "edit " + act.field->Name() + " from '" + act.field->Text() + "' to '" + act.text + "' at " +
           std::to_string(act.selection.start) + (byKey ? " by key" : "");
  }
  static std::string Told(const PressAct& act) { return "press " + act.control->Name(); }
  static std::string Told(const ReleaseAct& act) { return "release " + act.control->Name(); }
  static std::string Told(const ClickAct& act) { return "click " + act.control->Name(); }
  static std::string Told(const ChooseAct& act) { return "choose " + act.list->Name() + " " + std::to_string(act.row); }
  static std::string Told(const BringFocusAct& act) { return "focus to " + act.control->Name(); }
  static std::string Told(const CloseAct& act) {
    return act.reason == CloseReason::CloseBox ? "close by the box" : "close otherwise";
  }

  TestForm& form_;
};

class WatchedForm : public TwoFieldForm {
 public:
  DropDownList cmb{*this, "cmb", {}, Noted("cmb")};

  NotingWatcher watcher{*this};
  WatchedActs acts{*this, &watcher, [this] { Note("settled"); }};

 protected:
  void Form_Load() override {
    for (const char* row : {"Fuel", "Tobacco", "Tourism"}) cmb.AddItem(row);
  }
};

/// Shows the form and acts on it.
void PlayWatched(WatchedForm& form, const std::function<void(WatchedActs& acts)>& play) {
  Play(form, [&](FormUser& /*user*/) { play(form.acts); });
}

TEST(WatchedActs, TellOfAKeyBeforeTheFormHearsOfItAndSettleBehindIt) {
  WatchedForm form;
  form.notesKeys = true;
  PlayWatched(form, [&](WatchedActs& acts) {
    const KeyOutcome outcome = acts.Key(StrokeOf('a'));
    EXPECT_TRUE(outcome.editing);
    EXPECT_EQ(outcome.character, 'a');
    EXPECT_EQ(form.TakeNotes(), (Notes{"key 65+0 97", "Form_KeyDown 65", "txtA_KeyDown 65", "Form_KeyPress 97",
                                       "txtA_KeyPress 97", ".", "settled"}));
  });
}

TEST(WatchedActs, TellOfAKeyAndItsCharacterApart) {
  WatchedForm form;
  form.notesKeys = true;
  PlayWatched(form, [&](WatchedActs& acts) {
    const KeyOutcome down = acts.KeyDown('A', shift_state::kShift);
    EXPECT_TRUE(down.characterFollows);
    EXPECT_EQ(form.TakeNotes(), (Notes{"key 65+1 0 alone", "Form_KeyDown 65", "txtA_KeyDown 65", ".", "settled"}));
    const KeyOutcome typed = acts.Character('A');
    EXPECT_EQ(typed.character, 'A');
    EXPECT_EQ(form.TakeNotes(),
              (Notes{"key 65+1 65 as a character", "Form_KeyPress 65", "txtA_KeyPress 65", ".", "settled"}));
  });
}

TEST(WatchedActs, TellOfAnEditWhileTheFieldStillHasItsOldText) {
  WatchedForm form;
  PlayWatched(form, [&](WatchedActs& acts) {
    acts.EditText({.field = &form.txtA, .text = "ab", .selection = {.start = 1}, .origin = EditAct::Origin::Key});
    acts.EditText({.field = &form.txtA, .text = "abc", .selection = {.start = 3}});
    EXPECT_EQ(form.TakeNotes(), (Notes{"edit txtA from '' to 'ab' at 1 by key", "txtA_Change", ".", "settled",
                                       "edit txtA from 'ab' to 'abc' at 3", "txtA_Change", ".", "settled"}));
    EXPECT_EQ(form.txtA.Text(), "abc");
    EXPECT_EQ(form.txtA.Selected().start, 3);
  });
}

TEST(WatchedActs, KeepASelectionToTheField) {
  WatchedForm form;
  PlayWatched(form, [&](WatchedActs& acts) {
    acts.EditText({.field = &form.txtA, .text = "abc", .selection = {.start = 3}});
    form.TakeNotes();
    acts.SelectText(form.txtA, {.start = 1, .length = 2});
    EXPECT_EQ(form.txtA.Selected().start, 1);
    EXPECT_EQ(form.txtA.Selected().length, 2);
    EXPECT_EQ(form.TakeNotes(), Notes());
  });
}

TEST(WatchedActs, TellOfTheMouse) {
  WatchedForm form;
  PlayWatched(form, [&](WatchedActs& acts) {
    EXPECT_TRUE(acts.Press(form.cmdOK));
    EXPECT_EQ(form.TakeNotes(), (Notes{"press cmdOK", "cmdOK_MouseDown", "txtA_LostFocus", ".", "settled"}));
    acts.Release(form.cmdOK);
    EXPECT_EQ(form.TakeNotes(), (Notes{"release cmdOK", "cmdOK_Click", ".", "settled"}));
    acts.Click(form.cmdOK);
    EXPECT_EQ(form.TakeNotes(), (Notes{"click cmdOK", "cmdOK_MouseDown", "cmdOK_Click", ".", "settled"}));
  });
}

TEST(WatchedActs, TellOfAPressThatDoesNotClick) {
  WatchedForm form;
  form.cmdOK.Enabled(false);
  PlayWatched(form, [&](WatchedActs& acts) {
    EXPECT_FALSE(acts.Press(form.cmdOK));
    EXPECT_EQ(form.TakeNotes(), (Notes{"press cmdOK", ".", "settled"}));
  });
}

TEST(WatchedActs, TellOfARowThatIsPickedAsOfOneThatIsChosen) {
  WatchedForm form;
  PlayWatched(form, [&](WatchedActs& acts) {
    acts.Choose(form.cmb, 2);
    EXPECT_EQ(form.cmb.ListIndex(), 2);
    EXPECT_EQ(form.TakeNotes(),
              (Notes{"choose cmb 2", "cmb_MouseDown", "txtA_LostFocus", "cmb_Click", "cmb_Chosen", ".", "settled"}));
    acts.Pick(form.cmb, 1);
    EXPECT_EQ(form.cmb.ListIndex(), 1);
    EXPECT_EQ(form.TakeNotes(), (Notes{"choose cmb 1", "cmb_Click", "cmb_Chosen", ".", "settled"}));
  });
}

TEST(WatchedActs, TellOfTheFocusAndOfClosing) {
  WatchedForm form;
  PlayWatched(form, [&](WatchedActs& acts) {
    acts.BringFocus(form.txtB);
    EXPECT_EQ(form.ActiveControl(), &form.txtB);
    EXPECT_EQ(form.TakeNotes(), (Notes{"focus to txtB", "txtA_LostFocus", ".", "settled"}));
    acts.Close(CloseReason::CloseBox);
    EXPECT_FALSE(form.IsUp());
    EXPECT_EQ(form.TakeNotes(), (Notes{"close by the box", "Form_QueryUnload 0", "Unloaded", ".", "settled"}));
  });
}

// What comes in while an act is under way, such as what a message box lets through, is no act.
TEST(WatchedActs, TellOfNoActWithinAnother) {
  WatchedForm form;
  form.when["cmdOK_Click"] = [&] {
    EXPECT_TRUE(form.acts.Acting());
    form.acts.Key(StrokeOf('a'));
    EXPECT_TRUE(form.acts.Acting());
    form.acts.BringFocus(form.txtB);
  };
  PlayWatched(form, [&](WatchedActs& acts) {
    EXPECT_FALSE(acts.Acting());
    acts.Click(form.cmdOK);
    EXPECT_FALSE(acts.Acting());
    EXPECT_EQ(form.TakeNotes(),
              (Notes{"click cmdOK", "cmdOK_MouseDown", "txtA_LostFocus", "cmdOK_Click", ".", "settled"}));
  });
}

TEST(WatchedActs, NeedNobodyWhoHearsOfThem) {
  TwoFieldForm form;
  Play(form, [&](FormUser& /*user*/) {
    WatchedActs acts(form, nullptr);
    acts.Click(form.cmdOK);
    EXPECT_FALSE(acts.Acting());
    EXPECT_EQ(form.TakeNotes(), (Notes{"cmdOK_MouseDown", "txtA_LostFocus", "cmdOK_Click"}));
  });
}

TEST(WatchedActs, SettleWithoutAWatcherToo) {
  TwoFieldForm form;
  Play(form, [&](FormUser& /*user*/) {
    int settled = 0;
    WatchedActs acts(form, nullptr, [&] { ++settled; });
    acts.Click(form.cmdOK);
    EXPECT_EQ(settled, 1);
  });
}

// A widget that is pressed tells of its click when the mouse is up again; an assistive program clicks without a press.
TEST(WatchedActs, CompleteAPressByTheClickOfItsWidget) {
  WatchedForm form;
  PlayWatched(form, [&](WatchedActs& acts) {
    acts.Press(form.cmdOK);
    form.TakeNotes();
    acts.Clicked(form.cmdOK);
    EXPECT_EQ(form.TakeNotes(), (Notes{"release cmdOK", "cmdOK_Click", ".", "settled"}));
    acts.Clicked(form.cmdOK);
    EXPECT_EQ(form.TakeNotes(), (Notes{"click cmdOK", "cmdOK_MouseDown", "cmdOK_Click", ".", "settled"}));
  });
}

TEST(WatchedActs, TakeAClickElsewhereForOneOfItsOwn) {
  WatchedForm form;
  PlayWatched(form, [&](WatchedActs& acts) {
    acts.Press(form.txtB);
    form.TakeNotes();
    acts.Clicked(form.cmdOK);
    EXPECT_EQ(form.TakeNotes(),
              (Notes{"click cmdOK", "cmdOK_MouseDown", "txtB_LostFocus", "cmdOK_Click", ".", "settled"}));
  });
}

TEST(WatchedActs, TakeAClickAfterAPressThatFailedForOneOfItsOwn) {
  WatchedForm form;
  form.cmdOK.Enabled(false);
  PlayWatched(form, [&](WatchedActs& acts) {
    acts.Press(form.cmdOK);
    form.TakeNotes();
    acts.Clicked(form.cmdOK);
    EXPECT_EQ(form.TakeNotes(), (Notes{"click cmdOK", ".", "settled"}));
  });
}

TEST(WatchedActs, CountWhatBlocksTheirDialog) {
  TwoFieldForm form;
  WatchedActs acts(form, nullptr);
  EXPECT_EQ(acts.Interruptions(), 0);
  acts.Interrupted();
  acts.Interrupted();
  EXPECT_EQ(acts.Interruptions(), 2);
}

// A field that was pressed has the focus by code where a handler gave it, by the mouse otherwise.
TEST(WatchedActs, KnowWhetherCodeMovedTheFocusSinceThePressBegan) {
  WatchedForm form;
  form.when["txtB_MouseDown"] = [&] { form.acts.FocusMoved(FocusBy::KeyboardOrCode); };
  PlayWatched(form, [&](WatchedActs& acts) {
    EXPECT_FALSE(acts.IsFocusGiven());
    acts.FocusMoved(FocusBy::KeyboardOrCode);
    EXPECT_TRUE(acts.IsFocusGiven());
    acts.FocusMoved(FocusBy::Mouse);
    EXPECT_FALSE(acts.IsFocusGiven());
    acts.Press(form.txtB);
    EXPECT_TRUE(acts.IsFocusGiven());
    acts.Press(form.cmdOK);
    EXPECT_FALSE(acts.IsFocusGiven());
  });
}

}  // namespace
}  // namespace fiscalon
