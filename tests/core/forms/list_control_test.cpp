#include "core/forms/list_control.h"

#include <gtest/gtest.h>

#include "core/forms/form_observer.h"
#include "tests/support/raises.h"
#include "tests/support/test_form.h"

namespace fiscalon {
namespace {

class ListsForm : public TestForm {
 public:
  // clang-format off
  DropDownList cmbKind {*this, "cmbKind", {.tabIndex = 0}, Noted("cmbKind")};
  ListBox      lstRows {*this, "lstRows", {.tabIndex = 1}, Noted("lstRows")};
  TextField    txtNext {*this, "txtNext", {.tabIndex = 2}, Noted("txtNext")};
  // clang-format on

 protected:
  void Form_Load() override {
    for (ListControl* list : std::initializer_list<ListControl*>{&cmbKind, &lstRows})
      for (const char* row : {"Fuel Tax", "Tourism Levy", "Tobacco Tax"}) list->AddItem(row);
  }
};

/// The selected rows after each of several presses of a key.
std::vector<int> RowAfterEach(const ListControl& list, FormUser& user, std::string_view keyName, int times) {
  std::vector<int> rows;
  for (int i = 0; i < times; ++i) {
    user.Key(keyName);
    rows.push_back(list.ListIndex());
  }
  return rows;
}

TEST(ListControl, KeepsRowsInTheOrderAdded) {
  ListsForm form;
  EXPECT_EQ(form.cmbKind.ListCount(), 3);
  EXPECT_EQ(form.cmbKind.List(0), "Fuel Tax");
  EXPECT_EQ(form.cmbKind.List(2), "Tobacco Tax");
  EXPECT_EQ(form.cmbKind.List(3), "");
  EXPECT_EQ(form.cmbKind.List(-1), "");
}

TEST(ListControl, HasNothingSelectedAtFirst) {
  ListsForm form;
  EXPECT_EQ(form.cmbKind.ListIndex(), -1);
  EXPECT_EQ(form.cmbKind.Text(), "");
}

TEST(ListControl, SelectsByCodeWithoutClick) {
  ListsForm form;
  form.cmbKind.ListIndex(1);
  EXPECT_EQ(form.cmbKind.Text(), "Tourism Levy");
  form.cmbKind.ListIndex(-1);
  EXPECT_EQ(form.cmbKind.Text(), "");
  EXPECT_EQ(form.TakeNotes(), Notes());
}

TEST(ListControl, RaisesErrorFiveForARowThatIsNotThere) {
  ListsForm form;
  for (const int row : {-2, 3, 100}) EXPECT_EQ(ErrorOf([&] { form.cmbKind.ListIndex(row); }), 5) << row;
  for (const int row : {-1, 3}) EXPECT_EQ(ErrorOf([&] { form.cmbKind.RemoveItem(row); }), 5) << row;
}

TEST(ListControl, KeepsItsSelectionOnTheRowWhenAnotherIsRemoved) {
  struct Row {
    int selected;
    int removed;
    int after;
  };
  for (const Row& row : {Row{0, 0, -1}, Row{1, 0, 0}, Row{0, 1, 0}, Row{2, 2, -1}, Row{-1, 1, -1}}) {
    ListsForm form;
    form.lstRows.ListIndex(row.selected);
    form.lstRows.RemoveItem(row.removed);
    EXPECT_EQ(form.lstRows.ListIndex(), row.after) << row.selected << " " << row.removed;
    EXPECT_EQ(form.lstRows.ListCount(), 2);
  }
}

TEST(ListControl, IsClearedWithItsSelection) {
  ListsForm form;
  form.lstRows.ListIndex(1);
  form.lstRows.Clear();
  EXPECT_EQ(form.lstRows.ListCount(), 0);
  EXPECT_EQ(form.lstRows.ListIndex(), -1);
}

TEST(Choose, MovesTheFocusThenClicks) {
  ListsForm form;
  form.when["lstRows_Click"] = [&] { form.Note(form.lstRows.Text()); };
  Play(form, [&](FormUser& user) {
    user.acts.Choose(form.lstRows, 1);
    EXPECT_EQ(form.TakeNotes(),
              (Notes{"lstRows_MouseDown", "cmbKind_LostFocus", "lstRows_Click", "Tourism Levy", "lstRows_Chosen"}));
    EXPECT_EQ(form.ActiveControl(), &form.lstRows);
  });
}

TEST(Choose, ClicksAlsoForTheRowThatWasSelectedBefore) {
  ListsForm form;
  Play(form, [&](FormUser& user) {
    user.acts.Choose(form.cmbKind, 1);
    form.TakeNotes();
    user.acts.Choose(form.cmbKind, 1);
    EXPECT_EQ(form.TakeNotes(), (Notes{"cmbKind_MouseDown", "cmbKind_Click", "cmbKind_Chosen"}));
  });
}

TEST(Choose, IsCancelledByACheckThatPullsTheFocusBack) {
  ListsForm form;
  form.when["txtNext_LostFocus"] = [&] { form.txtNext.SetFocus(); };
  Play(form, [&](FormUser& user) {
    user.acts.BringFocus(form.txtNext);
    form.TakeNotes();
    user.acts.Choose(form.cmbKind, 1);
    EXPECT_EQ(form.TakeNotes(), (Notes{"cmbKind_MouseDown", "txtNext_LostFocus", "cmbKind_LostFocus"}));
    EXPECT_EQ(form.cmbKind.ListIndex(), -1);
  });
}

TEST(Choose, DoesNothingForARowThatIsGoneByThen) {
  ListsForm form;
  form.when["cmbKind_LostFocus"] = [&] { form.lstRows.Clear(); };
  Play(form, [&](FormUser& user) {
    user.acts.Choose(form.lstRows, 2);
    EXPECT_EQ(form.TakeNotes(), (Notes{"lstRows_MouseDown", "cmbKind_LostFocus"}));
    EXPECT_TRUE(form.IsUp());
  });
}

TEST(Choose, DoesNothingOnADisabledList) {
  ListsForm form;
  form.lstRows.Enabled(false);
  Play(form, [&](FormUser& user) {
    user.acts.Choose(form.lstRows, 1);
    EXPECT_EQ(form.TakeNotes(), Notes());
    EXPECT_EQ(form.lstRows.ListIndex(), -1);
  });
}

TEST(ArrowKeys, StepThroughTheRowsOfEitherListAndStopAtItsEnds) {
  ListsForm form;
  Play(form, [&](FormUser& user) {
    for (ListControl* list : std::initializer_list<ListControl*>{&form.cmbKind, &form.lstRows}) {
      user.acts.BringFocus(*list);
      EXPECT_EQ(RowAfterEach(*list, user, "Down", 4), (std::vector<int>{0, 1, 2, 2})) << list->Name();
      EXPECT_EQ(RowAfterEach(*list, user, "Up", 3), (std::vector<int>{1, 0, 0})) << list->Name();
      EXPECT_EQ(RowAfterEach(*list, user, "End", 1), std::vector<int>{2}) << list->Name();
      EXPECT_EQ(RowAfterEach(*list, user, "Home", 1), std::vector<int>{0}) << list->Name();
    }
  });
}

TEST(ArrowKeys, ClickWhenTheRowChangesAndNotAtTheEnds) {
  ListsForm form;
  Play(form, [&](FormUser& user) {
    user.Key("Home");
    user.Key("Up");
    EXPECT_EQ(form.TakeNotes(), Notes{"cmbKind_Click"});
    user.Key("End");
    user.Key("Down");
    EXPECT_EQ(form.TakeNotes(), Notes{"cmbKind_Click"});
  });
}

TEST(FormObserver, HearsOfEachChangeOfAList) {
  class ChangeObserver : public FormObserver {
   public:
    Notes heard;
    void ControlChanged(const Control& control) override { heard.push_back(control.Name()); }
  };
  ListsForm form;
  ChangeObserver observer;
  ServingToolkit toolkit;
  toolkit.observer = &observer;
  toolkit.serve = [&] {
    const std::vector<std::function<void()>> changes = {
        [&] { form.lstRows.AddItem("One more"); }, [&] { form.lstRows.ListIndex(1); },
        [&] { form.lstRows.RemoveItem(0); },       [&] { form.lstRows.Clear(); },
        [&] { FormUser(form).Key("Down"); },
    };
    for (size_t i = 0; i < changes.size(); ++i) {
      observer.heard.clear();
      changes[i]();
      EXPECT_EQ(observer.heard, Notes{i < 4 ? "lstRows" : "cmbKind"}) << i;
    }
  };
  form.ShowModal(toolkit);
}

TEST(ArrowKeys, AreHeardOfAsClicks) {
  class ClickObserver : public FormObserver {
   public:
    Notes heard;
    void HandlerRuns(std::string_view object, std::string_view event) override {
      heard.push_back(std::string(object) + " " + std::string(event));
    }
  };
  ListsForm form;
  ClickObserver observer;
  ServingToolkit toolkit;
  toolkit.observer = &observer;
  toolkit.serve = [&] {
    observer.heard.clear();
    FormUser(form).Key("Down");
    EXPECT_EQ(observer.heard.back(), "cmbKind Click");
  };
  form.ShowModal(toolkit);
}

TEST(Pick, ClicksAfterAPress) {
  ListsForm form;
  Play(form, [&](FormUser& user) {
    EXPECT_TRUE(user.acts.Press(form.lstRows));
    EXPECT_EQ(form.TakeNotes(), (Notes{"lstRows_MouseDown", "cmbKind_LostFocus"}));
    user.acts.Pick(form.lstRows, 2);
    EXPECT_EQ(form.TakeNotes(), (Notes{"lstRows_Click", "lstRows_Chosen"}));
    EXPECT_EQ(form.lstRows.Text(), "Tobacco Tax");
  });
}

TEST(Pick, DoesNothingWithoutTheFocus) {
  ListsForm form;
  Play(form, [&](FormUser& user) {
    user.acts.Pick(form.lstRows, 1);
    EXPECT_EQ(form.lstRows.ListIndex(), -1);
    EXPECT_EQ(form.TakeNotes(), Notes());
  });
}

TEST(ArrowKeys, SelectTheFirstRowWhereNoneIs) {
  ListsForm form;
  Play(form, [&](FormUser& user) { EXPECT_EQ(RowAfterEach(form.cmbKind, user, "Up", 1), std::vector<int>{0}); });
}

TEST(ArrowKeys, DoNothingOnAnEmptyList) {
  ListsForm form;
  form.cmbKind.Clear();
  Play(form, [&](FormUser& user) {
    for (const char* name : {"Up", "Down", "Home", "End"}) user.Key(name);
    user.Type("f");
    EXPECT_EQ(form.cmbKind.ListIndex(), -1);
    EXPECT_EQ(form.TakeNotes(), Notes());
  });
}

TEST(ArrowKeys, RunThroughTheKeyHandlersFirst) {
  ListsForm form;
  form.notesKeys = true;
  form.whenKey["cmbKind_KeyDown"] = [](int& keyCode) { keyCode = keyCode == key::kDown ? 0 : keyCode; };
  Play(form, [&](FormUser& user) {
    user.Key("Down");
    EXPECT_EQ(form.TakeNotes(), (Notes{"Form_KeyDown 40", "cmbKind_KeyDown 40"}));
    EXPECT_EQ(form.cmbKind.ListIndex(), -1);
    user.Key("End");
    EXPECT_EQ(form.TakeNotes(), (Notes{"Form_KeyDown 35", "cmbKind_KeyDown 35", "cmbKind_Click"}));
  });
}

TEST(LetterKeys, GoToTheNextRowThatBeginsWithTheLetterOfEitherCase) {
  ListsForm form;
  Play(form, [&](FormUser& user) {
    user.Type("t");
    EXPECT_EQ(form.cmbKind.ListIndex(), 1);
    user.Type("T");
    EXPECT_EQ(form.cmbKind.ListIndex(), 2);
    user.Type("t");
    EXPECT_EQ(form.cmbKind.ListIndex(), 1);
    user.Type("f");
    EXPECT_EQ(form.cmbKind.ListIndex(), 0);
    form.TakeNotes();
    user.Type("fx");
    EXPECT_EQ(form.cmbKind.ListIndex(), 0) << "the only row with that letter, and a letter of no row";
    EXPECT_EQ(form.TakeNotes(), Notes());
  });
}

TEST(LetterKeys, FollowTheCharacterThatAHandlerPutsInPlace) {
  ListsForm form;
  form.whenKey["cmbKind_KeyPress"] = [](int& character) { character = character == 'x' ? 't' : 0; };
  Play(form, [&](FormUser& user) {
    user.Type("f");
    EXPECT_EQ(form.cmbKind.ListIndex(), -1);
    user.Type("x");
    EXPECT_EQ(form.cmbKind.ListIndex(), 1);
  });
}

}  // namespace
}  // namespace fiscalon
