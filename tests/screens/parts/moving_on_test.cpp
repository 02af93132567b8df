#include "screens/parts/moving_on.h"

#include "tests/support/part_test.h"

namespace fiscalon {
namespace {

class MovingForm : public PartForm {
 public:
  // clang-format off
  TextField txtA {*this, "txtA", {.tabIndex = 0, .maxLength = 3}};
  TextField txtB {*this, "txtB", {.tabIndex = 1, .maxLength = 2}, {.change = OnFull(txtB, [this] { return next; })}};
  TextField txtC {*this, "txtC", {.tabIndex = 2}};
  // clang-format on

  Control* next = &txtC;
};

class MovingOn : public PartTest<MovingForm> {};

TEST_F(MovingOn, FocusIsOnTheActiveControl) {
  EXPECT_FALSE(FocusIsOn(form.txtA));
  WhileUp([&](FormUser&) {
    EXPECT_TRUE(FocusIsOn(form.txtA));
    form.txtC.SetFocus();
    EXPECT_FALSE(FocusIsOn(form.txtA));
    EXPECT_TRUE(FocusIsOn(form.txtC));
  });
}

TEST_F(MovingOn, FocusGoesToAControlThatIsEnabledAndVisible) {
  WhileUp([&](FormUser&) {
    FocusIfAble(form.txtB);
    EXPECT_TRUE(FocusIsOn(form.txtB));
    form.txtC.Enabled(false);
    FocusIfAble(form.txtC);
    form.txtA.Visible(false);
    FocusIfAble(form.txtA);
    EXPECT_TRUE(FocusIsOn(form.txtB));
  });
}

TEST_F(MovingOn, FullFieldsMoveTheFocusOn) {
  WhileUp([&](FormUser&) {
    for (const char* notFull : {"12", "1234", "12 "}) {
      form.txtA.Text(notFull);
      MoveOnWhenFull(form.txtA, form.txtC);
      EXPECT_TRUE(FocusIsOn(form.txtA)) << notFull;
    }
    // Blanks around a text do not fill a field.
    form.txtA.Text(" 123 ");
    MoveOnWhenFull(form.txtA, form.txtC);
    EXPECT_TRUE(FocusIsOn(form.txtC));
  });
}

TEST_F(MovingOn, FullFieldsStayWhereTheNextIsDisabled) {
  WhileUp([&](FormUser&) {
    form.txtC.Enabled(false);
    form.txtA.Text("123");
    MoveOnWhenFull(form.txtA, form.txtC);
    EXPECT_TRUE(FocusIsOn(form.txtA));
  });
}

TEST_F(MovingOn, ChangeMovesTheFocusOnToWhatIsNextThen) {
  WhileUp([&](FormUser& user) {
    form.txtB.SetFocus();
    user.Type("1");
    EXPECT_TRUE(FocusIsOn(form.txtB));
    form.next = &form.txtA;
    user.Type("2");
    EXPECT_TRUE(FocusIsOn(form.txtA));
    form.next = nullptr;
    form.txtB.SetFocus();
    user.Type("34");
    EXPECT_TRUE(FocusIsOn(form.txtB));
  });
}

TEST_F(MovingOn, ChangeSkipsAMoveThatFails) {
  // Hidden is not disabled: the move is tried.
  WhileUp([&](FormUser& user) {
    form.txtB.SetFocus();
    form.txtC.Visible(false);
    user.Type("12");
    EXPECT_TRUE(FocusIsOn(form.txtB));
    EXPECT_EQ(form.txtB.Text(), "12");
  });
}

}  // namespace
}  // namespace fiscalon
