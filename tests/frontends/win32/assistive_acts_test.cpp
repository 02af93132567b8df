#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/frontends/win32/assistive_program.h"
#include "tests/frontends/win32/held_object.h"
#include "tests/frontends/win32/played_form.h"

namespace fiscalon::win32 {
namespace {

using testing::ElementsAre;

// What an assistive program does by accessible objects goes past keys and mouse. It is an act of its own, later than
// the program's call, which a box would hold up.
class AssistiveActs : public testing::Test, protected PlayedForm {
 protected:
  EveryKindForm form;

  static HeldObject Object(const FormWindow& window, const Control& control) { return HeldObject(In(window, control)); }
  void ShowBox(const char* text) { toolkit.ShowMessage({.text = text}); }
};

TEST_F(AssistiveActs, ComeAfterTheProgramsCall) {
  struct Row {
    Control& control;
    std::function<HRESULT(const HeldObject&)> act;
    const char* note;
  };
  const auto takeFocus = [](const HeldObject& object) { return object.TakeFocus(); };
  const auto click = [](const HeldObject& object) { return object.DoDefaultAction(); };
  const auto enter = [](const wchar_t* value) {
    return [value](const HeldObject& object) { return object.PutValue(value); };
  };
  const std::vector<Row> rows = {
      {form.txtTotal, takeFocus, "optFirst_LostFocus"},
      {form.lstInvoices, [](const auto& list) { return list.SelectRow(2, SELFLAG_TAKEFOCUS); }, "txtTotal_LostFocus"},
      {form.txtPeriod, enter(L"202606"), "txtPeriod_Change"},
      {form.txtPurpose, enter(L"Levies\r\nof May"), "txtPurpose_Change"},
      {form.cmbProvince, enter(L"Manitoba"), "cmbProvince_Chosen"},
      {form.lstInvoices, enter(L"INV-1   10.00"), "lstInvoices_Chosen"},
      {form.lstInvoices, [](const auto& list) { return list.SelectRow(2); }, "lstInvoices_Chosen"},
      {form.lstInvoices, [](const auto& list) { return list.DoDefaultActionOfRow(3); }, "lstInvoices_Chosen"},
      {form.chkFinal, click, "chkFinal_Click"},
      {form.optSecond, click, "optSecond_Click"},
      {form.cmdOK, click, "cmdOK_Click"},
  };
  Show(form, [&](FormWindow& window, UserDriver& user) {
    form.TakeNotes();
    for (const Row& row : rows) {
      SCOPED_TRACE(row.note);
      EXPECT_EQ(row.act(Object(window, row.control)), S_OK);
      EXPECT_THAT(form.TakeNotes(), ElementsAre());
      Serve(window);
      EXPECT_THAT(form.TakeNotes(), testing::Contains(row.note));
      EXPECT_EQ(user.FocusName(), row.control.Name());
    }
    EXPECT_EQ(form.txtPeriod.Text(), "202606");
    EXPECT_EQ(form.txtPurpose.Text(), "Levies\r\nof May");
    EXPECT_EQ(form.cmbProvince.Text(), "Manitoba");
    EXPECT_EQ(form.lstInvoices.ListIndex(), 2);
  });
}

TEST_F(AssistiveActs, LetTheProgramGoOnWhileABoxIsUp) {
  form.when["optFirst_LostFocus"] = [this] { ShowBox("left"); };
  form.when["txtTotal_Change"] = [this] { ShowBox("entered"); };
  form.when["cmbProvince_Chosen"] = [this] { ShowBox("chosen"); };
  form.when["lstInvoices_Chosen"] = [this] { ShowBox("picked"); };
  form.when["chkFinal_Click"] = [this] { ShowBox("clicked"); };
  // It outlives the form, whose objects it has.
  AssistiveProgram program([this] { Serve(*toolkit.Window()); });
  std::vector<std::string> boxes;
  toolkit.onMessage = [&](const BoxRequest& box) {
    EXPECT_TRUE(program.IsBack()) << box.text;
    boxes.push_back(box.text);
    return box.DefaultAnswer();
  };
  Show(form, [&](FormWindow& window, UserDriver&) {
    EXPECT_TRUE(program.TakeFocus(In(window, form.txtTotal)));
    EXPECT_TRUE(program.PutValue(In(window, form.txtTotal), L"12.50"));
    EXPECT_TRUE(program.PutValue(In(window, form.cmbProvince), L"Quebec"));
    EXPECT_TRUE(program.SelectRow(In(window, form.lstInvoices), 1));
    EXPECT_TRUE(program.DoDefaultAction(In(window, form.chkFinal)));
    EXPECT_THAT(boxes, ElementsAre("left", "entered", "chosen", "picked", "clicked"));
  });
}

TEST_F(AssistiveActs, AreDoneInTheirOrder) {
  Show(form, [&](FormWindow& window, UserDriver&) {
    form.TakeNotes();
    EXPECT_EQ(Object(window, form.txtPeriod).PutValue(L"202606"), S_OK);
    EXPECT_EQ(Object(window, form.txtTotal).TakeFocus(), S_OK);
    EXPECT_EQ(Object(window, form.chkFinal).DoDefaultAction(), S_OK);
    EXPECT_EQ(Object(window, form.txtPeriod).PutValue(L"202607"), S_OK);
    Serve(window);
    EXPECT_THAT(form.TakeNotes(),
                ElementsAre("optFirst_LostFocus", "txtPeriod_Change", "txtPeriod_LostFocus", "chkFinal_MouseDown",
                            "txtTotal_LostFocus", "chkFinal_Click", "chkFinal_LostFocus", "txtPeriod_Change"));
    EXPECT_EQ(form.txtPeriod.Text(), "202607");
  });
}

TEST_F(AssistiveActs, WaitForTheBoxOfTheOneBefore) {
  form.when["txtPeriod_Change"] = [this] {
    ShowBox("entered");
    form.Note("answered");
  };
  Show(form, [&](FormWindow& window, UserDriver&) {
    form.TakeNotes();
    toolkit.onMessage = [&](const BoxRequest& box) {
      Serve(window);
      EXPECT_EQ(form.txtTotal.Text(), "");
      return box.DefaultAnswer();
    };
    EXPECT_EQ(Object(window, form.txtPeriod).PutValue(L"202606"), S_OK);
    EXPECT_EQ(Object(window, form.txtTotal).PutValue(L"12.50"), S_OK);
    Serve(window);
    EXPECT_EQ(form.txtTotal.Text(), "12.50");
    EXPECT_THAT(form.TakeNotes(), ElementsAre("optFirst_LostFocus", "txtPeriod_Change", "answered",
                                              "txtPeriod_LostFocus", "txtTotal_Change"));
  });
}

TEST_F(AssistiveActs, WaitForTheBoxThatAKeyBrought) {
  form.when["txtPeriod_Change"] = [this] { ShowBox("typed"); };
  Show(form, [&](FormWindow& window, UserDriver& user) {
    user.PressMouse(form.txtPeriod);
    toolkit.onMessage = [&](const BoxRequest& box) {
      Serve(window);
      EXPECT_FALSE(form.chkFinal.Value());
      return box.DefaultAnswer();
    };
    ::PostMessageW(In(window, form.txtPeriod), WM_CHAR, L'2', 1);
    EXPECT_EQ(Object(window, form.chkFinal).DoDefaultAction(), S_OK);
    Serve(window);
    EXPECT_EQ(form.txtPeriod.Text(), "2");
    EXPECT_TRUE(form.chkFinal.Value());
  });
}

TEST_F(AssistiveActs, WaitForABoxOfTheHost) {
  Show(form, [&](FormWindow& window, UserDriver&) {
    EXPECT_EQ(Object(window, form.chkFinal).DoDefaultAction(), S_OK);
    ::EnableWindow(window.Window(), FALSE);
    EXPECT_EQ(Object(window, form.txtTotal).PutValue(L"12.50"), E_ACCESSDENIED);
    Serve(window);
    EXPECT_FALSE(form.chkFinal.Value());
    ::EnableWindow(window.Window(), TRUE);
    Serve(window);
    EXPECT_TRUE(form.chkFinal.Value());
    EXPECT_EQ(form.txtTotal.Text(), "");
  });
}

TEST_F(AssistiveActs, AreNoneOnAFormThatHasClosed) {
  Show(form, [&](FormWindow& window, UserDriver&) {
    form.when["cmdCancel_Click"] = [this] { form.Hide(); };
    const HeldObject period(In(window, form.txtPeriod));
    EXPECT_EQ(HeldObject(In(window, form.cmdCancel)).DoDefaultAction(), S_OK);
    EXPECT_EQ(period.PutValue(L"202606"), S_OK);
    Serve(window);
    EXPECT_FALSE(form.IsUp());
    EXPECT_EQ(period.TakeFocus(), E_ACCESSDENIED);
    EXPECT_EQ(period.PutValue(L"202606"), E_ACCESSDENIED);
    Serve(window);
  });
  EXPECT_EQ(form.txtPeriod.Text(), "");
}

TEST_F(AssistiveActs, AreNoneOnWhatHasClosedMeanwhile) {
  form.when["chkFinal_Click"] = [this] {
    form.txtPeriod.Enabled(false);
    form.txtTotal.Visible(false);
    form.txtPurpose.Locked(true);
    form.cmbProvince.Enabled(false);
    form.lstInvoices.RemoveItem(0);
    form.cmdOK.Visible(false);
  };
  Show(form, [&](FormWindow& window, UserDriver& user) {
    EXPECT_EQ(Object(window, form.chkFinal).DoDefaultAction(), S_OK);
    EXPECT_EQ(Object(window, form.txtPeriod).PutValue(L"202606"), S_OK);
    EXPECT_EQ(Object(window, form.txtTotal).TakeFocus(), S_OK);
    EXPECT_EQ(Object(window, form.txtPurpose).PutValue(L"Levies"), S_OK);
    EXPECT_EQ(Object(window, form.cmbProvince).PutValue(L"Quebec"), S_OK);
    EXPECT_EQ(Object(window, form.lstInvoices).SelectRow(1), S_OK);
    EXPECT_EQ(Object(window, form.lstInvoices).SelectRow(3), S_OK);
    EXPECT_EQ(Object(window, form.cmdOK).DoDefaultAction(), S_OK);
    Serve(window);
    EXPECT_EQ(form.TakeNotes().back(), "chkFinal_Click");
    EXPECT_EQ(user.FocusName(), "chkFinal");
    EXPECT_EQ(form.txtPeriod.Text() + form.txtPurpose.Text() + form.cmbProvince.Text(), "");
    EXPECT_EQ(form.lstInvoices.ListIndex(), ListControl::kNothingSelected) << "other rows are there now";
  });
}

TEST_F(AssistiveActs, ThatCannotBeAreRefusedAtOnce) {
  Show(form, [&](FormWindow& window, UserDriver& user) {
    form.TakeNotes();
    EXPECT_EQ(Object(window, form.lblPeriod).TakeFocus(), E_ACCESSDENIED);
    EXPECT_EQ(Object(window, form.fraKind).TakeFocus(), E_ACCESSDENIED);
    EXPECT_EQ(Object(window, form.txtPayee).PutValue(L"Somebody Else"), E_ACCESSDENIED);
    EXPECT_EQ(Object(window, form.txtPeriod).PutValue(L"2026061"), E_INVALIDARG);
    EXPECT_EQ(Object(window, form.cmbProvince).PutValue(L"Nowhere"), E_INVALIDARG);
    EXPECT_EQ(Object(window, form.lstInvoices).SelectRow(4), E_INVALIDARG);
    // What is no part of it is no place for the focus.
    EXPECT_NE(Object(window, form.txtPeriod).SelectRow(99, SELFLAG_TAKEFOCUS), S_OK);
    EXPECT_NE(Object(window, form.lstInvoices).SelectRow(4, SELFLAG_TAKEFOCUS), S_OK);
    EXPECT_NE(Object(window, form.txtPeriod).TakeFocus(VARIANT{}), S_OK);
    for (Control* control : std::vector<Control*>{&form.txtTotal, &form.cmbProvince, &form.lstInvoices})
      control->Enabled(false);
    form.chkFinal.Visible(false);
    EXPECT_EQ(Object(window, form.txtTotal).TakeFocus(), E_ACCESSDENIED);
    EXPECT_EQ(Object(window, form.txtTotal).PutValue(L"12.50"), E_ACCESSDENIED);
    EXPECT_EQ(Object(window, form.cmbProvince).PutValue(L"Quebec"), E_ACCESSDENIED);
    EXPECT_EQ(Object(window, form.lstInvoices).SelectRow(1), E_ACCESSDENIED);
    EXPECT_EQ(Object(window, form.chkFinal).DoDefaultAction(), E_ACCESSDENIED);
    Serve(window);
    EXPECT_THAT(form.TakeNotes(), ElementsAre());
    EXPECT_EQ(user.FocusName(), "optFirst");
  });
}

TEST_F(AssistiveActs, AreRefusedWhileABoxIsUp) {
  form.when["chkFinal_Click"] = [this] { ShowBox("clicked"); };
  Show(form, [&](FormWindow& window, UserDriver&) {
    toolkit.onMessage = [&](const BoxRequest& box) {
      EXPECT_EQ(Object(window, form.txtPeriod).TakeFocus(), E_ACCESSDENIED);
      EXPECT_EQ(Object(window, form.txtPeriod).PutValue(L"202606"), E_ACCESSDENIED);
      EXPECT_EQ(Object(window, form.lstInvoices).SelectRow(1), E_ACCESSDENIED);
      EXPECT_EQ(Object(window, form.optSecond).DoDefaultAction(), E_ACCESSDENIED);
      return box.DefaultAnswer();
    };
    EXPECT_EQ(Object(window, form.chkFinal).DoDefaultAction(), S_OK);
    Serve(window);
    EXPECT_EQ(form.TakeNotes().back(), "chkFinal_Click");
    EXPECT_EQ(form.ActiveControl(), &form.chkFinal);
  });
}

}  // namespace
}  // namespace fiscalon::win32
