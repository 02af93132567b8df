#include <gtest/gtest.h>

#include "tests/support/test_form.h"

namespace fiscalon {
namespace {

class ProgramsForm : public TestForm {
 public:
  // clang-format off
  DropDownList cmbProgram {*this, "cmbProgram", {.tabIndex = 0}, Noted("cmbProgram")};
  TextField    txtNext    {*this, "txtNext",    {.tabIndex = 1}, Noted("txtNext")};
  // clang-format on

 protected:
  void Form_Load() override {
    for (const char* row : {"Corporate Income Tax", "Fuel Tax Collectors", "Fuel Tax: Railway Companies",
                            "Health Cost Recovery", "Insurance Tax", "International Fuel Tax Agreement (IFTA)",
                            "Propane Tax: Collectors", "Tobacco Tax", "Tourism Levy", "\xC9lan"})
      cmbProgram.AddItem(row);
  }
};

/// Types into the list of a fresh form.
std::string RowAfterTyping(std::string_view text) {
  ProgramsForm form;
  std::string row;
  Play(form, [&](FormUser& user) {
    user.Type(text);
    row = form.cmbProgram.Text();
  });
  return row;
}

TEST(TypingInAList, AddsToWhatWasTyped) {
  EXPECT_EQ(RowAfterTyping("i"), "Insurance Tax");
  EXPECT_EQ(RowAfterTyping("in"), "Insurance Tax");
  EXPECT_EQ(RowAfterTyping("int"), "International Fuel Tax Agreement (IFTA)");
  EXPECT_EQ(RowAfterTyping("TO"), "Tobacco Tax");
  EXPECT_EQ(RowAfterTyping("TOU"), "Tourism Levy");
}

TEST(TypingInAList, TakesABlankForACharacter) {
  EXPECT_EQ(RowAfterTyping("TOURISM LEVY"), "Tourism Levy");
  EXPECT_EQ(RowAfterTyping("fuel tax:"), "Fuel Tax: Railway Companies");
}

TEST(TypingInAList, IgnoresCaseOfAccentedLettersToo) {
  EXPECT_EQ(RowAfterTyping("\xE9L"), "\xC9lan");
}

TEST(TypingInAList, KeepsTheRowThatFitsAlready) {
  ProgramsForm form;
  form.cmbProgram.ListIndex(8);
  Play(form, [&](FormUser& user) {
    user.Type("to");
    EXPECT_EQ(form.cmbProgram.Text(), "Tourism Levy") << "the search begins at the selected row";
    EXPECT_EQ(form.TakeNotes(), Notes());
  });
}

TEST(TypingInAList, GoesRoundFromTheSelectedRow) {
  ProgramsForm form;
  form.cmbProgram.ListIndex(6);
  Play(form, [&](FormUser& user) {
    user.Type("fu");
    EXPECT_EQ(form.cmbProgram.Text(), "Fuel Tax Collectors");
  });
}

TEST(TypingInAList, TakesTheLetterAloneBehindTheSelectedRowWhereNothingFits) {
  ProgramsForm form;
  Play(form, [&](FormUser& user) {
    user.Type("f");
    EXPECT_EQ(form.cmbProgram.ListIndex(), 1);
    user.Type("f");
    EXPECT_EQ(form.cmbProgram.ListIndex(), 2) << "no row begins with \"ff\"";
    user.Type("f");
    EXPECT_EQ(form.cmbProgram.ListIndex(), 1);
    user.Type("t");
    EXPECT_EQ(form.cmbProgram.ListIndex(), 7);
    // The letter alone is what was typed now.
    user.Type("ou");
    EXPECT_EQ(form.cmbProgram.ListIndex(), 8);
  });
}

TEST(TypingInAList, DoesNothingWhereNoRowBeginsWithTheLetter) {
  ProgramsForm form;
  Play(form, [&](FormUser& user) {
    user.Type("to");
    form.TakeNotes();
    user.Type("x");
    EXPECT_EQ(form.cmbProgram.ListIndex(), 7);
    EXPECT_EQ(form.TakeNotes(), Notes());
    user.Type("u");
    EXPECT_EQ(form.cmbProgram.ListIndex(), 8) << "\"to\" is still typed";
  });
}

TEST(TypingInAList, IsForgottenByBackspace) {
  ProgramsForm form;
  Play(form, [&](FormUser& user) {
    user.Type("t");
    user.Key("Backspace");
    EXPECT_EQ(form.cmbProgram.ListIndex(), 7);
    user.Type("o");
    EXPECT_EQ(form.cmbProgram.ListIndex(), 7) << "no row begins with \"o\"";
    user.Type("t");
    EXPECT_EQ(form.cmbProgram.ListIndex(), 7) << "the row fits, since \"t\" is all that was typed";
  });
}

TEST(TypingInAList, IsForgottenWhenTheFocusComesAgain) {
  ProgramsForm form;
  Play(form, [&](FormUser& user) {
    user.Type("in");
    user.Key("Tab");
    user.Key("Shift+Tab");
    user.Type("t");
    EXPECT_EQ(form.cmbProgram.Text(), "Tobacco Tax") << "not \"int\"";
  });
}

TEST(TypingInAList, IsForgottenWhenTheRowIsChangedOtherwise) {
  const std::vector<std::pair<const char*, std::function<void(ProgramsForm&, FormUser&)>>> changes = {
      {"an arrow key", [](ProgramsForm&, FormUser& user) { user.Key("Up"); }},
      {"a pick", [](ProgramsForm& form, FormUser& user) { user.acts.Choose(form.cmbProgram, 0); }},
      {"code", [](ProgramsForm& form, FormUser&) { form.cmbProgram.ListIndex(0); }},
      {"a removal", [](ProgramsForm& form, FormUser&) { form.cmbProgram.RemoveItem(4); }},
  };
  for (const auto& [name, change] : changes) {
    ProgramsForm form;
    Play(form, [&, &change = change](FormUser& user) {
      user.Type("in");
      change(form, user);
      user.Type("t");
      EXPECT_EQ(form.cmbProgram.Text(), "Tobacco Tax");
    });
    EXPECT_FALSE(form.cmbProgram.ListIndex() < 0) << name;
  }
}

TEST(TypingInAList, ClicksWhenTheRowChangesAndChoosesNothing) {
  ProgramsForm form;
  Play(form, [&](FormUser& user) {
    user.Type("in");
    EXPECT_EQ(form.TakeNotes(), Notes{"cmbProgram_Click"});
    user.Type("t");
    EXPECT_EQ(form.TakeNotes(), Notes{"cmbProgram_Click"});
    user.Key("Down");
    EXPECT_EQ(form.TakeNotes(), Notes{"cmbProgram_Click"});
    user.Key("Enter");
    EXPECT_EQ(form.TakeNotes(), Notes()) << "the rows are not dropped down";
  });
}

TEST(Chosen, FollowsTheClickOfAPickAlsoForTheSameRow) {
  ProgramsForm form;
  form.when["cmbProgram_Click"] = [&] { form.Note(form.cmbProgram.Text()); };
  Play(form, [&](FormUser& user) {
    for (int i = 0; i < 2; ++i) {
      user.acts.Choose(form.cmbProgram, 8);
      EXPECT_EQ(form.TakeNotes(),
                (Notes{"cmbProgram_MouseDown", "cmbProgram_Click", "Tourism Levy", "cmbProgram_Chosen"}));
    }
    // Dropped down by a key, and Enter.
    user.acts.Pick(form.cmbProgram, 7);
    EXPECT_EQ(form.TakeNotes(), (Notes{"cmbProgram_Click", "Tobacco Tax", "cmbProgram_Chosen"}));
  });
}

TEST(Chosen, DoesNotFollowAClickThatHidesTheForm) {
  ProgramsForm form;
  form.when["cmbProgram_Click"] = [&] { form.Hide(); };
  Play(form, [&](FormUser& user) { user.acts.Choose(form.cmbProgram, 8); });
  EXPECT_EQ(form.TakeNotes(), (Notes{"cmbProgram_MouseDown", "cmbProgram_Click"}));
}

TEST(Chosen, MayMoveTheFocusOn) {
  ProgramsForm form;
  form.when["cmbProgram_Chosen"] = [&] { form.txtNext.SetFocus(); };
  Play(form, [&](FormUser& user) {
    user.Type("tou");
    EXPECT_EQ(form.ActiveControl(), &form.cmbProgram);
    user.acts.Choose(form.cmbProgram, 8);
    EXPECT_EQ(form.ActiveControl(), &form.txtNext);
    EXPECT_EQ(form.TakeNotes().back(), "cmbProgram_LostFocus");
  });
}

}  // namespace
}  // namespace fiscalon
