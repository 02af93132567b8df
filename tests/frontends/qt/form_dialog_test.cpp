#include "frontends/qt/form_dialog.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QScrollArea>
#include <QScrollBar>

#include "core/launch.h"
#include "core/module_state.h"
#include "core/session.h"
#include "screens/general/donation.h"
#include "tests/frontends/qt/played_form.h"

namespace fiscalon::qt {
namespace {

class Dialog : public testing::Test, protected PlayedForm {
 protected:
  EveryKindForm form;

  static QRect Place(const FormDialog& dialog, const Control& control) {
    const QWidget& widget = dialog.WidgetOf(control);
    return {widget.mapTo(&dialog, QPoint(0, 0)), widget.size()};
  }
  /// Labels that need more room than they have.
  static void ExpectNothingClipped(const FormDialog& dialog, const Form& shown) {
    for (const Control* control : shown.Controls()) {
      const QWidget& widget = dialog.WidgetOf(*control);
      if (!widget.isVisible())
        continue;
      EXPECT_GE(widget.width(), widget.minimumSizeHint().width()) << shown.Name() << " " << control->Name();
      EXPECT_GE(widget.height(), widget.minimumSizeHint().height()) << shown.Name() << " " << control->Name();
      EXPECT_TRUE(dialog.rect().contains(Place(dialog, *control))) << shown.Name() << " " << control->Name();
    }
  }
};

TEST_F(Dialog, HasTheTitleOfTheForm) {
  Show(form, [&](FormDialog& dialog, UserDriver&) {
    EXPECT_EQ(dialog.windowTitle(), "A form under test");
    form.Caption("Soci\xE9t\xE9 Summit");
    EXPECT_EQ(dialog.windowTitle(), QString::fromUtf8("Société Summit"));
    EXPECT_TRUE(dialog.isModal());
  });
}

TEST_F(Dialog, HasAWidgetForEachKindOfControl) {
  Show(form, [&](FormDialog& dialog, UserDriver&) {
    EXPECT_EQ(In<QLabel>(dialog, form.lblAmount).text(), "$123.45");
    EXPECT_EQ(In<QLineEdit>(dialog, form.txtPeriod).maxLength(), 6);
    EXPECT_EQ(In<QLineEdit>(dialog, form.txtPeriod).alignment() & Qt::AlignHorizontal_Mask, Qt::AlignLeft);
    EXPECT_EQ(In<QLineEdit>(dialog, form.txtTotal).alignment() & Qt::AlignHorizontal_Mask, Qt::AlignRight);
    EXPECT_TRUE(In<QLineEdit>(dialog, form.txtPayee).isReadOnly());
    EXPECT_TRUE(In<QPlainTextEdit>(dialog, form.txtPurpose).isVisible());
    EXPECT_EQ(In<QPushButton>(dialog, form.cmdOK).text(), "&OK");
    EXPECT_FALSE(In<QPushButton>(dialog, form.cmdOK).autoDefault());
    EXPECT_TRUE(In<QAbstractButton>(dialog, form.chkFinal).isCheckable());
    const QFontMetrics rows(dialog.WidgetOf(form.lstInvoices).font());
    EXPECT_EQ(rows.horizontalAdvance(u'i'), rows.horizontalAdvance(u'W'));
    EXPECT_EQ(In<QGroupBox>(dialog, form.fraKind).title(), "Kind of payment");
    EXPECT_TRUE(dialog.WidgetOf(form.fraKind).isAncestorOf(&dialog.WidgetOf(form.optSecond)));
  });
}

TEST_F(Dialog, ShadesALockedFieldWithTheThemesOwnColours) {
  Show(form, [&](FormDialog& dialog, UserDriver&) {
    const QPalette theme = QApplication::palette();
    ASSERT_NE(theme.color(QPalette::Base), theme.color(QPalette::Window));
    const auto shade = [&](const Control& control) { return dialog.WidgetOf(control).palette().color(QPalette::Base); };
    EXPECT_EQ(shade(form.txtPayee), theme.color(QPalette::Window));
    EXPECT_EQ(shade(form.txtPeriod), theme.color(QPalette::Base));
    form.txtPeriod.Locked(true);
    EXPECT_EQ(shade(form.txtPeriod), theme.color(QPalette::Window));
    form.txtPeriod.Locked(false);
    EXPECT_EQ(shade(form.txtPeriod), theme.color(QPalette::Base));
  });
}

TEST_F(Dialog, FollowsAThemeThatChanges) {
  const QPalette before = QApplication::palette();
  const QFont fontBefore = QApplication::font();
  Show(form, [&](FormDialog& dialog, UserDriver&) {
    QPalette dark(QColor(45, 45, 48));
    dark.setColor(QPalette::Base, QColor(20, 20, 20));
    QApplication::setPalette(dark);
    QFont large = fontBefore;
    large.setPointSizeF(fontBefore.pointSizeF() * 2);
    QApplication::setFont(large);
    // Layouts are anew once the widgets have told each other.
    for (int i = 0; i < 3; ++i) QApplication::processEvents();
    EXPECT_EQ(dialog.WidgetOf(form.txtPayee).palette().color(QPalette::Base), QColor(45, 45, 48));
    EXPECT_EQ(dialog.WidgetOf(form.txtPeriod).palette().color(QPalette::Base), QColor(20, 20, 20));
    EXPECT_EQ(dialog.WidgetOf(form.lblPeriod).font().pointSizeF(), large.pointSizeF());
    ExpectNothingClipped(dialog, form);
  });
  QApplication::setFont(fontBefore);
  QApplication::setPalette(before);
}

TEST_F(Dialog, AlignsCaptionsAndFieldsThroughItsGroups) {
  Show(form, [&](FormDialog& dialog, UserDriver&) {
    const int fields = Place(dialog, form.txtPeriod).left();
    EXPECT_EQ(Place(dialog, form.txtPayee).left(), fields);
    EXPECT_EQ(Place(dialog, form.lblAmount).left(), fields);
    EXPECT_EQ(Place(dialog, form.txtTotal).left(), fields);
    EXPECT_EQ(Place(dialog, form.cmbProvince).left(), fields);
    EXPECT_EQ(Place(dialog, form.lblPayee).left(), Place(dialog, form.lblPeriod).left());
  });
}

/// A period in three cells above a pair in two, whose second caption is longer than the period's.
class PeriodAndPairForm final : public Form {
 public:
  PeriodAndPairForm() : Form("PeriodAndPairForm", "A period and a pair") {}

