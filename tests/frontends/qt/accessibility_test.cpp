#include <gtest/gtest.h>

#include <QAccessible>

#include "core/launch.h"
#include "core/module_state.h"
#include "core/session.h"
#include "tests/frontends/qt/played_form.h"

namespace fiscalon {
namespace {

class Accessibility : public testing::Test, protected PlayedForm {
 protected:
  EveryKindForm form;

  static std::string Read(const FormDialog& dialog, const Control& control, QAccessible::Text text) {
    QAccessibleInterface* interface = QAccessible::queryAccessibleInterface(&dialog.WidgetOf(control));
    return interface == nullptr ? "(nothing)" : interface->text(text).toStdString();
  }
  static std::string NameOf(const FormDialog& dialog, const Control& control) {
    return Read(dialog, control, QAccessible::Name);
  }
};

TEST_F(Accessibility, NamesFieldsAsTheirLabelsRead) {
  Show(form, [&](FormDialog& dialog, UserDriver&) {
    EXPECT_EQ(NameOf(dialog, form.txtPeriod), "Period ends on");
    EXPECT_EQ(NameOf(dialog, form.txtTotal), "Total");
    EXPECT_EQ(NameOf(dialog, form.txtPurpose), "Purpose");
    EXPECT_EQ(NameOf(dialog, form.cmbProvince), "Province");
    EXPECT_EQ(NameOf(dialog, form.cmdOK), "OK");
    EXPECT_EQ(NameOf(dialog, form.chkFinal), "Final payment");
    EXPECT_EQ(NameOf(dialog, form.optFirst), "First");
    EXPECT_EQ(NameOf(dialog, form.fraKind), "Kind of payment");
    EXPECT_EQ(NameOf(dialog, form.lblAmount), "$123.45");
    EXPECT_EQ(Read(dialog, form.lblAmount, QAccessible::Description), "Amount to be paid");
  });
}

TEST_F(Accessibility, DescribesFieldsByTheirHints) {
  Show(form, [&](FormDialog& dialog, UserDriver&) {
    EXPECT_EQ(Read(dialog, form.txtPeriod, QAccessible::Description), "YYYYMM");
    EXPECT_EQ(Read(dialog, form.txtTotal, QAccessible::Description), "");
  });
}

TEST_F(Accessibility, FollowsALabelThatChanges) {
  Show(form, [&](FormDialog& dialog, UserDriver&) {
    form.lblPeriod.Caption("Month & year:");
    EXPECT_EQ(NameOf(dialog, form.txtPeriod), "Month & year");
    form.lblHint.Caption("MMYYYY");
    EXPECT_EQ(Read(dialog, form.txtPeriod, QAccessible::Description), "MMYYYY");
  });
}

TEST_F(Accessibility, TellsStateAndValue) {
  Show(form, [&](FormDialog& dialog, UserDriver& user) {
    QAccessibleInterface* locked = QAccessible::queryAccessibleInterface(&dialog.WidgetOf(form.txtPayee));
    EXPECT_TRUE(locked->state().readOnly);
    EXPECT_EQ(locked->text(QAccessible::Value), "Summit Levies");
    user.Click(form.chkFinal);
    EXPECT_TRUE(QAccessible::queryAccessibleInterface(&dialog.WidgetOf(form.chkFinal))->state().checked);
    EXPECT_TRUE(QAccessible::queryAccessibleInterface(&dialog.WidgetOf(form.chkFinal))->state().focused);
    EXPECT_TRUE(QAccessible::queryAccessibleInterface(&dialog.WidgetOf(form.txtPeriod))->state().focusable);
  });
}

TEST_F(Accessibility, TellsWhichLabelIsWhose) {
  Show(form, [&](FormDialog& dialog, UserDriver&) {
    EXPECT_EQ(In<QLabel>(dialog, form.lblPeriod).buddy(), &dialog.WidgetOf(form.txtPeriod));
    EXPECT_EQ(In<QLabel>(dialog, form.lblHint).buddy(), nullptr);
  });
}

/// A list box read aloud row by row: its rows are children, and the one that the arrow keys came to has the focus.
TEST_F(Accessibility, TellsEachRowOfAListBoxAsTheKeyboardComesToIt) {
  Show(form, [&](FormDialog& dialog, UserDriver& user) {
    form.lstInvoices.SetFocus();
    QAccessibleInterface* list = QAccessible::queryAccessibleInterface(&dialog.WidgetOf(form.lstInvoices));
    ASSERT_NE(list, nullptr);
    EXPECT_EQ(list->role(), QAccessible::List);
    ASSERT_EQ(list->childCount(), 3);
    for (int row = 0; row < 3; ++row) {
      Press(user, "Down");
      EXPECT_EQ(form.lstInvoices.ListIndex(), row);
      EXPECT_EQ(list->child(row)->text(QAccessible::Name).toStdString(), form.lstInvoices.List(row));
      for (int other = 0; other < 3; ++other)
        EXPECT_EQ(list->child(other)->state().selected, other == row) << row << " " << other;
    }
  });
}

/// The forms of all screens that there are, up in turn.
TEST_F(Accessibility, NamesEveryFieldOfEveryScreen) {
  ResetModule();
  UseToolkit(&toolkit);
  int fields = 0;
  toolkit.onForm = [&](Form& shown, UserDriver&) {
    for (const Control* control : shown.Controls()) {
      if (control->Kind() == ControlKind::Label || control->Kind() == ControlKind::Frame)
        continue;
      ++fields;
      EXPECT_NE(NameOf(*toolkit.Dialog(), *control), "") << shown.Name() << " " << control->Name();
    }
  };
  int screens = 0;
  for (const LaunchRow& row : LaunchTable()) {
    if (row.make == nullptr)
      continue;
    ++screens;
    Levyra().ShowLevyraScreen(row.code);
  }
  EXPECT_GE(screens, 3);
  EXPECT_GT(fields, screens * 3);
  ResetModule();
}

}  // namespace
}  // namespace fiscalon
