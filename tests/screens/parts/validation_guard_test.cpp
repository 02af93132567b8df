#include "screens/parts/validation_guard.h"

#include "tests/support/part_test.h"

namespace fiscalon {
namespace {

using testing::ElementsAre;

class GuardedForm : public PartForm {
 public:
  ValidationGuard guard{*this, cmdCancel};
  TextField txtA{*this, "txtA", {.tabIndex = 0}, {.lostFocus = [this] { Left(txtA); }}};
  TextField txtB{*this, "txtB", {.tabIndex = 1}, {.lostFocus = [this] { Left(txtB); }}};
  Button cmdCancel{*this, "cmdCancel", {.cancel = true}, {}};

  bool passes = false;
  bool fails = false;
  std::vector<std::string> checked;

 private:
  void Left(Control& field) {
    guard.FieldIsLeft(field, [this, &field] {
      checked.push_back(field.Name());
      if (fails)
        Raise(error_number::kTypeMismatch);
      return passes;
    });
  }
};

class ValidationGuardTest : public PartTest<GuardedForm> {};

TEST_F(ValidationGuardTest, FieldThatHadJustReceivedTheFocusIsNotChecked) {
  WhileUp([&](FormUser& user) {
    user.Key("Tab");
    EXPECT_EQ(FocusName(), "txtA");
    EXPECT_THAT(form.checked, ElementsAre("txtA"));
    // The guard has come down: the next loss is checked again.
    user.Key("Tab");
    EXPECT_THAT(form.checked, ElementsAre("txtA", "txtA"));
  });
}

TEST_F(ValidationGuardTest, FieldThatPassesIsLeft) {
  form.passes = true;
  WhileUp([&](FormUser& user) {
    user.Key("Tab");
    EXPECT_EQ(FocusName(), "txtB");
    user.Key("Shift+Tab");
    EXPECT_EQ(FocusName(), "txtA");
    EXPECT_THAT(form.checked, ElementsAre("txtA", "txtB"));
  });
}

TEST_F(ValidationGuardTest, NothingIsCheckedOnTheWayToCancel) {
  WhileUp([&](FormUser& user) {
    user.acts.Press(form.cmdCancel);
    EXPECT_EQ(FocusName(), "cmdCancel");
    EXPECT_TRUE(form.checked.empty());
  });
}

TEST_F(ValidationGuardTest, CheckThatCannotBeMadeHasFailed) {
  form.fails = true;
  WhileUp([&](FormUser& user) {
    user.Key("Tab");
    EXPECT_EQ(FocusName(), "txtA");
    form.fails = false;
    form.passes = true;
    user.Key("Tab");
    EXPECT_EQ(FocusName(), "txtB");
    EXPECT_THAT(form.checked, ElementsAre("txtA", "txtA"));
  });
}

}  // namespace
}  // namespace fiscalon