  // clang-format off
  Label     lblFrom   {*this, "lblFrom",   {.caption = "From:"}};
  TextField txtFrom   {*this, "txtFrom",   {.tabIndex = 0, .maxLength = 2}};
  Label     lblTo     {*this, "lblTo",     {.caption = "to:"}};
  TextField txtTo     {*this, "txtTo",     {.tabIndex = 1, .maxLength = 2}};
  TextField txtYear   {*this, "txtYear",   {.tabIndex = 2, .maxLength = 4}};
  Label     lblNumber {*this, "lblNumber", {.caption = "Classification:"}};
  TextField txtNumber {*this, "txtNumber", {.tabIndex = 3, .maxLength = 18}};
  Label     lblAmount {*this, "lblAmount", {.caption = "Assessment of the board:"}};
  TextField txtAmount {*this, "txtAmount", {.tabIndex = 4, .maxLength = 10}};
  // clang-format on

  const Layout& FormLayout() const override { return layout_; }

 private:
  const Layout layout_ = {.groups = {{.rows = {{{{&lblFrom, &txtFrom}, {&lblTo, &txtTo}, {nullptr, &txtYear}}}}},
                                     {.rows = {{{{&lblNumber, &txtNumber}, {&lblAmount, &txtAmount}}}}}}};
};

TEST_F(Dialog, AlignsLaterCaptionsAmongRowsOfAsManyCells) {
  PeriodAndPairForm pair;
  Show(pair, [&](FormDialog& dialog, UserDriver&) {
    EXPECT_EQ(Place(dialog, pair.txtFrom).left(), Place(dialog, pair.txtNumber).left());
    EXPECT_LT(Place(dialog, pair.txtTo).left() - Place(dialog, pair.lblTo).right(), 20);
  });
}

TEST_F(Dialog, MakesNoRoomForCaptionsThatAreHidden) {
  PeriodAndPairForm pair;
  pair.lblNumber.Visible(false);
  Show(pair, [&](FormDialog& dialog, UserDriver&) {
    EXPECT_LT(Place(dialog, pair.txtFrom).left() - Place(dialog, pair.lblFrom).right(), 20);
    pair.lblNumber.Visible(true);
    QCoreApplication::processEvents();
    EXPECT_GT(Place(dialog, pair.txtFrom).left(), Place(dialog, pair.lblNumber).right()) << "it has appeared";
    EXPECT_EQ(Place(dialog, pair.txtFrom).left(), Place(dialog, pair.txtNumber).left());
  });
}

TEST_F(Dialog, PutsAHintRightBesideItsField) {
  Show(form, [&](FormDialog& dialog, UserDriver&) {
    const QRect field = Place(dialog, form.txtPeriod), hint = Place(dialog, form.lblHint);
    EXPECT_GT(hint.left(), field.right());
    EXPECT_LT(hint.left() - field.right(), 20);
    EXPECT_NEAR(hint.center().y(), field.center().y(), 2);
  });
}

TEST_F(Dialog, PutsThePartsOfOneEntryCloseBehindEachOther) {
  frmDonation donation;
  Show(donation, [&](FormDialog& dialog, UserDriver&) {
    const QRect area = Place(dialog, donation.txtPhoneNo1), exchange = Place(dialog, donation.txtPhoneNo2);
    const QRect line = Place(dialog, donation.txtPhoneNo3);
    EXPECT_EQ(area.left(), Place(dialog, donation.txtName).left());
    EXPECT_GT(exchange.left(), area.right());
    EXPECT_LT(exchange.left() - area.right(), 20);
    EXPECT_GT(line.left(), exchange.right());
    EXPECT_LT(line.left() - exchange.right(), 20);
    EXPECT_GT(Place(dialog, donation.lblCProvince).left(), Place(dialog, donation.txtCity).right());
    EXPECT_LT(Place(dialog, donation.cmbProvince).right(), Place(dialog, donation.txtName).right());
  });
}

TEST_F(Dialog, MakesTheTotalStandOut) {
  Show(form, [&](FormDialog& dialog, UserDriver&) {
    EXPECT_TRUE(dialog.WidgetOf(form.lblTotal).font().bold());
    EXPECT_TRUE(dialog.WidgetOf(form.txtTotal).font().bold());
    EXPECT_FALSE(dialog.WidgetOf(form.txtPeriod).font().bold());
  });
}

TEST_F(Dialog, HidesAndDisablesWhatLiesInAFrame) {
  Show(form, [&](FormDialog& dialog, UserDriver& user) {
    form.fraKind.Enabled(false);
    EXPECT_FALSE(user.Enabled(form.optFirst));
    EXPECT_FALSE(In(dialog, form.optSecond).isEnabled());
    form.fraKind.Visible(false);
    EXPECT_FALSE(user.Visible(form.optFirst));
    form.fraKind.Visible(true);
    form.fraKind.Enabled(true);
    EXPECT_TRUE(user.Visible(form.optFirst));
    EXPECT_TRUE(user.Enabled(form.optFirst));
  });
}

TEST_F(Dialog, GrowsWhenWhatItShowsGrows) {
  form.when["Form_Load"] = [this] {
    form.lblPurpose.Visible(false);
    form.txtPurpose.Visible(false);
  };
  Show(form, [&](FormDialog& dialog, UserDriver& user) {
    EXPECT_FALSE(user.Visible(form.txtPurpose));
    form.lblPeriod.Caption("The last day of the period that this payment is made for, as it stands on the form:");
    form.lblPurpose.Visible(true);
    form.txtPurpose.Visible(true);
    QApplication::processEvents();
    ExpectNothingClipped(dialog, form);
  });
}

TEST_F(Dialog, ShowsControlsThatTheLayoutForgets) {
  TwoFieldForm forgetful;
  Show(forgetful, [&](FormDialog& dialog, UserDriver& user) {
    user.Click(forgetful.txtB);
    Type(user, "x");
    EXPECT_EQ(forgetful.txtB.Text(), "x");
    EXPECT_TRUE(dialog.WidgetOf(forgetful.cmdOK).isVisible());
    ExpectNothingClipped(dialog, forgetful);
  });
}

TEST_F(Dialog, GoesThroughItsControlsInTheFormsTabOrder) {
  Show(form, [&](FormDialog& dialog, UserDriver&) {
    std::vector<std::string> order;
    const QWidget* first = &dialog.WidgetOf(form.optFirst);
    const QWidget* widget = first;
    do {
      if (const Control* control = dialog.ControlOf(widget); control && widget->focusPolicy() != Qt::NoFocus)
        order.push_back(control->Name());
      widget = widget->nextInFocusChain();
    } while (widget != first);
    EXPECT_EQ(order,
              (std::vector<std::string>{"optFirst", "optSecond", "txtPeriod", "txtTotal", "txtPurpose", "chkFinal",
                                        "cmbProvince", "lstInvoices", "txtPayee", "cmdOK", "cmdCancel"}));
  });
}

TEST_F(Dialog, PlacesEveryControlOfEveryScreenWhole) {
  ResetModule();
  UseToolkit(&toolkit);
  int screens = 0;
  toolkit.onForm = [&](Form& shown, UserDriver&) {
    ++screens;
    ExpectNothingClipped(*toolkit.Dialog(), shown);
  };
  for (const LaunchRow& row : LaunchTable()) {
    Levyra session;
    session.CompCode("001052");
    session.CompName("The Summit Levies and Remittances Board of the Province");
    session.PaidAmount("99999999999");
    session.PaidDate("06152026");
    session.NumberOfInfoCollect("12");
    session.ShowLevyraScreen(row.code);
  }
  EXPECT_EQ(screens, static_cast<int>(LaunchTable().size()));
  ResetModule();
}

TEST_F(Dialog, NeedsNoScrollBarsWhereItGetsAPixelLess) {
  ResetModule();
  UseToolkit(&toolkit);
  toolkit.onForm = [&](Form& shown, UserDriver&) {
    FormDialog& dialog = *toolkit.Dialog();
    dialog.resize(dialog.size() - QSize(1, 1));
    const auto& scroller = *dialog.findChild<QScrollArea*>();
    EXPECT_FALSE(scroller.verticalScrollBar()->isVisible()) << shown.Name();
    EXPECT_FALSE(scroller.horizontalScrollBar()->isVisible()) << shown.Name();
  };
  for (const LaunchRow& row : LaunchTable()) Levyra().ShowLevyraScreen(row.code);
  ResetModule();
}

TEST_F(Dialog, ShowsHowALongLockedTextBeginsAndAllOfItAsAHint) {
  const std::string longName = "Workers' Compensation Board of the Northwest Territories and Nunavut, <Yellowknife>";
  Show(form, [&](FormDialog& dialog, UserDriver& user) {
    const auto& payee = In<QLineEdit>(dialog, form.txtPayee);
    EXPECT_EQ(payee.toolTip(), "") << "all of it is seen";
    form.txtPayee.Text(longName);
    EXPECT_EQ(payee.cursorPosition(), 0);
    EXPECT_EQ(payee.toolTip(), QString::fromStdString(longName).toHtmlEscaped());
    form.txtPayee.Text("Summit Levies");
    EXPECT_EQ(payee.toolTip(), "");
    // A field that can be edited shows where it is edited.
    form.txtPurpose.Text(longName);
    form.txtTotal.Text(longName);
    EXPECT_EQ(In<QLineEdit>(dialog, form.txtTotal).toolTip(), "");
    Press(user, "Escape");
  });
}

}  // namespace
}  // namespace fiscalon::qt
