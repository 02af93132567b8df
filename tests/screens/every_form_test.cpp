#include <gmock/gmock.h>

#include <memory>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "core/forms/button.h"
#include "core/forms/keys.h"
#include "core/forms/laid_out.h"
#include "core/forms/layout.h"
#include "core/launch.h"
#include "core/screen.h"
#include "tests/support/told_form.h"

namespace fiscalon::every_form_test {
namespace {

TEST(Launch, FindsEveryScreenCodeWithItsRoutineAndForm) {
  for (const ToldForm& told : ToldForms())
    for (const std::string_view code : told.codes) {
      const LaunchRow* const row = FindLaunchRow(code);
      ASSERT_NE(row, nullptr) << code;
      EXPECT_EQ(row->routine, told.routine) << code;
      EXPECT_EQ(row->form, told.form) << code;
      EXPECT_NE(row->collects, "") << code;
    }
}

TEST(Launch, KnowsNoOtherCode) {
  std::vector<std::string> toldCodes;
  for (const ToldForm& told : ToldForms()) toldCodes.insert(toldCodes.end(), told.codes.begin(), told.codes.end());
  std::vector<std::string> codes;
  for (char tens = '0'; tens <= '9'; ++tens)
    for (char units = '0'; units <= '9'; ++units)
      if (const std::string code{tens, units}; FindLaunchRow(code) != nullptr)
        codes.push_back(code);
  EXPECT_THAT(codes, testing::UnorderedElementsAreArray(toldCodes)) << "the tests of each screen tell of its form";
  EXPECT_EQ(LaunchTable().size(), codes.size());
  for (const std::string_view code : {"", "1", "015", "15 ", " 15", "1\0005", "AA"})
    EXPECT_EQ(FindLaunchRow(code), nullptr);
}

TEST(TabOrder, IsThatOfTheTabIndexesOnEveryForm) {
  for (const ToldForm& told : ToldForms()) {
    SCOPED_TRACE(told.form);
    const std::shared_ptr<Screen> screen = FindLaunchRow(told.codes.front())->make();
    std::vector<std::string> controls;
    for (const Control* control : screen->TabOrder())
      controls.push_back((control->TabIndex() < 0 ? "-" : std::to_string(control->TabIndex())) + " " + control->Name());
    EXPECT_THAT(controls, testing::ElementsAreArray(told.controls));
  }
}

TEST(StandingOut, IsWhatIsPaidWhereItIsATotal) {
  const std::pair<const char*, const char*> rows[] = {
      {"06", "PaymentEnclosed"}, {"18", "txtAmountPayable"}, {"20", "txtAmountPayable"}, {"25", "txtAmountPayable"}};
  for (const auto& [code, field] : rows) {
    const std::shared_ptr<Screen> screen = FindLaunchRow(code)->make();
    EXPECT_TRUE(StandingOut(*screen).contains(screen->FindControl(field))) << code;
  }
}

TEST(AccessKeys, BelongToOneControlEachInEveryLanguage) {
  for (const std::string_view name : LanguageNames())
    for (const ToldForm& told : ToldForms()) {
      SCOPED_TRACE(std::string(name) + ": " + std::string(told.form));
      const std::shared_ptr<Screen> screen = FindLaunchRow(told.codes.front())->make();
      std::set<int> keys;
      for (const Control* control : screen->Controls())
        if (const auto* button = dynamic_cast<const Button*>(control); button != nullptr) {
          const std::string caption = button->DesignedCaption().In(*NamedLanguage(name));
          const int key = AccessKey(caption);
          EXPECT_TRUE(key == 0 || keys.insert(key).second) << caption;
        }
      EXPECT_FALSE(keys.empty());
    }
}

TEST(Escape, PressesTheButtonThatIsToldOfEveryForm) {
  for (const ToldForm& told : ToldForms()) {
    SCOPED_TRACE(told.form);
    const std::shared_ptr<Screen> screen = FindLaunchRow(told.codes.front())->make();
    std::string pressed;
    for (const Control* control : screen->Controls())
      if (const auto* button = dynamic_cast<const Button*>(control); button != nullptr && button->Designed().cancel)
        pressed += button->Name();
    EXPECT_EQ(pressed, told.escape);
  }
}

std::set<const Control*> ControlsOf(const Layout& layout) {
  std::set<const Control*> controls(layout.buttons.begin(), layout.buttons.end());
  for (const Group& group : layout.groups) {
    controls.insert(group.heading);
    for (const Row& row : group.rows)
      for (const Cell& cell : row.cells) controls.insert({cell.caption, cell.field, cell.hint});
  }
  return controls;
}

// What a layout forgets is shown behind all the rest.
TEST(Layouts, TellWhereEachControlOfEveryFormStands) {
  for (const LaunchRow& row : LaunchTable()) {
    SCOPED_TRACE(row.code);
    const std::shared_ptr<Screen> screen = row.make();
    const std::set<const Control*> told = ControlsOf(screen->FormLayout());
    for (const Control* control : screen->Controls()) {
      // A frame around all of a group is told by what lies in it.
      if (control->Kind() != ControlKind::Frame) {
        EXPECT_TRUE(told.contains(control)) << control->Name();
      }
    }
  }
}

}  // namespace
}  // namespace fiscalon::every_form_test
