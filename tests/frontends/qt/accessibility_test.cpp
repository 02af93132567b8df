#include <gtest/gtest.h>

#include <QAccessible>
#include <set>

#include "core/host_setup.h"
#include "core/launch.h"
#include "core/session.h"
#include "screens/general/invoice_payments.h"
#include "tests/frontends/qt/played_form.h"

namespace fiscalon::qt {
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
    EXPECT_EQ(
        QAccessible::queryAccessibleInterface(&dialog.WidgetOf(form.cmbProvince))->child(0)->text(QAccessible::Name),
        "Province")
        << "the rows that drop down";
    EXPECT_EQ(NameOf(dialog, form.cmdOK), "OK");
    EXPECT_EQ(NameOf(dialog, form.chkFinal), "Final payment");
    EXPECT_EQ(NameOf(dialog, form.optFirst), "First");
    EXPECT_EQ(QAccessible::queryAccessibleInterface(&dialog.WidgetOf(form.optFirst))->role(), QAccessible::RadioButton);
    EXPECT_EQ(QAccessible::queryAccessibleInterface(&dialog.WidgetOf(form.chkFinal))->role(), QAccessible::CheckBox);
    EXPECT_EQ(NameOf(dialog, form.fraKind), "Kind of payment");
    EXPECT_EQ(NameOf(dialog, form.lstInvoices), "Invoices") << "what stands above it";
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

/// The invoices of a payment, entered and gone through by keyboard alone: each row is told as it stands.
TEST_F(Accessibility, TellsEachInvoiceOfAPayment) {
  ResetModule();
  UseFixedClock({.date = {2026, 6, 15}});
  UseLocale(EnglishCanada());
  UseToolkit(&toolkit);
  toolkit.onForm = [&](Form& shown, UserDriver& user) {
    const auto& list = static_cast<InvoicePayments&>(shown).InvoicePaymentList;
    Press(user, "Tab");
    Press(user, "Tab");
    for (const char* invoice :
         {"20260601\rINV-1\r10.00\r", "20260602\rFreight, May\r20.00\r", "20260603\rC-3\r-5.00\r"})
      Type(user, invoice);
    for (int i = 0; i < 3; ++i) Press(user, "Tab");
    ASSERT_EQ(shown.ActiveControl(), &list);

    QAccessibleInterface* told = QAccessible::queryAccessibleInterface(&toolkit.Dialog()->WidgetOf(list));
    ASSERT_NE(told, nullptr);
    EXPECT_EQ(told->role(), QAccessible::List);
    EXPECT_TRUE(told->state().focused);
    EXPECT_EQ(told->text(QAccessible::Name).toStdString(), "Invoice Payments Details");
    EXPECT_EQ(told->text(QAccessible::Description).toStdString(), "Invoice Date Invoice No./Description Amount");
    const auto& head = static_cast<InvoicePayments&>(shown).Label12;
    const auto headed =
        QAccessible::queryAccessibleInterface(&toolkit.Dialog()->WidgetOf(head))->relations(QAccessible::Labelled);
    ASSERT_EQ(headed.size(), 1);
    EXPECT_EQ(headed[0].first, told);
    const std::vector<std::string> rows = {"20260601      INV-1                              10.00",
                                           "20260602      Freight, May                       20.00",
                                           "20260603      C-3                                -5.00"};
    ASSERT_EQ(told->childCount(), 3);
    for (int row = 0; row < 3; ++row) {
      Press(user, "Down");
      EXPECT_EQ(told->child(row)->role(), QAccessible::ListItem);
      EXPECT_EQ(told->child(row)->text(QAccessible::Name).toStdString(), rows[static_cast<size_t>(row)]);
      for (int other = 0; other < 3; ++other)
        EXPECT_EQ(told->child(other)->state().selected, other == row) << row << " " << other;
    }
    Press(user, "Tab");
    EXPECT_EQ(NameOf(*toolkit.Dialog(), *shown.ActiveControl()), "Cancel an Invoice");
  };
  Levyra session;
  session.PaidAmount("12345");
  EXPECT_FALSE(session.ShowLevyraScreen("08"));
  ResetModule();
}

/// The forms of all screens that there are, up in turn.
TEST_F(Accessibility, NamesEveryFieldOfEveryScreenApartFromTheOthers) {
  ResetModule();
  UseToolkit(&toolkit);
  int fields = 0;
  toolkit.onForm = [&](Form& shown, UserDriver&) {
    std::set<std::string> names;
    for (const Control* control : shown.Controls()) {
      if (control->Kind() == ControlKind::Label || control->Kind() == ControlKind::Frame)
        continue;
      ++fields;
      const std::string name = NameOf(*toolkit.Dialog(), *control);
      EXPECT_NE(name, "") << shown.Name() << " " << control->Name();
      EXPECT_TRUE(names.insert(name).second) << shown.Name() << " has two fields that are told as " << name;
    }
  };
  for (const LaunchRow& row : LaunchTable()) Levyra().ShowLevyraScreen(row.code);
  EXPECT_GT(fields, static_cast<int>(LaunchTable().size()) * 3);
  ResetModule();
}

/// No box says why the focus stays: a line below the buttons does, and the field's description for who does not see it.
TEST_F(Accessibility, TellsWhichEntryKeepsTheFocus) {
  form.when["txtPeriod_LostFocus"] = [&] {
    if (form.txtPeriod.Text().empty())
      form.txtPeriod.SetFocus();
  };
  Show(form, [&](FormDialog& dialog, UserDriver& user) {
    auto& status = *dialog.findChild<QLabel*>("status");
    EXPECT_FALSE(status.isVisible());
    user.Click(form.txtPeriod);
    const int height = dialog.height();
    Press(user, "Tab");
    EXPECT_EQ(user.FocusName(), "txtPeriod");
    EXPECT_TRUE(status.isVisible());
    EXPECT_EQ(QAccessible::queryAccessibleInterface(&status)->role(), QAccessible::Notification);
    EXPECT_EQ(QAccessible::queryAccessibleInterface(&status)->text(QAccessible::Name), status.text());
    EXPECT_EQ(status.text(), "Please correct this entry: Period ends on (YYYYMM)");
    EXPECT_GT(dialog.height(), height);
    EXPECT_GT(status.y(), dialog.WidgetOf(form.cmdOK).y());
    EXPECT_LE(status.heightForWidth(status.width()), status.height()) << "it is seen whole";
    EXPECT_EQ(Read(dialog, form.txtPeriod, QAccessible::Description),
              "Please correct this entry: Period ends on (YYYYMM)");
    const int place = dialog.WidgetOf(form.cmdOK).y();
    Type(user, "202606\t");
    EXPECT_EQ(status.text(), "");
    EXPECT_EQ(dialog.WidgetOf(form.cmdOK).y(), place) << "a button would move under the mouse that presses it";
    EXPECT_EQ(Read(dialog, form.txtPeriod, QAccessible::Description), "YYYYMM");
  });
}

}  // namespace
}  // namespace fiscalon::qt
