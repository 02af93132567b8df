#include "screens/parts/statement_choice.h"

#include "tests/support/part_test.h"

namespace fiscalon {
namespace {

using testing::ElementsAre;

class ChoiceForm : public PartForm {
 public:
  // clang-format off
  StatementChoice StatementOnly {*this, "StatementOnly", {.tabIndex = 1, .details = &Date,
                                                          .chosen = [this] { notes.push_back(Choice()); },
                                                          .accept = [this] { Accepted(); }}};
  TextField       Date          {*this, "Date",          {.tabIndex = 3}};
  // clang-format on

  std::vector<std::string> notes;

 private:
  std::string Choice() const { return StatementOnly.PaysStatementAlone() ? "statement" : "details"; }
  void Form_Load() override { StatementOnly[1].Value(true); }
};

class StatementChoiceTest : public PartTest<ChoiceForm> {
 protected:
  void ExpectChoice(bool statement) {
    EXPECT_EQ(form.StatementOnly[0].Value(), statement);
    EXPECT_EQ(form.StatementOnly[1].Value(), !statement);
  }
};

TEST_F(StatementChoiceTest, BoxesAreNamedAndOrdered) {
  EXPECT_EQ(form.StatementOnly[0].Name(), "StatementOnly(0)");
  EXPECT_EQ(form.StatementOnly[0].Caption(), "Paying statement of account only");
  EXPECT_EQ(form.StatementOnly[0].Designed().tabIndex, 1);
  EXPECT_EQ(form.StatementOnly[1].Caption(), "Paying with details below");
  EXPECT_EQ(form.StatementOnly[1].Designed().tabIndex, 2);
}

TEST_F(StatementChoiceTest, EitherBoxMakesTheOtherItsOpposite) {
  WhileUp([&](FormUser& user) {
    ExpectChoice(false);
    user.acts.Click(form.StatementOnly[0]);
    ExpectChoice(true);
    user.acts.Click(form.StatementOnly[0]);
    ExpectChoice(false);
    user.acts.Click(form.StatementOnly[1]);
    ExpectChoice(true);
    user.acts.Click(form.StatementOnly[1]);
    ExpectChoice(false);
  });
}

TEST_F(StatementChoiceTest, DetailsGetTheFocusWhereTheyCanTakeIt) {
  WhileUp([&](FormUser& user) {
    user.acts.Click(form.StatementOnly[0]);
    EXPECT_EQ(FocusName(), "StatementOnly(0)");
    user.acts.Click(form.StatementOnly[0]);
    EXPECT_EQ(FocusName(), "Date");
    form.Date.Enabled(false);
    form.StatementOnly[0].Value(true);
    user.acts.Click(form.StatementOnly[1]);
    EXPECT_EQ(FocusName(), "StatementOnly(1)");
  });
}

TEST_F(StatementChoiceTest, FormHearsOfTheChoiceBeforeTheFocusMoves) {
  WhileUp([&](FormUser& user) {
    form.notes.clear();
    // Once for the box that the click turned over, once for the one that follows it.
    user.acts.Click(form.StatementOnly[0]);
    EXPECT_THAT(form.notes, ElementsAre("statement", "statement"));
  });
}

TEST_F(StatementChoiceTest, EnterOnTheStatementAcceptsWithoutRecords) {
  WhileUp([&](FormUser& user) {
    form.StatementOnly[0].SetFocus();
    user.Key("Enter");
    EXPECT_FALSE(form.IsUp());
    ExpectChoice(true);
  });
  EXPECT_EQ(form.Chosen(), kTrue);
  EXPECT_EQ(form.PC4Records()->Count(), 0);
}

TEST_F(StatementChoiceTest, EnterOnTheDetailsGoesThere) {
  WhileUp([&](FormUser& user) {
    form.StatementOnly[0].Value(true);
    form.StatementOnly[1].SetFocus();
    user.Key("Enter");
    EXPECT_TRUE(form.IsUp());
    ExpectChoice(false);
    EXPECT_EQ(FocusName(), "Date");
  });
}

TEST_F(StatementChoiceTest, OtherKeysChooseNothing) {
  WhileUp([&](FormUser& user) {
    form.StatementOnly[0].SetFocus();
    user.Type("1x");
    EXPECT_TRUE(form.IsUp());
    ExpectChoice(false);
    EXPECT_EQ(FocusName(), "StatementOnly(0)");
  });
}

}  // namespace
}  // namespace fiscalon
