#include "core/forms/text_field.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "core/forms/form_observer.h"
#include "tests/support/test_form.h"

namespace fiscalon {
namespace {

class LimitedForm : public TestForm {
 public:
  // clang-format off
  TextField txtSix    {*this, "txtSix",    {.tabIndex = 0, .maxLength = 6}, Noted("txtSix")};
  TextField txtFree   {*this, "txtFree",   {.tabIndex = 1}, Noted("txtFree")};
  TextField txtLocked {*this, "txtLocked", {.tabIndex = 2, .maxLength = 6, .locked = true}, Noted("txtLocked")};
  Label     lblSix    {*this, "lblSix",    {}};
  // clang-format on
};

std::string Digits(std::string text) {
  std::erase_if(text, [](char c) { return c < '0' || c > '9'; });
  return text;
}

TEST(Change, FiresForEachCharacterTyped) {
  LimitedForm form;
  Play(form, [&](FormUser& user) {
    user.Type("abc");
    EXPECT_EQ(form.TakeNotes(), (Notes{"txtSix_Change", "txtSix_Change", "txtSix_Change"}));
    EXPECT_EQ(form.txtSix.Text(), "abc");
  });
}

TEST(Change, FiresWhenCodeSetsAnotherText) {
  LimitedForm form;
  form.Load();
  form.TakeNotes();
  form.txtFree.Text("x");
  form.txtFree.Text("y");
  EXPECT_EQ(form.TakeNotes(), (Notes{"txtFree_Change", "txtFree_Change"}));
}

TEST(Change, FiresNotWhenCodeSetsTheSameText) {
  LimitedForm form;
  form.txtFree.Text("x");
  form.TakeNotes();
  form.txtFree.Text("x");
  form.txtFree.Text(form.txtFree.Text());
  EXPECT_EQ(form.TakeNotes(), Notes());
}

TEST(Change, FiresNotWhenTheUsersEditLeavesTheText) {
  LimitedForm form;
  Play(form, [&](FormUser& user) {
    user.Key("Backspace");
    user.acts.EditText(form.txtSix, "", {});
    EXPECT_EQ(form.TakeNotes(), Notes());
    user.Type("a");
    form.txtSix.SelectAll();
    form.TakeNotes();
    user.Type("a");
    EXPECT_EQ(form.TakeNotes(), Notes()) << "the same character typed over itself";
  });
}

TEST(Change, NestsWhenItsHandlerSetsATextAgain) {
  LimitedForm form;
  int depth = 0;
  form.when["txtFree_Change"] = [&] {
    form.Note("in " + std::to_string(++depth) + " " + form.txtFree.Text());
    if (form.txtFree.Text().size() < 3)
      form.txtFree.Text(form.txtFree.Text() + "x");
    form.Note("out " + std::to_string(depth--));
  };
  form.Load();
  form.TakeNotes();
  form.txtFree.Text("a");
  EXPECT_EQ(form.TakeNotes(), (Notes{"txtFree_Change", "in 1 a", "txtFree_Change", "in 2 ax", "txtFree_Change",
                                     "in 3 axx", "out 3", "out 2", "out 1"}));
}

TEST(Change, OfOneFieldMaySetAnother) {
  LimitedForm form;
  form.when["txtFree_Change"] = [&] { form.txtSix.Text(form.txtFree.Text() + "!"); };
  form.Load();
  form.TakeNotes();
  form.txtFree.Text("a");
  EXPECT_EQ(form.TakeNotes(), (Notes{"txtFree_Change", "txtSix_Change"}));
  EXPECT_EQ(form.txtSix.Text(), "a!");
}

TEST(Change, FiresWhileTheFormLoads) {
  LimitedForm form;
  form.when["Form_Load"] = [&] { form.txtFree.Text("at load"); };
  form.Load();
  EXPECT_EQ(form.TakeNotes(), (Notes{"Form_Load", "txtFree_Change"}));
}

TEST(TextField, TakesATextCutFromItsOwn) {
  LimitedForm form;
  form.txtFree.Text("  a text long enough for the heap  ");
  form.txtFree.Text(std::string_view(form.txtFree.Text()).substr(2, 31));
  EXPECT_EQ(form.txtFree.Text(), "a text long enough for the heap");
}

TEST(Caret, KeepsItsDistanceFromTheEndWhenCodeSetsTheText) {
  struct Row {
    Selection before;
    std::string text;
    int caret;
  };
  // The text is "abcdef" before.
  const std::vector<Row> rows = {
      {{.start = 6}, "abc", 3},                 // At the end it stays at the end.
      {{.start = 6}, "abcdefgh", 8},            //
      {{.start = 4}, "abcde", 3},               // Two from the end.
      {{.start = 4}, "abcdefgh", 6},            //
      {{.start = 0}, "abc", 0},                 // Six from the end is before the beginning.
      {{.start = 0}, "abcdefgh", 2},            //
      {{.start = 1, .length = 3}, "abcde", 3},  // A selection collapses to its end.
      {{.start = 0, .length = 6}, "xyz", 3},    //
  };
  for (const Row& row : rows) {
    LimitedForm form;
    form.txtFree.Text("abcdef");
    form.txtFree.Select(row.before);
    form.txtFree.Text(row.text);
    EXPECT_EQ(form.txtFree.Selected().start, row.caret) << row.before.start << " " << row.text;
    EXPECT_EQ(form.txtFree.Selected().length, 0) << row.before.start << " " << row.text;
  }
}

TEST(Caret, LetsADigitsFilterTakeLettersOutOfWhatIsTyped) {
  LimitedForm form;
  form.when["txtFree_Change"] = [&] { form.txtFree.Text(Digits(form.txtFree.Text())); };
  Play(form, [&](FormUser& user) {
    user.acts.BringFocus(form.txtFree);
    user.Type("20a26");
    EXPECT_EQ(form.txtFree.Text(), "2026");
  });
}

TEST(Caret, StaysInPlaceWhenTheFilterTakesALetterOutOfTheMiddle) {
  LimitedForm form;
  form.when["txtFree_Change"] = [&] { form.txtFree.Text(Digits(form.txtFree.Text())); };
  Play(form, [&](FormUser& user) {
    user.acts.BringFocus(form.txtFree);
    user.Type("2026");
    user.acts.SelectText(form.txtFree, {.start = 2});
    user.Type("x1");
    EXPECT_EQ(form.txtFree.Text(), "20126");
    EXPECT_EQ(form.txtFree.Selected(), Selection{.start = 3});
  });
}

TEST(Selection, IsTheWholeTextWhenTheFocusComesByKeyboardOrCode) {
  LimitedForm form;
  form.txtSix.Text("123456");
  form.txtFree.Text("some");
  Play(form, [&](FormUser& user) {
    EXPECT_EQ(form.txtSix.Selected(), (Selection{.start = 0, .length = 6})) << "the first focus";
    user.Key("Tab");
    EXPECT_EQ(form.txtFree.Selected(), (Selection{.start = 0, .length = 4}));
    form.when["txtFree_Change"] = [&] { form.txtSix.SetFocus(); };
    form.txtSix.Select({.start = 2});
    user.Type("x");
    EXPECT_EQ(form.txtSix.Selected(), (Selection{.start = 0, .length = 6}));
  });
}

TEST(Selection, IsACaretBehindTheTextWhenTheFocusComesByMouse) {
  LimitedForm form;
  form.txtFree.Text("some");
  Play(form, [&](FormUser& user) {
    user.acts.Press(form.txtFree);
    EXPECT_EQ(form.txtFree.Selected(), Selection{.start = 4});
    user.acts.SelectText(form.txtFree, {.start = 1});
    EXPECT_EQ(form.txtFree.Selected(), Selection{.start = 1}) << "where the mouse points";
  });
}

TEST(Selection, IsKeptWithinTheText) {
  LimitedForm form;
  form.txtFree.Text("abc");
  const std::vector<std::pair<Selection, Selection>> rows = {
      {{.start = 5, .length = 2}, {.start = 3, .length = 0}},
      {{.start = 1, .length = 9}, {.start = 1, .length = 2}},
      {{.start = -1, .length = 2}, {.start = 0, .length = 2}},
      {{.start = 2, .length = -1}, {.start = 2, .length = 0}},
  };
  for (const auto& [asked, kept] : rows) {
    form.txtFree.Select(asked);
    EXPECT_EQ(form.txtFree.Selected(), kept);
  }
}

TEST(MaxLength, LimitsWhatIsTyped) {
  LimitedForm form;
  Play(form, [&](FormUser& user) {
    user.Type("1234567");
    EXPECT_EQ(form.txtSix.Text(), "123456");
    EXPECT_EQ(form.TakeNotes().size(), 6U);
    user.acts.SelectText(form.txtSix, {.start = 1, .length = 2});
    user.Type("x");
    EXPECT_EQ(form.txtSix.Text(), "1x456");
  });
}

TEST(MaxLength, CutsAPasteWhereItIsPutIn) {
  struct Row {
    std::string before;
    Selection selection;
    std::string after;
    int caret;
  };
  // "abcdefgh" is pasted.
  const std::vector<Row> rows = {
      {"", {}, "abcdef", 6},
      {"1234", {.start = 4}, "1234ab", 6},
      {"1234", {.start = 0}, "ab1234", 2},
      {"1234", {.start = 2}, "12ab34", 4},
      {"123456", {.start = 3}, "123456", 3},
      {"123456", {.start = 1, .length = 4}, "1abcd6", 5},
  };
  for (const Row& row : rows) {
    LimitedForm form;
    form.txtSix.Text(row.before);
    Play(form, [&](FormUser& user) {
      user.acts.SelectText(form.txtSix, row.selection);
      user.Paste(form.txtSix, "abcdefgh");
      EXPECT_EQ(form.txtSix.Text(), row.after) << row.before;
      EXPECT_EQ(form.txtSix.Selected(), Selection{.start = row.caret}) << row.before;
    });
  }
}

TEST(MaxLength, LimitsNoCode) {
  LimitedForm form;
  form.txtSix.Text("123456789");
  EXPECT_EQ(form.txtSix.Text(), "123456789");
}

TEST(MaxLength, LetsATooLongTextOfCodeShrinkButNotGrow) {
  LimitedForm form;
  form.txtSix.Text("123456789");
  Play(form, [&](FormUser& user) {
    user.acts.SelectText(form.txtSix, {.start = 9});
    user.Type("x");
    EXPECT_EQ(form.txtSix.Text(), "123456789");
    user.Key("Backspace");
    EXPECT_EQ(form.txtSix.Text(), "12345678");
    user.Type("x");
    EXPECT_EQ(form.txtSix.Text(), "12345678");
  });
}

TEST(MaxLength, CutsWhatTakesThePlaceOfATooLongText) {
  struct Row {
    Selection selection;
    std::string edited;
    std::string after;
    Selection selectedAfter;
  };
  // The text is "123456789" before, and "abcdefgh" was put in, by an editor that may have cut it already.
  const std::vector<Row> rows = {
      {{.start = 0, .length = 9}, "abcdefgh", "abcdef", {.start = 6}},
      {{.start = 0, .length = 4}, "abcd56789", "a56789", {.start = 1}},
      {{.start = 4, .length = 5}, "1234abcdefgh", "1234ab", {.start = 6}},
      {{.start = 0, .length = 2}, "ab3456789", "123456789", {.start = 0, .length = 2}},
      {{.start = 9}, "123456789abcdefgh", "123456789", {.start = 9}},
      // The selection is deleted, and no more.
      {{.start = 0, .length = 2}, "3456789", "3456789", {}},
  };
  for (const Row& row : rows) {
    LimitedForm form;
    form.txtSix.Text("123456789");
    Play(form, [&](FormUser& user) {
      user.acts.SelectText(form.txtSix, row.selection);
      const int unselected = 9 - row.selection.End();
      user.acts.EditText(form.txtSix, row.edited, {.start = static_cast<int>(row.edited.size()) - unselected});
      EXPECT_EQ(form.txtSix.Text(), row.after) << row.edited;
      EXPECT_EQ(form.txtSix.Selected(), row.selectedAfter) << row.edited;
    });
  }
}

TEST(MaxLength, HoldsWhereTheEditTellsNoSensibleCaret) {
  for (const int caret : {-5, 0, 3, 100}) {
    LimitedForm form;
    Play(form, [&](FormUser& user) {
      user.acts.EditText(form.txtSix, "123456789", {.start = caret});
      EXPECT_EQ(form.txtSix.Text().size(), 6U) << caret;
    });
  }
}

TEST(MaxLength, OfNoneLimitsNothing) {
  LimitedForm form;
  const std::string text(1000, 'x');
  Play(form, [&](FormUser& user) {
    user.Paste(form.txtFree, text);
    EXPECT_EQ(form.txtFree.Text(), text);
  });
}

TEST(Paste, FiresChangeOnceAndNoKeyEvent) {
  LimitedForm form;
  form.notesKeys = true;
  Play(form, [&](FormUser& user) {
    user.Paste(form.txtSix, "abc");
    EXPECT_EQ(form.TakeNotes(), Notes{"txtSix_Change"});
    EXPECT_EQ(form.txtSix.Text(), "abc");
  });
}

TEST(Paste, GoesThroughTheFilterOfChange) {
  LimitedForm form;
  form.when["txtSix_Change"] = [&] { form.txtSix.Text(Digits(form.txtSix.Text())); };
  Play(form, [&](FormUser& user) {
    user.Paste(form.txtSix, "2a0b2c6d");
    // The limit cuts first: "2a0b2c" is what the filter sees.
    EXPECT_EQ(form.txtSix.Text(), "202");
  });
}

TEST(LockedField, KeepsItsTextFromTheUserButNotFromCode) {
  LimitedForm form;
  form.txtLocked.Text("total");
  Play(form, [&](FormUser& user) {
    user.acts.BringFocus(form.txtLocked);
    form.TakeNotes();
    user.Type("x");
    user.Key("Backspace");
    user.Paste(form.txtLocked, "pasted");
    EXPECT_EQ(form.txtLocked.Text(), "total");
    EXPECT_EQ(form.TakeNotes(), Notes());
    form.txtLocked.Text("other");
    EXPECT_EQ(form.txtLocked.Text(), "other");
    EXPECT_EQ(form.TakeNotes(), Notes{"txtLocked_Change"});
    form.txtLocked.Locked(false);
    user.acts.SelectText(form.txtLocked, {.start = 5});
    user.Type("s");
    EXPECT_EQ(form.txtLocked.Text(), "others");
  });
}

TEST(EditText, LeavesALineEndAloneThatCodeHasPutIn) {
  LimitedForm form;
  form.txtFree.Text("a\nb");
  PlayAt(form, [&](FormUser& user) {
    user.acts.EditText(form.txtFree, "xa\nb", {.start = 1});
    EXPECT_EQ(form.txtFree.Text(), "xa\nb");
    EXPECT_EQ(form.txtFree.Selected().start, 1);
  });
}

TEST(FormObserver, HearsOfAnotherCaptionOfTheFormWhileItIsUp) {
  class CaptionObserver : public FormObserver {
   public:
    int captions = 0;
    void CaptionChanged() override { ++captions; }
  };
  LimitedForm form;
  CaptionObserver observer;
  ServingToolkit toolkit;
  toolkit.observer = &observer;
  toolkit.serve = [&] {
    form.Caption("Limits");
    EXPECT_EQ(observer.captions, 1);
  };
  form.ShowModal(toolkit);
}

TEST(FormObserver, HearsNothingOfAFormThatIsNotUp) {
  class AnyObserver : public FormObserver {
   public:
    int heard = 0;
    void CaptionChanged() override { ++heard; }
    void ControlChanged(const Control& /*control*/) override { ++heard; }
  };
  LimitedForm form;
  AnyObserver observer;
  form.Observe(&observer);
  form.Caption("Limits");
  form.lblSix.Caption("Six:");
  EXPECT_EQ(observer.heard, 0);
}

TEST(FormObserver, NeedNotBeThere) {
  LimitedForm form;
  PlayAt(form, [&](FormUser& /*user*/) {
    form.Caption("Limits");
    form.lblSix.Caption("Six:");
  });
  EXPECT_EQ(form.Caption(), "Limits");
}

TEST(FormObserver, HearsOfAChangeByCodeAndByTheUser) {
  class EventObserver : public FormObserver {
   public:
    Notes heard;
    void HandlerRuns(std::string_view object, std::string_view event) override {
      heard.push_back(std::string(object) + " " + std::string(event));
    }
  };
  TwoFieldForm form;
  EventObserver observer;
  ServingToolkit toolkit;
  toolkit.observer = &observer;
  toolkit.serve = [&] {
    observer.heard.clear();
    form.txtA.Text("x");
    EXPECT_EQ(observer.heard, Notes{"txtA Change"});
    observer.heard.clear();
    form.Acts().EditText(form.txtB, "y", {.start = 1});
    EXPECT_EQ(observer.heard, Notes{"txtB Change"});
  };
  form.ShowModal(toolkit);
}

TEST(FormObserver, HearsWhatChangesOnAControlWhileTheFormIsUp) {
  class ChangeObserver : public FormObserver {
   public:
    int changes = 0;
    void ControlChanged(const Control& /*control*/) override { ++changes; }
  };
  LimitedForm form;
  ChangeObserver observer;
  ServingToolkit toolkit;
  toolkit.observer = &observer;
  toolkit.serve = [&] {
    const std::vector<std::function<void()>> changes = {
        [&] { form.txtFree.Text("x"); },      [&] { form.txtFree.Locked(true); },
        [&] { form.txtFree.Enabled(false); }, [&] { form.txtFree.Visible(false); },
        [&] { form.txtFree.SelectAll(); },    [&] { form.Acts().EditText(form.txtSix, "typed", {}); },
        [&] { form.lblSix.Caption("Six:"); },
    };
    for (size_t i = 0; i < changes.size(); ++i) {
      observer.changes = 0;
      changes[i]();
      EXPECT_EQ(observer.changes, 1) << i;
    }
    observer.changes = 0;
    form.txtFree.Text("x");
    form.txtFree.Enabled(false);
    form.txtFree.Visible(false);
    EXPECT_EQ(observer.changes, 0) << "nothing is new";
  };
  form.ShowModal(toolkit);
}

}  // namespace
}  // namespace fiscalon
