#include "screens/parts/refusal.h"

#include "tests/support/part_test.h"

namespace fiscalon {
namespace {

class RefusingForm : public PartForm {
 public:
  TextField txtA{*this, "txtA", {.tabIndex = 0}};
  TextField txtB{*this, "txtB", {.tabIndex = 1}};
};

class Refusal : public PartTest<RefusingForm> {};

TEST_F(Refusal, ShowsTheBoxAndMovesTheFocus) {
  WhileUp([&](FormUser&) {
    EXPECT_FALSE(Refuse(form.txtB, "No."));
    EXPECT_EQ(FocusName(), "txtB");
    EXPECT_FALSE(Refuse(form.txtA, "Plain.", MessageStyle::Plain));
    EXPECT_EQ(FocusName(), "txtA");
  });
  ASSERT_EQ(toolkit.boxes.size(), 2U);
  EXPECT_EQ(toolkit.boxes[0].text, "No.");
  EXPECT_EQ(toolkit.boxes[0].style, MessageStyle::Critical);
  EXPECT_EQ(toolkit.boxes[0].title, "");
  EXPECT_EQ(toolkit.boxes[1].text, "Plain.");
  EXPECT_EQ(toolkit.boxes[1].style, MessageStyle::Plain);
}

TEST_F(Refusal, IsSilentWithoutAText) {
  WhileUp([&](FormUser&) {
    EXPECT_FALSE(Refuse(form.txtB));
    EXPECT_EQ(FocusName(), "txtB");
  });
  EXPECT_TRUE(toolkit.boxes.empty());
}

class TitledForm : public RefusingForm {
 public:
  Wording BoxTitle() const override { return "Details"; }
};

class TitledRefusal : public PartTest<TitledForm> {};

TEST_F(TitledRefusal, HasTheTitleOfTheFormsBoxes) {
  WhileUp([&](FormUser&) {
    Refuse(form.txtB, "No.");
    Complain(form.txtA, "Look here.", MessageStyle::Information);
    EXPECT_EQ(FocusName(), "txtB");
  });
  ASSERT_EQ(toolkit.boxes.size(), 2U);
  EXPECT_EQ(toolkit.boxes[0].title, "Details");
  EXPECT_EQ(toolkit.boxes[1].text, "Look here.");
  EXPECT_EQ(toolkit.boxes[1].style, MessageStyle::Information);
  EXPECT_EQ(toolkit.boxes[1].title, "Details");
}

}  // namespace
}  // namespace fiscalon
