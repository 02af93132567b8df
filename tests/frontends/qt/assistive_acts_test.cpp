#include <gtest/gtest.h>

#include <QAbstractItemView>
#include <QAccessible>
#include <QComboBox>
#include <QTest>

#include "frontends/played/session_recorder.h"
#include "tests/frontends/qt/played_form.h"

namespace fiscalon::qt {
namespace {

// What an assistive program does to widgets goes past keys and mouse. It is an act, or the widget goes back to what the
// form holds.
class AssistiveActs : public testing::Test, protected PlayedForm {
 protected:
  EveryKindForm form;

  static QAccessibleInterface& Told(const FormDialog& dialog, const Control& control) {
    return *QAccessible::queryAccessibleInterface(&dialog.WidgetOf(control));
  }
  static void Do(const FormDialog& dialog, const Control& control, const QString& action) {
    Told(dialog, control).actionInterface()->doAction(action);
  }
  static void SetText(const FormDialog& dialog, const Control& control, const QString& text) {
    QAccessibleInterface& told = Told(dialog, control);
    told.editableTextInterface()->replaceText(0, told.textInterface()->characterCount(), text);
  }
  static void ToggleRow(const FormDialog& dialog, const Control& control, int row) {
    ToggleRow(Told(dialog, control), row);
  }
  static void ToggleRow(QAccessibleInterface& rows, int row) {
    rows.child(row)->actionInterface()->doAction(QAccessibleActionInterface::toggleAction());
  }
  /// The rows of the drop-down list.
  QAccessibleInterface& Rows(const FormDialog& dialog) const { return *Told(dialog, form.cmbProvince).child(0); }
  static std::vector<int> SelectedRows(const FormDialog& dialog, const Control& control) {
    return SelectedRows(Told(dialog, control));
  }
  static std::vector<int> SelectedRows(const QAccessibleInterface& rows) {
    std::vector<int> selected;
    for (int row = 0; row < rows.childCount(); ++row)
      if (rows.child(row)->state().selected)
        selected.push_back(row);
    return selected;
  }
};

TEST_F(AssistiveActs, EnterATextWithTheFocus) {
  Show(form, [&](FormDialog& dialog, UserDriver& user) {
    form.TakeNotes();
    SetText(dialog, form.txtPeriod, "202606");
    EXPECT_EQ(form.txtPeriod.Text(), "202606");
    EXPECT_EQ(user.FocusName(), "txtPeriod");
    EXPECT_EQ(form.TakeNotes(), (Notes{"optFirst_LostFocus", "txtPeriod_Change"}));
    Told(dialog, form.txtPeriod).editableTextInterface()->insertText(0, "1");
    EXPECT_EQ(form.txtPeriod.Text(), user.Text(form.txtPeriod)) << "the limit holds for both";
    Told(dialog, form.txtPeriod).editableTextInterface()->deleteText(0, 4);
    EXPECT_EQ(form.txtPeriod.Text(), user.Text(form.txtPeriod));
    Told(dialog, form.txtTotal).setText(QAccessible::Value, "12.50");
    EXPECT_EQ(form.txtTotal.Text(), "12.50");
    EXPECT_EQ(user.FocusName(), "txtTotal");
  });
}

TEST_F(AssistiveActs, EnterSeveralLines) {
  Show(form, [&](FormDialog& dialog, UserDriver& user) {
    SetText(dialog, form.txtPurpose, "Levies\nof May");
    EXPECT_EQ(form.txtPurpose.Text(), "Levies\r\nof May");
    SetText(dialog, form.txtPurpose, QString(70, u'x'));
    EXPECT_EQ(form.txtPurpose.Text(), std::string(60, 'x'));
    EXPECT_EQ(user.Text(form.txtPurpose), std::string(60, 'x'));
  });
}

TEST_F(AssistiveActs, LeaveALockedFieldAndAClosedOneAsTheyAre) {
  Show(form, [&](FormDialog& dialog, UserDriver& user) {
    SetText(dialog, form.txtPayee, "Somebody Else");
    EXPECT_EQ(form.txtPayee.Text(), "Summit Levies");
    EXPECT_EQ(user.Text(form.txtPayee), "Summit Levies");
    form.txtTotal.Enabled(false);
    SetText(dialog, form.txtTotal, "12.50");
    EXPECT_EQ(form.txtTotal.Text(), "");
    EXPECT_EQ(user.Text(form.txtTotal), "");
  });
}

TEST_F(AssistiveActs, EnterNoTextWhereACheckKeepsTheFocus) {
  form.when["txtPeriod_LostFocus"] = [this] { form.txtPeriod.SetFocus(); };
  Show(form, [&](FormDialog& dialog, UserDriver& user) {
    user.Click(form.txtPeriod);
    SetText(dialog, form.txtTotal, "12.50");
    EXPECT_EQ(user.FocusName(), "txtPeriod");
    EXPECT_EQ(form.txtTotal.Text(), "");
    EXPECT_EQ(user.Text(form.txtTotal), "");
  });
}

TEST_F(AssistiveActs, ShowWhatAHandlerMakesOfAText) {
  form.when["txtTotal_Change"] = [this] {
    if (form.txtTotal.Text() == "1")
      form.txtTotal.Text("1.00");
  };
  Show(form, [&](FormDialog& dialog, UserDriver& user) {
    SetText(dialog, form.txtTotal, "1");
    EXPECT_EQ(form.txtTotal.Text(), "1.00");
    EXPECT_EQ(user.Text(form.txtTotal), "1.00");
  });
}

TEST_F(AssistiveActs, ToggleACheckBox) {
  Show(form, [&](FormDialog& dialog, UserDriver&) {
    form.TakeNotes();
    Do(dialog, form.chkFinal, QAccessibleActionInterface::toggleAction());
    EXPECT_TRUE(form.chkFinal.Value());
    EXPECT_TRUE(Told(dialog, form.chkFinal).state().checked);
    EXPECT_EQ(form.TakeNotes(), (Notes{"chkFinal_MouseDown", "optFirst_LostFocus", "chkFinal_Click"}));
    Do(dialog, form.chkFinal, QAccessibleActionInterface::toggleAction());
    EXPECT_FALSE(form.chkFinal.Value());
    EXPECT_FALSE(Told(dialog, form.chkFinal).state().checked);
  });
}

TEST_F(AssistiveActs, ChooseOneOptionOfThoseThatExcludeEachOther) {
  Show(form, [&](FormDialog& dialog, UserDriver&) {
    for (const OptionButton* chosen : {&form.optSecond, &form.optFirst, &form.optFirst}) {
      Do(dialog, *chosen, QAccessibleActionInterface::toggleAction());
      for (const OptionButton* option : {&form.optFirst, &form.optSecond}) {
        EXPECT_EQ(option->Value(), option == chosen) << option->Name();
        EXPECT_EQ(Told(dialog, *option).state().checked, option == chosen) << option->Name();
      }
    }
  });
}

TEST_F(AssistiveActs, ToggleNothingWhereACheckKeepsTheFocus) {
  form.when["txtPeriod_LostFocus"] = [this] { form.txtPeriod.SetFocus(); };
  Show(form, [&](FormDialog& dialog, UserDriver& user) {
    user.Click(form.txtPeriod);
    Do(dialog, form.chkFinal, QAccessibleActionInterface::toggleAction());
    EXPECT_FALSE(form.chkFinal.Value());
    EXPECT_FALSE(Told(dialog, form.chkFinal).state().checked);
  });
}

TEST_F(AssistiveActs, ChangeNothingWhileAHandlerWaits) {
  form.when["cmdOK_Click"] = [this] {
    const FormDialog& dialog = *toolkit.Dialog();
    Do(dialog, form.chkFinal, QAccessibleActionInterface::toggleAction());
    SetText(dialog, form.txtTotal, "12.50");
    ToggleRow(dialog, form.lstInvoices, 1);
  };
  Show(form, [&](FormDialog& dialog, UserDriver& user) {
    user.Click(form.cmdOK);
    EXPECT_FALSE(form.chkFinal.Value());
    EXPECT_FALSE(Told(dialog, form.chkFinal).state().checked);
    EXPECT_EQ(form.txtTotal.Text() + user.Text(form.txtTotal), "");
    EXPECT_EQ(form.lstInvoices.ListIndex(), ListControl::kNothingSelected);
    EXPECT_EQ(SelectedRows(dialog, form.lstInvoices), std::vector<int>());
  });
}

TEST_F(AssistiveActs, SelectARowOfAListBox) {
  Show(form, [&](FormDialog& dialog, UserDriver&) {
    for (const int row : {1, 2, 0}) {
      form.TakeNotes();
      ToggleRow(dialog, form.lstInvoices, row);
      EXPECT_EQ(form.lstInvoices.ListIndex(), row);
      EXPECT_EQ(SelectedRows(dialog, form.lstInvoices), std::vector<int>{row});
      EXPECT_EQ(form.TakeNotes().back(), "lstInvoices_Chosen");
    }
    ToggleRow(dialog, form.lstInvoices, 0);
    EXPECT_EQ(form.lstInvoices.ListIndex(), 0) << "a chosen row is given up by choosing another one";
    EXPECT_EQ(SelectedRows(dialog, form.lstInvoices), std::vector<int>{0});
    EXPECT_EQ(form.TakeNotes(), Notes{});
  });
}

TEST_F(AssistiveActs, PickARowOfADropDownListThatIsClosed) {
  Show(form, [&](FormDialog& dialog, UserDriver& user) {
    for (const int row : {1, 2, 0}) {
      form.TakeNotes();
      ToggleRow(Rows(dialog), row);
      EXPECT_EQ(form.cmbProvince.ListIndex(), row);
      EXPECT_EQ(user.Text(form.cmbProvince), form.cmbProvince.List(row));
      EXPECT_EQ(SelectedRows(Rows(dialog)), std::vector<int>{row});
      EXPECT_EQ(form.TakeNotes().back(), "cmbProvince_Chosen");
    }
    EXPECT_EQ(user.FocusName(), "cmbProvince");
    ToggleRow(Rows(dialog), 0);
    EXPECT_EQ(form.cmbProvince.ListIndex(), 0) << "a chosen row is given up by choosing another one";
    EXPECT_EQ(SelectedRows(Rows(dialog)), std::vector<int>{0});
    EXPECT_EQ(form.TakeNotes(), Notes{});
  });
}

TEST_F(AssistiveActs, PickARowOfADropDownListThatIsOpen) {
  Show(form, [&](FormDialog& dialog, UserDriver&) {
    auto& list = In<QComboBox>(dialog, form.cmbProvince);
    for (const int row : {2, 0}) {
      Do(dialog, form.cmbProvince, QAccessibleActionInterface::showMenuAction());
      ASSERT_TRUE(list.view()->isVisible());
      // The keyboard has come to a row, which is only marked.
      QTest::keyClick(list.view(), Qt::Key_Home);
      QTest::keyClick(list.view(), Qt::Key_Down);
      EXPECT_EQ(SelectedRows(Rows(dialog)), std::vector<int>{1});
      form.TakeNotes();
      ToggleRow(Rows(dialog), row);
      EXPECT_FALSE(list.view()->isVisible());
      EXPECT_EQ(form.cmbProvince.ListIndex(), row);
      EXPECT_EQ(SelectedRows(Rows(dialog)), std::vector<int>{row});
      EXPECT_EQ(form.TakeNotes().back(), "cmbProvince_Chosen");
    }
  });
}

TEST_F(AssistiveActs, SetTheRowOfADropDownList) {
  Show(form, [&](FormDialog& dialog, UserDriver&) {
    form.TakeNotes();
    In<QComboBox>(dialog, form.cmbProvince).setCurrentIndex(2);
    QCoreApplication::processEvents();
    EXPECT_EQ(form.cmbProvince.ListIndex(), 2);
    EXPECT_EQ(SelectedRows(Rows(dialog)), std::vector<int>{2});
    EXPECT_EQ(form.TakeNotes().back(), "cmbProvince_Chosen");
  });
}

TEST_F(AssistiveActs, PickNothingWhereACheckKeepsTheFocus) {
  form.when["txtPeriod_LostFocus"] = [this] { form.txtPeriod.SetFocus(); };
  Show(form, [&](FormDialog& dialog, UserDriver& user) {
    user.Click(form.txtPeriod);
    ToggleRow(Rows(dialog), 1);
    ToggleRow(dialog, form.lstInvoices, 1);
    In<QComboBox>(dialog, form.cmbProvince).setCurrentIndex(2);
    QCoreApplication::processEvents();
    EXPECT_EQ(user.Text(form.cmbProvince), "");
    EXPECT_EQ(form.cmbProvince.ListIndex(), ListControl::kNothingSelected);
    EXPECT_EQ(SelectedRows(Rows(dialog)), std::vector<int>());
    EXPECT_EQ(form.lstInvoices.ListIndex(), ListControl::kNothingSelected);
    EXPECT_EQ(SelectedRows(dialog, form.lstInvoices), std::vector<int>());
  });
}

TEST_F(AssistiveActs, SeeTheRowsAsTheyWereWhereAUserGivesUp) {
  Show(form, [&](FormDialog& dialog, UserDriver& user) {
    auto& list = In<QComboBox>(dialog, form.cmbProvince);
    user.Choose(form.cmbProvince, 1);
    list.showPopup();
    QTest::keyClick(list.view(), Qt::Key_End);
    EXPECT_EQ(SelectedRows(Rows(dialog)), std::vector<int>{2});
    QTest::keyClick(list.view(), Qt::Key_Escape);
    QCoreApplication::processEvents();
    EXPECT_EQ(form.cmbProvince.ListIndex(), 1);
    EXPECT_EQ(SelectedRows(Rows(dialog)), std::vector<int>{1});
  });
}

TEST_F(AssistiveActs, PressAButton) {
  Show(form, [&](FormDialog& dialog, UserDriver&) {
    form.TakeNotes();
    Do(dialog, form.cmdOK, QAccessibleActionInterface::pressAction());
    // The press is shown for a moment.
    EXPECT_TRUE(QTest::qWaitFor([&] { return !In<QPushButton>(dialog, form.cmdOK).isDown(); }));
    EXPECT_EQ(form.TakeNotes(), (Notes{"cmdOK_MouseDown", "optFirst_LostFocus", "cmdOK_Click"}));
  });
}

TEST_F(AssistiveActs, AreWrittenDown) {
  SessionRecorder recorder;
  toolkit.Watch(&recorder);
  Show(form, [&](FormDialog& dialog, UserDriver&) {
    SetText(dialog, form.txtPeriod, "202606");
    Do(dialog, form.optSecond, QAccessibleActionInterface::toggleAction());
  });
  EXPECT_NE(recorder.Text().find("focus txtPeriod\npaste 202606\nclick optSecond\n"), std::string::npos)
      << recorder.Text();
}

}  // namespace
}  // namespace fiscalon::qt
