#include <gtest/gtest.h>

#include <QTest>
#include <QWheelEvent>

#include "tests/frontends/qt/played_form.h"

namespace fiscalon::qt {
namespace {

class Lists : public testing::Test, protected PlayedForm {
 protected:
  EveryKindForm form;

  QComboBox& Provinces(const FormDialog& dialog) { return In<QComboBox>(dialog, form.cmbProvince); }
  QListWidget& Invoices(const FormDialog& dialog) { return In<QListWidget>(dialog, form.lstInvoices); }
};

TEST_F(Lists, ShowTheirRows) {
  Show(form, [&](FormDialog& dialog, UserDriver&) {
    EXPECT_EQ(Provinces(dialog).count(), 3);
    EXPECT_EQ(Provinces(dialog).itemText(2), "Quebec");
    EXPECT_EQ(Provinces(dialog).currentIndex(), -1);
    EXPECT_FALSE(Provinces(dialog).isEditable());
    EXPECT_EQ(Invoices(dialog).count(), 3);
    EXPECT_EQ(Invoices(dialog).currentRow(), -1);
    form.lstInvoices.AddItem("INV-4   40.00");
    form.lstInvoices.RemoveItem(0);
    form.lstInvoices.ListIndex(1);
    EXPECT_EQ(Invoices(dialog).count(), 3);
    EXPECT_EQ(Invoices(dialog).item(0)->text(), "INV-2   20.00");
    EXPECT_EQ(Invoices(dialog).currentItem()->text(), "INV-3   30.00");
    form.cmbProvince.Clear();
    EXPECT_EQ(Provinces(dialog).count(), 0);
  });
}

TEST_F(Lists, AreChosenFromByMouse) {
  Show(form, [&](FormDialog& dialog, UserDriver& user) {
    form.TakeNotes();
    user.Choose(form.cmbProvince, 1);
    EXPECT_EQ(form.TakeNotes().back(), "cmbProvince_Chosen");
    EXPECT_EQ(form.cmbProvince.Text(), "Manitoba");
    EXPECT_EQ(Provinces(dialog).currentText(), "Manitoba");
    EXPECT_FALSE(Provinces(dialog).view()->isVisible());
    user.Choose(form.cmbProvince, 1);
    EXPECT_EQ(form.TakeNotes(), (Notes{"cmbProvince_MouseDown", "cmbProvince_Click", "cmbProvince_Chosen"}))
        << "the selected row is chosen again";
    user.Choose(form.lstInvoices, 2);
    EXPECT_EQ(form.TakeNotes(),
              (Notes{"lstInvoices_MouseDown", "cmbProvince_LostFocus", "lstInvoices_Click", "lstInvoices_Chosen"}));
    EXPECT_EQ(form.lstInvoices.ListIndex(), 2);
    EXPECT_EQ(Invoices(dialog).currentRow(), 2);
  });
}

TEST_F(Lists, StayAsTheyWereWhereACheckPullsTheFocusBack) {
  form.when["txtPeriod_LostFocus"] = [this] { form.txtPeriod.SetFocus(); };
  Show(form, [&](FormDialog& dialog, UserDriver& user) {
    user.Click(form.txtPeriod);
    user.Choose(form.cmbProvince, 1);
    EXPECT_EQ(Provinces(dialog).currentIndex(), -1);
    EXPECT_FALSE(Provinces(dialog).view()->isVisible());
    user.Choose(form.lstInvoices, 1);
    EXPECT_EQ(Invoices(dialog).currentRow(), -1);
    EXPECT_EQ(user.FocusName(), "txtPeriod");
  });
}

TEST_F(Lists, AreChosenFromAllTheSameWhereACheckShowsABox) {
  form.when["txtPeriod_LostFocus"] = [this] { toolkit.ShowMessage({.text = "That is another year."}); };
  Show(form, [&](FormDialog& dialog, UserDriver& user) {
    user.Click(form.txtPeriod);
    form.TakeNotes();
    user.Choose(form.cmbProvince, 1);
    EXPECT_EQ(form.TakeNotes(),
              (Notes{"cmbProvince_MouseDown", "txtPeriod_LostFocus", "cmbProvince_Click", "cmbProvince_Chosen"}));
    EXPECT_EQ(Provinces(dialog).currentText(), "Manitoba");
    EXPECT_FALSE(Provinces(dialog).view()->isVisible());
    user.Click(form.txtPeriod);
    form.TakeNotes();
    user.Choose(form.lstInvoices, 2);
    EXPECT_EQ(form.TakeNotes(),
              (Notes{"lstInvoices_MouseDown", "txtPeriod_LostFocus", "lstInvoices_Click", "lstInvoices_Chosen"}));
    EXPECT_EQ(form.lstInvoices.ListIndex(), 2);
  });
}

TEST_F(Lists, TakeTheFocusAndNoRowByAClick) {
  Show(form, [&](FormDialog& dialog, UserDriver& user) {
    for (ListControl* list : std::initializer_list<ListControl*>{&form.cmbProvince, &form.lstInvoices}) {
      user.Click(*list);
      EXPECT_EQ(user.FocusName(), list->Name());
      EXPECT_EQ(list->ListIndex(), ListControl::kNothingSelected);
      EXPECT_FALSE(Provinces(dialog).view()->isVisible());
      Press(user, "Down");
      EXPECT_EQ(list->ListIndex(), 0) << "keys go to the form again";
    }
  });
}

TEST_F(Lists, AreSteppedThroughByKeys) {
  Show(form, [&](FormDialog& dialog, UserDriver& user) {
    form.cmbProvince.SetFocus();
    form.TakeNotes();
    Press(user, "Down");
    Press(user, "Down");
    EXPECT_EQ(Provinces(dialog).currentText(), "Manitoba");
    EXPECT_EQ(form.TakeNotes(), (Notes{"optFirst_LostFocus", "cmbProvince_Click", "cmbProvince_Click"}));
    user.Type('q');
    EXPECT_EQ(Provinces(dialog).currentText(), "Quebec");
    form.lstInvoices.SetFocus();
    Press(user, "End");
    EXPECT_EQ(Invoices(dialog).currentRow(), 2);
    Press(user, "Home");
    EXPECT_EQ(Invoices(dialog).currentRow(), 0);
  });
}

TEST_F(Lists, DropDownByKeyboardToo) {
  Show(form, [&](FormDialog& dialog, UserDriver& user) {
    user.Click(form.cmbProvince);
    for (const auto& [key, modifier] :
         {std::pair(Qt::Key_F4, Qt::NoModifier), std::pair(Qt::Key_Down, Qt::AltModifier)}) {
      form.cmbProvince.ListIndex(0);
      form.TakeNotes();
      QTest::keyClick(dialog.windowHandle(), key, modifier);
      ASSERT_TRUE(Provinces(dialog).view()->isVisible());
      QWindow* popup = Provinces(dialog).view()->window()->windowHandle();
      QTest::keyClick(popup, Qt::Key_Down);
      EXPECT_EQ(form.cmbProvince.ListIndex(), 0) << "nothing is chosen yet";
      QTest::keyClick(popup, Qt::Key_Return);
      EXPECT_EQ(form.cmbProvince.ListIndex(), 1);
      EXPECT_EQ(form.TakeNotes(), (Notes{"cmbProvince_Click", "cmbProvince_Chosen"}));
    }
  });
}

TEST_F(Lists, AreNotChangedByTheWheel) {
  Show(form, [&](FormDialog& dialog, UserDriver&) {
    form.cmbProvince.SetFocus();
    form.cmbProvince.ListIndex(0);
    const QPointF middle = QRectF(Provinces(dialog).rect()).center();
    QWheelEvent turn(middle, Provinces(dialog).mapToGlobal(middle), {}, {0, -120}, Qt::NoButton, Qt::NoModifier,
                     Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(&Provinces(dialog), &turn);
    EXPECT_EQ(form.cmbProvince.ListIndex(), 0);
    EXPECT_EQ(Provinces(dialog).currentIndex(), 0);
  });
}

TEST_F(Lists, AreChosenFromByAnAssistiveProgram) {
  Show(form, [&](FormDialog& dialog, UserDriver&) {
    form.TakeNotes();
    Invoices(dialog).setCurrentRow(1);
    EXPECT_EQ(form.lstInvoices.ListIndex(), 1);
    EXPECT_EQ(form.TakeNotes().back(), "lstInvoices_Chosen");
  });
}

TEST_F(Lists, ShowSeveralRowsAndScrollToTheOneThatTheKeyboardComesTo) {
  Show(form, [&](FormDialog& dialog, UserDriver& user) {
    for (int i = 0; i < 40; ++i) form.lstInvoices.AddItem(AsGiven("INV-" + std::to_string(i + 4)));
    form.lstInvoices.SetFocus();
    const auto shows = [&](int row) {
      QListWidget& list = Invoices(dialog);
      return list.viewport()->rect().contains(list.visualItemRect(list.item(row)).center());
    };
    for (int row = 0; row < 5; ++row) EXPECT_TRUE(shows(row)) << row;
    EXPECT_FALSE(shows(42));
    Press(user, "End");
    EXPECT_EQ(form.lstInvoices.ListIndex(), 42);
    EXPECT_TRUE(shows(42));
  });
}

TEST_F(Lists, AreOfFixedPitchWhereDesignedSo) {
  class PlainForm : public TestForm {
   public:
    ListBox lst{*this, "lst", {}};
  };
  const auto isFixed = [](const QWidget& widget) {
    const QFontMetrics metrics(widget.font());
    return metrics.horizontalAdvance(u'i') == metrics.horizontalAdvance(u'W');
  };
  Show(form, [&](FormDialog& dialog, UserDriver&) {
    EXPECT_TRUE(isFixed(Invoices(dialog)));
    EXPECT_FALSE(isFixed(Provinces(dialog)));
  });
  PlainForm plain;
  Show(plain, [&](FormDialog& dialog, UserDriver&) { EXPECT_FALSE(isFixed(dialog.WidgetOf(plain.lst))); });
}

TEST_F(Lists, AreTypedInBlanksToo) {
  Show(form, [&](FormDialog& dialog, UserDriver& user) {
    form.cmbProvince.AddItem("Tobacco Tax");
    form.cmbProvince.AddItem("Tourism Levy");
    form.cmbProvince.SetFocus();
    Type(user, "TOURISM LEVY");
    EXPECT_EQ(Provinces(dialog).currentText(), "Tourism Levy");
    EXPECT_FALSE(Provinces(dialog).view()->isVisible()) << "the space bar drops nothing down";
  });
}

TEST_F(Lists, KeepTheirRowWhereEscapeClosesTheDroppedDownRows) {
  Show(form, [&](FormDialog& dialog, UserDriver& user) {
    user.Click(form.cmbProvince);
    form.cmbProvince.ListIndex(0);
    form.TakeNotes();
    QTest::keyClick(dialog.windowHandle(), Qt::Key_F4);
    ASSERT_TRUE(Provinces(dialog).view()->isVisible());
    QWindow* popup = Provinces(dialog).view()->window()->windowHandle();
    QTest::keyClick(popup, Qt::Key_Down);
    QTest::keyClick(popup, Qt::Key_Escape);
    EXPECT_FALSE(Provinces(dialog).view()->isVisible());
    EXPECT_EQ(form.cmbProvince.ListIndex(), 0);
    EXPECT_EQ(Provinces(dialog).currentIndex(), 0);
    EXPECT_EQ(form.TakeNotes(), Notes());
  });
}

}  // namespace
}  // namespace fiscalon::qt
