#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/frontends/win32/held_object.h"
#include "tests/frontends/win32/played_form.h"

namespace fiscalon::win32 {
namespace {

class AnAccessibleWindow : public testing::Test, protected PlayedForm {
 protected:
  EveryKindForm form;
};

TEST_F(AnAccessibleWindow, IsNamedByItsCaptionAsThatIsNow) {
  Show(form, [&](FormWindow& window, UserDriver&) {
    const HeldObject period(In(window, form.txtPeriod));
    EXPECT_EQ(period.Name(), "Period ends on");
    form.lblPeriod.Caption("Since:");
    EXPECT_EQ(period.Name(), "Since");
    EXPECT_EQ(HeldObject(In(window, form.chkFinal)).Name(), "Final payment");
  });
}

TEST_F(AnAccessibleWindow, OfAFormHasThoseOfItsControls) {
  Show(form, [&](FormWindow& window, UserDriver&) {
    const HeldObject object(window.Window());
    const std::vector<const Control*> inOrder = {
        &form.lblPayee,    &form.txtPayee,   &form.lblPaid,   &form.lblAmount,   &form.fraKind,     &form.optFirst,
        &form.optSecond,   &form.lblPeriod,  &form.txtPeriod, &form.lblHint,     &form.lblTotal,    &form.txtTotal,
        &form.lblPurpose,  &form.txtPurpose, &form.chkFinal,  &form.lblProvince, &form.cmbProvince, &form.lblInvoices,
        &form.lstInvoices, &form.cmdOK,      &form.cmdCancel};
    std::vector<std::string> names;
    for (const Control* control : inOrder) names.push_back(HeldObject(In(window, *control)).Name());
    // The status is silent.
    names.emplace_back();
    EXPECT_EQ(object.NamesOfPartsWithObjects(), names);
  });
}

TEST_F(AnAccessibleWindow, ClicksNothingThatADisabledOrHiddenButtonWouldNot) {
  Show(form, [&](FormWindow& window, UserDriver&) {
    form.cmdOK.Enabled(false);
    form.chkFinal.Visible(false);
    form.TakeNotes();
    for (const Control* button :
         {static_cast<const Control*>(&form.cmdOK), static_cast<const Control*>(&form.chkFinal)}) {
      const HeldObject object(In(window, *button));
      EXPECT_NE(object.DoDefaultAction(), S_OK);
      EXPECT_NE(object.TakeFocus(), S_OK);
    }
    Serve(window);
    EXPECT_THAT(form.TakeNotes(), testing::ElementsAre());
    EXPECT_EQ(form.ActiveControl(), &form.optFirst);
  });
}

TEST_F(AnAccessibleWindow, GivesNoFocusToWhatTakesNoKeys) {
  Show(form, [&](FormWindow& window, UserDriver&) {
    EXPECT_NE(HeldObject(In(window, form.lblPeriod)).TakeFocus(), S_OK);
    Serve(window);
    EXPECT_EQ(::GetFocus(), In(window, form.optFirst));
    EXPECT_EQ(form.ActiveControl(), &form.optFirst);
    EXPECT_EQ(HeldObject(In(window, form.txtPeriod)).TakeFocus(), S_OK);
    Serve(window);
    EXPECT_EQ(form.ActiveControl(), &form.txtPeriod);
  });
}

TEST_F(AnAccessibleWindow, ChoosesTheRowThatReadsSo) {
  Show(form, [&](FormWindow& window, UserDriver&) {
    const HeldObject provinces(In(window, form.cmbProvince));
    EXPECT_EQ(provinces.PutValue(L"Manitoba"), S_OK);
    EXPECT_NE(provinces.PutValue(L"Nowhere"), S_OK);
    Serve(window);
    EXPECT_EQ(form.cmbProvince.Text(), "Manitoba");
    form.cmbProvince.Enabled(false);
    EXPECT_NE(provinces.PutValue(L"Quebec"), S_OK);
    EXPECT_EQ(form.cmbProvince.Text(), "Manitoba");
    form.cmbProvince.Enabled(true);
    form.cmbProvince.Visible(false);
    EXPECT_NE(provinces.PutValue(L"Quebec"), S_OK);
    Serve(window);
    EXPECT_EQ(form.cmbProvince.Text(), "Manitoba");
  });
}

TEST_F(AnAccessibleWindow, HasTheRowsOfAListBox) {
  Show(form, [&](FormWindow& window, UserDriver& user) {
    const HeldObject invoices(In(window, form.lstInvoices));
    ASSERT_EQ(invoices.Parts(), 3);
    EXPECT_EQ(invoices.SelectedPart(), 0);
    constexpr LONG kUsual = STATE_SYSTEM_SELECTABLE | STATE_SYSTEM_FOCUSABLE;
    user.Choose(form.lstInvoices, 1);
    for (LONG row = 1; row <= 3; ++row) {
      EXPECT_EQ(invoices.NameOfPart(row), form.lstInvoices.List(row - 1));
      EXPECT_EQ(invoices.RoleOfPart(row), ROLE_SYSTEM_LISTITEM);
      EXPECT_EQ(invoices.StatesOfPart(row), row == 2 ? kUsual | STATE_SYSTEM_SELECTED | STATE_SYSTEM_FOCUSED : kUsual);
    }
    EXPECT_EQ(invoices.SelectedPart(), 2);
    user.Click(form.chkFinal);
    EXPECT_EQ(invoices.StatesOfPart(2), kUsual | STATE_SYSTEM_SELECTED);
    form.lstInvoices.Enabled(false);
    EXPECT_EQ(invoices.StatesOfPart(1), kUsual | STATE_SYSTEM_UNAVAILABLE);
    form.lstInvoices.RemoveItem(2);
    EXPECT_EQ(invoices.Parts(), 2);
    EXPECT_EQ(invoices.NameOfPart(3) + invoices.NameOfPart(-1), "");
    // The rows that drop down are a window of their own.
    EXPECT_EQ(HeldObject(In(window, form.cmbProvince)).NameOfPart(1), "");
  });
}

TEST_F(AnAccessibleWindow, MayBeHeldLongerThanItsForm) {
  std::unique_ptr<HeldObject> period;
  Show(form,
       [&](FormWindow& window, UserDriver&) { period = std::make_unique<HeldObject>(In(window, form.txtPeriod)); });
  std::string name;
  EXPECT_EQ(period->Name(&name), CO_E_OBJNOTCONNECTED);
  EXPECT_EQ(period->PutValue(L"202606"), CO_E_OBJNOTCONNECTED);
  EXPECT_EQ(period->DoDefaultAction(), CO_E_OBJNOTCONNECTED);
}

TEST_F(AnAccessibleWindow, IsTheSystemsWhereAnyThreadCouldCallIt) {
  ASSERT_EQ(::CoInitializeEx(nullptr, COINIT_MULTITHREADED), S_OK);
  Show(form, [&](FormWindow& window, UserDriver&) {
    EXPECT_EQ(::SendMessageW(In(window, form.txtPeriod), WM_GETOBJECT, 0, OBJID_CLIENT), 0);
  });
  ::CoUninitialize();
}

}  // namespace
}  // namespace fiscalon::win32
