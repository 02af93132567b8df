#include "core/forms/control_array.h"

#include <gtest/gtest.h>

#include "tests/support/raises.h"
#include "tests/support/test_form.h"

namespace fiscalon {
namespace {

class ArrayForm : public TestForm {
  using Self = ArrayForm;

 public:
  static FieldDesign BoxDesign(int index) { return {.tabIndex = 2 * index, .maxLength = 10 + index}; }

  ControlArray<TextField, 3> Box{*this,
                                 "Box",
                                 BoxDesign,
                                 {.change = On(&Self::Box_Change),
                                  .keyDown = On(&Self::Box_KeyDown),
                                  .keyPress = On(&Self::Box_KeyPress),
                                  .lostFocus = [this](int index) { Note("LostFocus " + std::to_string(index)); },
                                  .mouseDown = [this](int index) { Note("MouseDown " + std::to_string(index)); }}};
  ControlArray<CheckBox, 2> StatementOnly{*this,
                                          "StatementOnly",
                                          [](int index) {
                                            return ToggleDesign{.caption = AsGiven("Box " + std::to_string(index + 1)),
                                                                .tabIndex = 20 + index};
                                          },
                                          {.click = On(&Self::StatementOnly_Click)}};
  ControlArray<Label, 2> Caption{*this, "Caption",
                                 [](int index) { return LabelDesign{.caption = index == 0 ? "First" : "Second"}; }};

 private:
  void Box_Change(int index) { Note("Change " + std::to_string(index)); }
  void Box_KeyDown(int index, int& keyCode, int shift) {
    Note("KeyDown " + std::to_string(index) + " " + std::to_string(shift));
    if (keyCode == key::kDelete)
      keyCode = 0;
  }
  void Box_KeyPress(int index, int& character) {
    Note("KeyPress " + std::to_string(index));
    character = Capital(static_cast<char>(character));
  }
  void StatementOnly_Click(int index) { Note("Click " + std::to_string(index)); }
};

TEST(ControlArray, NamesItsMembersByIndex) {
  const ArrayForm form;
  EXPECT_EQ(form.Box[0].Name(), "Box(0)");
  EXPECT_EQ(form.Box[2].Name(), "Box(2)");
  EXPECT_EQ(form.FindControl("Box(1)"), &form.Box[1]);
  EXPECT_EQ(form.FindControl("Box(3)"), nullptr);
  EXPECT_EQ(form.Box.Size(), 3);
}

TEST(ControlArray, DesignsEachMember) {
  ArrayForm form;
  std::vector<int> limits;
  for (const TextField& box : form.Box) limits.push_back(box.MaxLength());
  EXPECT_EQ(limits, (std::vector<int>{10, 11, 12}));
  EXPECT_EQ(form.Box[2].Designed().tabIndex, 4);
  EXPECT_EQ(form.StatementOnly[1].Caption(), "Box 2");
  EXPECT_EQ(form.Caption[0].Caption(), "First");
  EXPECT_EQ(form.Caption[1].Caption(), "Second");
}

TEST(ControlArray, BelongsToTheFormLikeOtherControls) {
  ArrayForm form;
  Notes names;
  for (const Control* control : form.TabOrder()) names.push_back(control->Name());
  EXPECT_EQ(names, (Notes{"Box(0)", "Box(1)", "Box(2)", "StatementOnly(0)", "StatementOnly(1)"}));
}

TEST(ControlArray, StaysInOrderWithoutTabIndexes) {
  class LongForm : public TestForm {
   public:
    ControlArray<TextField, 40> Line{*this, "Line", [](int /*index*/) { return FieldDesign{}; }};
  };
  LongForm form;
  std::vector<Control*> declared;
  for (Control& line : form.Line) declared.push_back(&line);
  EXPECT_EQ(declared.size(), 40U);
  EXPECT_EQ(form.TabOrder(), declared);
}

TEST(ControlArray, TellsItsHandlersTheIndex) {
  ArrayForm form;
  Play(form, [&](FormUser& user) {
    user.acts.Click(form.Box[1]);
    EXPECT_EQ(form.TakeNotes(), (Notes{"MouseDown 1", "LostFocus 0"}));
    user.Type("a");
    EXPECT_EQ(form.TakeNotes(), (Notes{"KeyDown 1 0", "KeyPress 1", "Change 1"}));
    EXPECT_EQ(form.Box[1].Text(), "A");
    EXPECT_EQ(form.Box[0].Text(), "");
    user.acts.Click(form.StatementOnly[1]);
    EXPECT_EQ(form.TakeNotes(), (Notes{"LostFocus 1", "Click 1"}));
  });
}

TEST(ControlArray, HandsKeysByReference) {
  ArrayForm form;
  Play(form, [&](FormUser& user) {
    EXPECT_FALSE(user.acts.Key(*StrokeNamed("Delete")).editing);
    EXPECT_TRUE(user.acts.Key(*StrokeNamed("Home")).editing);
  });
}

TEST(ControlArray, RaisesErrorNineBeyondItsMembers) {
  ArrayForm form;
  EXPECT_EQ(ErrorOf([&] { form.Box[3]; }), 9);
  EXPECT_EQ(ErrorOf([&] { form.Box[-1]; }), 9);
  const ArrayForm& constant = form;
  EXPECT_EQ(ErrorOf([&] { constant.Box[3]; }), 9);
}

}  // namespace
}  // namespace fiscalon
