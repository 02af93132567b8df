#include "core/forms/usual_sizes.h"

#include <gtest/gtest.h>

#include "tests/support/test_form.h"

namespace fiscalon {
namespace {

class SizedForm : public TestForm {
 public:
  // clang-format off
  TextField    txtFree   {*this, "txtFree",   {}};
  TextField    txtLines  {*this, "txtLines",  {.maxLength = 8, .multiLine = true}};
  TextField    txtSeven  {*this, "txtSeven",  {.maxLength = 7}};
  TextField    txtLong   {*this, "txtLong",   {.maxLength = 99}};
  TextField    txtAmount {*this, "txtAmount", {.maxLength = 7, .alignment = Alignment::Right}};
  TextField    txtTotal  {*this, "txtTotal",  {.maxLength = 7, .locked = true}};
  TextField    txtWide   {*this, "txtWide",   {.maxLength = 20, .alignment = Alignment::Right}};
  CheckBox     chk       {*this, "chk",       {}};
  OptionButton opt       {*this, "opt",       {}};
  ListBox      lst       {*this, "lst",       {}};
  DropDownList cmb       {*this, "cmb",       {}};
  // clang-format on

  /// The names of the controls of which something holds.
  Notes NamesWhere(bool (*holds)(const Control&)) const {
    Notes names;
    for (const Control* control : Controls())
      if (holds(*control))
        names.push_back(control->Name());
    return names;
  }
};

TEST(CharactersOf, IsOneMoreThanAFieldTakes) {
  const SizedForm form;
  EXPECT_EQ(CharactersOf(form.txtSeven), 8);
  EXPECT_EQ(CharactersOf(form.txtWide), 21);
  EXPECT_EQ(CharactersOf(form.txtLong), 44) << "the widest";
}

TEST(CharactersOf, IsTheSameForAllFieldsOfTexts) {
  const SizedForm form;
  EXPECT_EQ(CharactersOf(form.txtFree), 34);
  EXPECT_EQ(CharactersOf(form.txtLines), 34);
}

TEST(CharactersOf, HasRoomForAnAmountInFieldsThatHoldOne) {
  const SizedForm form;
  EXPECT_EQ(CharactersOf(form.txtAmount), 14);
  EXPECT_EQ(CharactersOf(form.txtTotal), 14);
}

TEST(UsualSizes, OfListsAndOfTextsOfSeveralLinesAreTheSameEverywhere) {
  EXPECT_EQ(kLinesOfText, 4);
  EXPECT_EQ(kCharactersOfList, 66);
  EXPECT_EQ(kRowsOfList, 8);
}

TEST(UsualSizes, AreThoseOfTheKindOfControl) {
  const SizedForm form;
  EXPECT_EQ(form.NamesWhere(GrowsWide), Notes{"lst"});
  EXPECT_EQ(form.NamesWhere(IsTall), (Notes{"txtLines", "lst"}));
  EXPECT_EQ(form.NamesWhere(BeginsAtLeft), (Notes{"chk", "opt", "lst"}));
}

}  // namespace
}  // namespace fiscalon
