#include "screens/parts/enter_as_tab.h"

#include "tests/support/part_test.h"

namespace fiscalon {
namespace {

class KeyDownForm : public PartForm {
 public:
  TextField txtA{*this, "txtA", {.tabIndex = 0}};
  TextField txtB{*this, "txtB", {.tabIndex = 1}, {.keyPress = [this](int& character) { seen.push_back(character); }}};
  TextField txtC{*this, "txtC", {.tabIndex = 2}};

  std::vector<int> seen;

 private:
  void Form_KeyDown(int& keyCode, int shift) override { EnterAsTab(*this, keyCode, shift); }
};

using EnterAsTabOnKeyDown = PartTest<KeyDownForm>;

TEST_F(EnterAsTabOnKeyDown, EnterMovesOnWithoutShiftAlone) {
  WhileUp([&](FormUser& user) {
    user.Key("Enter");
    EXPECT_EQ(FocusName(), "txtB");
    for (const int shift : {shift_state::kShift, shift_state::kControl, shift_state::kAlt}) {
      int code = key::kEnter;
      EnterAsTab(form, code, shift);
      EXPECT_EQ(code, key::kEnter) << shift;
    }
    user.Key("Enter");
    EXPECT_EQ(FocusName(), "txtC");
  });
  EXPECT_TRUE(form.seen.empty());
}

TEST_F(EnterAsTabOnKeyDown, OtherKeysGoTheirWay) {
  WhileUp([&](FormUser& user) {
    user.Key("Enter");
    user.Type("1");
    EXPECT_EQ(FocusName(), "txtB");
    EXPECT_EQ(form.txtB.Text(), "1");
  });
}

class KeyPressForm : public PartForm {
 public:
  TextField txtA{*this, "txtA", {.tabIndex = 0}, {.keyPress = [this](int& character) { seen.push_back(character); }}};
  TextField txtB{*this, "txtB", {.tabIndex = 1}};

  std::vector<int> seen;

 private:
  void Form_KeyPress(int& character) override { EnterAsTab(*this, character); }
};

using EnterAsTabOnKeyPress = PartTest<KeyPressForm>;

TEST_F(EnterAsTabOnKeyPress, EnterMovesOnAndNeverReachesTheField) {
  WhileUp([&](FormUser& user) {
    user.Type("1");
    user.Key("Enter");
    EXPECT_EQ(FocusName(), "txtB");
  });
  EXPECT_THAT(form.seen, testing::ElementsAre('1'));
}

}  // namespace
}  // namespace fiscalon
