#include "core/forms/designs.h"

#include <gtest/gtest.h>

#include "core/forms/control_array.h"
#include "tests/support/test_form.h"

namespace fiscalon {
namespace {

// A control takes the options of its kind, and what makes no sense for it does not compile.

// clang-format off
template <class D> concept HasCaption    = requires { D{.caption = "A"}; };
template <class D> concept HasTabIndex   = requires { D{.tabIndex = 1}; };
template <class D> concept HasTabStop    = requires { D{.tabStop = false}; };
template <class D> concept HasMaxLength  = requires { D{.maxLength = 7}; };
template <class D> concept HasAlignment  = requires { D{.alignment = Alignment::Right}; };
template <class D> concept HasLocked     = requires { D{.locked = true}; };
template <class D> concept HasMultiLine  = requires { D{.multiLine = true}; };
template <class D> concept HasCancel     = requires { D{.cancel = true}; };
template <class D> concept HasValue      = requires { D{.value = true}; };
template <class D> concept HasBold       = requires { D{.bold = true}; };
template <class D> concept HasFixedPitch = requires { D{.fixedPitch = true}; };
template <class D> concept HasFrame      = requires { D{.frame = nullptr}; };
template <class E> concept HasChange     = requires { E{.change = Handler()}; };
template <class E> concept HasClick      = requires { E{.click = Handler()}; };
template <class E> concept HasChosen     = requires { E{.chosen = Handler()}; };

static_assert(HasCaption<LabelDesign> && HasCaption<FrameDesign> && HasCaption<ButtonDesign> && HasCaption<ToggleDesign>);
static_assert(!HasCaption<FieldDesign> && !HasCaption<ListDesign>);
static_assert(HasTabIndex<FieldDesign> && HasTabIndex<ButtonDesign> && HasTabIndex<ToggleDesign> && HasTabIndex<ListDesign>);
static_assert(!HasTabIndex<LabelDesign> && !HasTabIndex<FrameDesign> && !HasTabStop<LabelDesign>);
static_assert(HasMaxLength<FieldDesign> && !HasMaxLength<ButtonDesign> && !HasMaxLength<ListDesign>);
static_assert(HasAlignment<FieldDesign> && HasAlignment<LabelDesign> && !HasAlignment<ListDesign>);
static_assert(HasLocked<FieldDesign> && !HasLocked<ListDesign> && !HasLocked<ButtonDesign>);
static_assert(HasMultiLine<FieldDesign> && !HasMultiLine<ButtonDesign> && !HasMultiLine<LabelDesign>);
static_assert(HasCancel<ButtonDesign> && !HasCancel<LabelDesign> && !HasCancel<ToggleDesign> && !HasCancel<FieldDesign>);
static_assert(HasValue<ToggleDesign> && !HasValue<ButtonDesign> && !HasValue<FieldDesign>);
static_assert(HasBold<LabelDesign> && !HasBold<FieldDesign> && !HasBold<ButtonDesign>);
static_assert(HasFixedPitch<ListDesign> && !HasFixedPitch<FieldDesign> && !HasFixedPitch<LabelDesign>);
// No frame lies in another.
static_assert(HasFrame<FieldDesign> && HasFrame<LabelDesign> && HasFrame<ListDesign> && !HasFrame<FrameDesign>);

static_assert(HasChange<FieldEvents> && !HasChange<ButtonEvents> && !HasChange<ListEvents>);
static_assert(HasClick<ButtonEvents> && HasClick<ListEvents> && !HasClick<FieldEvents>);
static_assert(HasChosen<ListEvents> && !HasChosen<ButtonEvents> && !HasChosen<FieldEvents>);
// clang-format on

// Nor does a control take the options or events of another kind.
static_assert(std::is_constructible_v<TextField, Form&, std::string, FieldDesign, FieldEvents>);
static_assert(!std::is_constructible_v<TextField, Form&, std::string, ButtonDesign, FieldEvents>);
static_assert(!std::is_constructible_v<TextField, Form&, std::string, FieldDesign, ButtonEvents>);
static_assert(!std::is_constructible_v<CheckBox, Form&, std::string, ButtonDesign, ButtonEvents>);
static_assert(!std::is_constructible_v<ListBox, Form&, std::string, ListDesign, ButtonEvents>);
static_assert(!std::is_constructible_v<Label, Form&, std::string, LabelDesign, ButtonEvents>);
static_assert(std::is_same_v<ControlArray<CheckBox, 2>::Design, ToggleDesign>);
static_assert(std::is_same_v<ControlArray<Label, 2>::Events, NoEvents>);

/// A form whose controls begin otherwise than most do.
class DesignedForm : public TestForm {
 public:
  // clang-format off
  CheckBox     chk    {*this, "chk",    {.caption = "Ticked", .tabIndex = 0, .value = true}, Noted("chk")};
  OptionButton optOff {*this, "optOff", {.caption = "Off", .tabIndex = 1}, Noted("optOff")};
  OptionButton optOn  {*this, "optOn",  {.caption = "On", .tabIndex = 2, .value = true}, Noted("optOn")};
  TextField    txt    {*this, "txt",    {.tabIndex = 3, .enabled = false, .visible = false, .locked = true}};
  Label        lbl    {*this, "lbl",    {}};
  // clang-format on
};

TEST(Design, IsTakenWithoutAHandlerWhenTheFormLoads) {
  DesignedForm form;
  EXPECT_TRUE(form.chk.Value());
  EXPECT_TRUE(form.optOn.Value());
  EXPECT_FALSE(form.optOff.Value());
  EXPECT_FALSE(form.txt.Enabled());
  EXPECT_FALSE(form.txt.Visible());
  EXPECT_TRUE(form.txt.Locked());
  EXPECT_EQ(form.TakeNotes(), Notes{"Form_Load"});
}

TEST(Design, ThatSaysNothingElseLeavesALabelInUseAndInSight) {
  DesignedForm form;
  EXPECT_TRUE(form.lbl.Enabled());
  EXPECT_TRUE(form.lbl.Visible());
}

TEST(Design, ThatSaysNothingElseIsPlain) {
  EXPECT_EQ(LabelDesign().alignment, Alignment::Left);
  EXPECT_FALSE(LabelDesign().bold);
  EXPECT_EQ(FieldDesign().tabIndex, kNoTabIndex);
  EXPECT_EQ(FieldDesign().maxLength, FieldDesign::kNoLimit);
  EXPECT_EQ(FieldDesign().alignment, Alignment::Left);
  EXPECT_FALSE(FieldDesign().locked);
  EXPECT_FALSE(FieldDesign().multiLine);
  EXPECT_FALSE(ButtonDesign().cancel);
  EXPECT_FALSE(ToggleDesign().value);
  EXPECT_FALSE(ListDesign().fixedPitch);
}

TEST(Design, IsTakenAgainAtEachLoad) {
  DesignedForm form;
  form.chk.Value(false);
  form.optOff.Value(true);
  form.Unload();
  EXPECT_TRUE(form.chk.Value());
  EXPECT_TRUE(form.optOn.Value());
  EXPECT_FALSE(form.optOff.Value());
}

// What screens share derives from a field.
TEST(Control, MayBeDerivedFrom) {
  class YearField : public TextField {
   public:
    YearField(Form& form, std::string name, int tabIndex)
        : TextField(form, std::move(name), {.tabIndex = tabIndex, .maxLength = 4}, {.change = [this] { ++changes; }}) {}
    int changes = 0;
  };
  class YearForm : public TestForm {
   public:
    YearField txtYear{*this, "txtYear", 0};
  };
  YearForm form;
  Play(form, [&](FormUser& user) {
    user.Type("2026");
    EXPECT_EQ(form.txtYear.Text(), "2026");
    EXPECT_EQ(form.txtYear.changes, 4);
  });
}

}  // namespace
}  // namespace fiscalon
