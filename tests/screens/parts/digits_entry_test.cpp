#include "screens/parts/digits_entry.h"

#include "tests/support/part_test.h"

namespace fiscalon {
namespace {

class DigitsForm : public PartForm {
 public:
  // clang-format off
  DigitsEntry txtDigits {*this, "txtDigits", {.tabIndex = 0, .maxLength = 4}, &txtNext, {.lostFocus = [this] { ++left; }}};
  TextField   txtNext   {*this, "txtNext",   {.tabIndex = 1}};
  // clang-format on

  int left = 0;
};

using DigitsEntryTest = PartTest<DigitsForm>;

TEST_F(DigitsEntryTest, KeepsDigitsAndMovesOnWhenFull) {
  WhileUp([&](FormUser& user) {
    user.Type("1a2.3-");
    EXPECT_EQ(form.txtDigits.Text(), "123");
    EXPECT_EQ(FocusName(), "txtDigits");
    user.Type("4");
    EXPECT_EQ(form.txtDigits.Text(), "1234");
    EXPECT_EQ(FocusName(), "txtNext");
  });
  EXPECT_EQ(form.left, 1);
}

TEST_F(DigitsEntryTest, KeepsTheFocusWhereTheNextIsHidden) {
  // Hidden is not disabled: the move is tried, fails, and is skipped.
  WhileUp([&](FormUser& user) {
    form.txtNext.Visible(false);
    user.Type("1234");
    EXPECT_EQ(form.txtDigits.Text(), "1234");
    EXPECT_EQ(FocusName(), "txtDigits");
  });
}

TEST_F(DigitsEntryTest, LeavesATextAloneThatIsTooLongToFilter) {
  const std::string text(40000, 'x');
  form.txtDigits.Text(text);
  EXPECT_EQ(form.txtDigits.Text(), text);
}

}  // namespace
}  // namespace fiscalon
