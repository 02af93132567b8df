#include <gtest/gtest.h>

#include <QApplication>
#include <QFocusEvent>

#include "tests/frontends/qt/played_form.h"

namespace fiscalon::qt {
namespace {

class DialogFocus : public testing::Test, protected PlayedForm {
 protected:
  EveryKindForm form;
};

TEST_F(DialogFocus, BeginsWhereTheFormHasIt) {
  Show(form, [&](FormDialog& dialog, UserDriver& user) {
    EXPECT_EQ(user.FocusName(), "optFirst");
    EXPECT_TRUE(In(dialog, form.optFirst).hasFocus());
  });
}

TEST_F(DialogFocus, FollowsTheForm) {
  Show(form, [&](FormDialog& dialog, UserDriver&) {
    form.txtTotal.SetFocus();
    EXPECT_TRUE(In(dialog, form.txtTotal).hasFocus());
  });
}

TEST_F(DialogFocus, SelectsTheWholeTextWhenItComesByKeyboard) {
  Show(form, [&](FormDialog& dialog, UserDriver& user) {
    form.txtTotal.Text("123.45");
    user.Click(form.txtPeriod);
    Press(user, "Tab");
    EXPECT_EQ(In<QLineEdit>(dialog, form.txtTotal).selectedText(), "123.45");
  });
}

TEST_F(DialogFocus, IsMarkedForUsersWhoGoByKeyboard) {
  Show(form, [&](FormDialog& dialog, UserDriver& user) {
    EXPECT_TRUE(dialog.testAttribute(Qt::WA_KeyboardFocusChange)) << "where a form begins";
    user.Click(form.chkFinal);
    EXPECT_FALSE(dialog.testAttribute(Qt::WA_KeyboardFocusChange));
    Press(user, "Tab");
    EXPECT_TRUE(dialog.testAttribute(Qt::WA_KeyboardFocusChange));
  });
}

TEST_F(DialogFocus, IsPulledBackByTheFieldThatIsLeft) {
  form.when["txtPeriod_LostFocus"] = [this] { form.txtPeriod.SetFocus(); };
  Show(form, [&](FormDialog& dialog, UserDriver& user) {
    user.Click(form.txtPeriod);
    Press(user, "Tab");
    EXPECT_TRUE(In(dialog, form.txtPeriod).hasFocus());
    user.Click(form.cmdOK);
    EXPECT_TRUE(In(dialog, form.txtPeriod).hasFocus());
  });
}

TEST_F(DialogFocus, ThatAnAssistiveProgramMovesIsToldToTheForm) {
  Show(form, [&](FormDialog& dialog, UserDriver& user) {
    user.Click(form.txtPeriod);
    form.TakeNotes();
    In(dialog, form.txtTotal).setFocus(Qt::OtherFocusReason);
    EXPECT_EQ(form.ActiveControl(), &form.txtTotal);
    EXPECT_EQ(form.TakeNotes(), Notes{"txtPeriod_LostFocus"});
  });
}

TEST_F(DialogFocus, ThatAnAssistiveProgramMovesCanBePulledBack) {
  form.when["txtPeriod_LostFocus"] = [this] { form.txtPeriod.SetFocus(); };
  Show(form, [&](FormDialog& dialog, UserDriver& user) {
    user.Click(form.txtPeriod);
    In(dialog, form.txtTotal).setFocus(Qt::OtherFocusReason);
    EXPECT_EQ(form.ActiveControl(), &form.txtPeriod);
    EXPECT_TRUE(In(dialog, form.txtPeriod).hasFocus());
  });
}

TEST_F(DialogFocus, IsKeptWhileAnotherWindowIsActive) {
  Show(form, [&](FormDialog& dialog, UserDriver& user) {
    user.Click(form.txtPeriod);
    form.TakeNotes();
    QWidget other;
    other.show();
    other.activateWindow();
    QApplication::processEvents();
    ASSERT_FALSE(dialog.isActiveWindow());
    dialog.activateWindow();
    QApplication::processEvents();
    ASSERT_TRUE(dialog.isActiveWindow());
    EXPECT_EQ(form.TakeNotes(), Notes{}) << "no field is left and none is entered";
    EXPECT_EQ(user.FocusName(), "txtPeriod");
  });
}

TEST_F(DialogFocus, IsKeptWhileAMessageBoxIsUp) {
  form.when["cmdOK_Click"] = [this] { toolkit.ShowMessage({.text = "Invalid date value."}); };
  Show(form, [&](FormDialog&, UserDriver& user) {
    user.Click(form.txtPeriod);
    form.TakeNotes();
    user.Click(form.cmdOK);
    EXPECT_EQ(form.TakeNotes(), (Notes{"cmdOK_MouseDown", "txtPeriod_LostFocus", "cmdOK_Click"}));
    EXPECT_EQ(user.FocusName(), "cmdOK");
  });
}

TEST_F(DialogFocus, GoesWhereTheFormSaysWhenItsControlIsDisabledOrHidden) {
  form.when["chkFinal_Click"] = [this] { form.chkFinal.Enabled(false); };
  Show(form, [&](FormDialog& dialog, UserDriver& user) {
    user.Click(form.chkFinal);
    EXPECT_EQ(form.ActiveControl(), &form.cmbProvince);
    EXPECT_TRUE(In(dialog, form.cmbProvince).hasFocus());
  });
}

TEST_F(DialogFocus, IsTheDialogsWhereNoControlCanTakeIt) {
  class NothingToFocus : public TestForm {
   public:
    Label lblA{*this, "lblA", {.caption = "Wait"}};
    TextField txtA{*this, "txtA", {.enabled = false}, Noted("txtA")};
  } empty;
  empty.notesKeys = true;
  Show(empty, [&](FormDialog& dialog, UserDriver& user) {
    EXPECT_EQ(user.FocusName(), "");
    empty.TakeNotes();
    user.Type('x');
    EXPECT_EQ(empty.TakeNotes(), (Notes{"Form_KeyDown 88", "Form_KeyPress 120"}));
    EXPECT_TRUE(dialog.isVisible());
  });
}

TEST_F(DialogFocus, TakesAGroupOfOptionsForOneTabStop) {
  form.when["Form_Load"] = [this] { form.optSecond.Value(true); };
  Show(form, [&](FormDialog& dialog, UserDriver& user) {
    EXPECT_EQ(user.FocusName(), "optSecond") << "the option that is on";
    Press(user, "Tab");
    EXPECT_EQ(user.FocusName(), "txtPeriod");
    Press(user, "Shift+Tab");
    EXPECT_EQ(user.FocusName(), "optSecond");
    Press(user, "Down");
    EXPECT_EQ(user.FocusName(), "optFirst");
    EXPECT_TRUE(In<QAbstractButton>(dialog, form.optFirst).isChecked());
    EXPECT_FALSE(In<QAbstractButton>(dialog, form.optSecond).isChecked());
    form.optFirst.Value(false);
    Press(user, "Tab");
    Press(user, "Shift+Tab");
    EXPECT_EQ(user.FocusName(), "optFirst");
    EXPECT_FALSE(In<QAbstractButton>(dialog, form.optFirst).isChecked()) << "the focus alone turns nothing on";
  });
}

}  // namespace
}  // namespace fiscalon::qt
