#include "frontends/win32/dialog_layout.h"

#include <gtest/gtest.h>

#include "tests/support/every_kind_form.h"

namespace fiscalon::win32 {
namespace {

/// Every caption is 60 wide, the total's 90, every field 100 by 20; on a form that is loaded and has no window.
class Places : public testing::Test {
 protected:
  Places() { form.Load(); }

  static SIZE SizeOf(const Control& control) {
    if (control.Name() == "lblTotal")
      return {90, 10};
    if (control.Kind() == ControlKind::Label || control.Kind() == ControlKind::Frame)
      return {60, 10};
    return {100, 20};
  }

  EveryKindForm form;
  DialogFonts fonts{96};
};

TEST_F(Places, StandBeneathEachOtherThroughAllGroups) {
  const DialogLayout layout(form, fonts, SizeOf);
  const auto& places = layout.Places();
  // The widest caption decides where fields begin.
  const LONG begin = 90 + fonts.X(4);
  for (const Control* field :
       {static_cast<const Control*>(&form.txtPayee), static_cast<const Control*>(&form.txtPeriod),
        static_cast<const Control*>(&form.txtTotal), static_cast<const Control*>(&form.cmbProvince)})
    EXPECT_EQ(places.at(field).left, begin) << field->Name();
  EXPECT_EQ(places.at(&form.lblPayee).left, 0);
  // A toggle without a caption begins where captions do.
  EXPECT_EQ(places.at(&form.chkFinal).left, 0);
  // Captions stand in the middle of their lines.
  EXPECT_EQ(places.at(&form.lblPeriod).top, places.at(&form.txtPeriod).top + 5);
}

TEST_F(Places, DoNotOverlap) {
  const DialogLayout layout(form, fonts, SizeOf);
  for (const auto& [one, first] : layout.Places())
    for (const auto& [other, second] : layout.Places()) {
      RECT common = {};
      const bool isFrame = one->Kind() == ControlKind::Frame || other->Kind() == ControlKind::Frame;
      if (one == other || isFrame)
        continue;
      EXPECT_EQ(::IntersectRect(&common, &first, &second), FALSE) << one->Name() << " and " << other->Name();
    }
}

TEST_F(Places, LieWithinTheBodyAndTheirFrames) {
  const DialogLayout layout(form, fonts, SizeOf);
  for (const auto& [control, place] : layout.Places()) {
    EXPECT_GE(place.left, 0) << control->Name();
    EXPECT_LE(place.right, layout.Body().cx) << control->Name();
    EXPECT_LE(place.bottom, layout.Body().cy) << control->Name();
    if (control->EnclosingFrame() == nullptr)
      continue;
    const RECT frame = layout.Places().at(control->EnclosingFrame());
    RECT common = {};
    ::IntersectRect(&common, &frame, &place);
    EXPECT_NE(::EqualRect(&common, &place), FALSE) << control->Name();
  }
}

TEST_F(Places, AreNoneForWhatIsHidden) {
  const LONG height = DialogLayout(form, fonts, SizeOf).Body().cy;
  form.fraKind.Visible(false);
  const DialogLayout layout(form, fonts, SizeOf);
  EXPECT_FALSE(layout.Places().contains(&form.optFirst));
  EXPECT_FALSE(layout.Places().contains(&form.fraKind));
  EXPECT_LT(layout.Body().cy, height);
}

TEST_F(Places, PutTheButtonsToTheRight) {
  const DialogLayout layout(form, fonts, SizeOf);
  const auto buttons = layout.Buttons(500);
  EXPECT_EQ(buttons.at(&form.cmdCancel).right, 500);
  EXPECT_EQ(buttons.at(&form.cmdOK).right, 400 - fonts.X(4));
}

}  // namespace
}  // namespace fiscalon::win32
