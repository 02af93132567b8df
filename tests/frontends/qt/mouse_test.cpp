#include <gtest/gtest.h>

#include <QApplication>
#include <QClipboard>
#include <QTest>

#include "tests/frontends/qt/played_form.h"

namespace fiscalon::qt {
namespace {

class Mouse : public testing::Test, protected PlayedForm {
 protected:
  EveryKindForm form;

  static QPoint Middle(const FormDialog& dialog, const Control& control) {
    const QWidget& widget = dialog.WidgetOf(control);
    return widget.mapTo(&dialog, widget.rect().center());
  }
};

TEST_F(Mouse, PressesThenFocusesThenClicks) {
  Show(form, [&](FormDialog&, UserDriver& user) {
    form.TakeNotes();
    user.Click(form.cmdOK);
    EXPECT_EQ(form.TakeNotes(), (Notes{"cmdOK_MouseDown", "optFirst_LostFocus", "cmdOK_Click"}));
  });
}

TEST_F(Mouse, ShowsTheButtonDownWhileItIsPressed) {
  Show(form, [&](FormDialog& dialog, UserDriver&) {
    const auto& button = In<QPushButton>(dialog, form.cmdOK);
    QTest::mousePress(dialog.windowHandle(), Qt::LeftButton, {}, Middle(dialog, form.cmdOK));
    EXPECT_TRUE(button.isDown());
    form.TakeNotes();
    QTest::mouseRelease(dialog.windowHandle(), Qt::LeftButton, {}, Middle(dialog, form.cmdOK));
    EXPECT_FALSE(button.isDown());
    EXPECT_EQ(form.TakeNotes(), Notes{"cmdOK_Click"});
  });
}

TEST_F(Mouse, ReleasedBesideTheButtonClicksNothing) {
  Show(form, [&](FormDialog&, UserDriver& user) {
    form.TakeNotes();
    user.PressMouse(form.cmdOK);
    EXPECT_EQ(form.TakeNotes(), (Notes{"cmdOK_MouseDown", "optFirst_LostFocus"}));
    EXPECT_EQ(user.FocusName(), "cmdOK");
  });
}

TEST_F(Mouse, ClicksNothingWhereACheckPullsTheFocusBack) {
  form.when["txtPeriod_LostFocus"] = [this] {
    toolkit.ShowMessage({.text = "Invalid date value."});
    form.txtPeriod.SetFocus();
  };
  Show(form, [&](FormDialog& dialog, UserDriver& user) {
    user.Click(form.txtPeriod);
    form.TakeNotes();
    user.Click(form.cmdOK);
    EXPECT_EQ(form.TakeNotes(), (Notes{"cmdOK_MouseDown", "txtPeriod_LostFocus", "cmdOK_LostFocus"}));
    EXPECT_FALSE(In<QPushButton>(dialog, form.cmdOK).isDown());
  });
}

TEST_F(Mouse, SelectsTheWholeTextWhereCodeGivesTheFocusBack) {
  // The check of the total takes the focus from the period, whose own check takes it back.
  form.when["txtTotal_LostFocus"] = [this] { form.txtTotal.SetFocus(); };
  form.when["txtPeriod_LostFocus"] = [this] {
    if (!form.txtPeriod.Text().empty())
      form.txtPeriod.SetFocus();
  };
  Show(form, [&](FormDialog& dialog, UserDriver& user) {
    user.Click(form.txtTotal);
    form.txtPeriod.Text("2026");
    const QPoint place = Middle(dialog, form.txtPeriod);
    QTest::mousePress(dialog.windowHandle(), Qt::LeftButton, {}, place);
    QTest::mouseMove(dialog.windowHandle(), place - QPoint(20, 0));
    QTest::mouseRelease(dialog.windowHandle(), Qt::LeftButton, {}, place - QPoint(20, 0));
    EXPECT_EQ(user.FocusName(), "txtPeriod");
    EXPECT_EQ(user.SelectedText(form.txtPeriod), "2026");
    // A press on the field that has the focus places the caret again.
    QTest::mouseClick(dialog.windowHandle(), Qt::LeftButton, {}, place);
    EXPECT_EQ(user.SelectedText(form.txtPeriod), "");
  });
}

TEST_F(Mouse, CompletesTheClickWhereACheckShowsABoxAndLetsGo) {
  form.when["txtPeriod_LostFocus"] = [this] { toolkit.ShowMessage({.text = "That is another year."}); };
  Show(form, [&](FormDialog&, UserDriver& user) {
    user.Click(form.txtPeriod);
    form.TakeNotes();
    user.Click(form.cmdOK);
    EXPECT_EQ(form.TakeNotes().back(), "cmdOK_Click");
  });
}

TEST_F(Mouse, TogglesWhatTheFormToggles) {
  Show(form, [&](FormDialog& dialog, UserDriver& user) {
    user.Click(form.chkFinal);
    EXPECT_TRUE(form.chkFinal.Value());
    EXPECT_TRUE(In<QAbstractButton>(dialog, form.chkFinal).isChecked());
    user.Click(form.chkFinal);
    EXPECT_FALSE(form.chkFinal.Value());
    EXPECT_FALSE(In<QAbstractButton>(dialog, form.chkFinal).isChecked());
    user.Click(form.optFirst);
    user.Click(form.optSecond);
    EXPECT_FALSE(In<QAbstractButton>(dialog, form.optFirst).isChecked());
    EXPECT_TRUE(In<QAbstractButton>(dialog, form.optSecond).isChecked());
    user.Click(form.optSecond);
    EXPECT_TRUE(In<QAbstractButton>(dialog, form.optSecond).isChecked()) << "an option is not turned off by a click";
  });
}

TEST_F(Mouse, ShowsAValueThatAHandlerTakesBack) {
  form.when["chkFinal_Click"] = [this] { form.chkFinal.Value(false); };
  Show(form, [&](FormDialog& dialog, UserDriver& user) {
    user.Click(form.chkFinal);
    EXPECT_FALSE(In<QAbstractButton>(dialog, form.chkFinal).isChecked());
  });
}

TEST_F(Mouse, PlacesTheCaretNatively) {
  Show(form, [&](FormDialog& dialog, UserDriver& user) {
    form.txtPeriod.Text("202612");
    user.Click(form.txtTotal);
    const auto& line = In<QLineEdit>(dialog, form.txtPeriod);
    const QPoint begin = line.mapTo(&dialog, QPoint(2, line.height() / 2));
    QTest::mouseClick(dialog.windowHandle(), Qt::LeftButton, {}, begin);
    EXPECT_EQ(line.cursorPosition(), 0);
    EXPECT_EQ(form.txtPeriod.Selected(), (Selection{.start = 0}));
    user.Type('1');
    EXPECT_EQ(line.text(), "202612") << "the field is full";
    Press(user, "Delete");
    EXPECT_EQ(form.txtPeriod.Text(), "02612");
  });
}

TEST_F(Mouse, DragsASelectionNatively) {
  Show(form, [&](FormDialog& dialog, UserDriver& user) {
    form.txtPeriod.Text("202612");
    const auto& line = In<QLineEdit>(dialog, form.txtPeriod);
    const QPoint begin = line.mapTo(&dialog, QPoint(2, line.height() / 2));
    const QPoint end = line.mapTo(&dialog, QPoint(line.width() - 3, line.height() / 2));
    QTest::mousePress(dialog.windowHandle(), Qt::LeftButton, {}, begin);
    QTest::mouseMove(dialog.windowHandle(), end);
    QTest::mouseRelease(dialog.windowHandle(), Qt::LeftButton, {}, end);
    EXPECT_EQ(form.txtPeriod.Selected(), (Selection{.start = 0, .length = 6}));
    user.Type('7');
    EXPECT_EQ(form.txtPeriod.Text(), "7");
  });
}

TEST_F(Mouse, DoesNothingOnADisabledControl) {
  form.when["Form_Load"] = [this] { form.cmdOK.Enabled(false); };
  Show(form, [&](FormDialog& dialog, UserDriver& user) {
    form.TakeNotes();
    user.Click(form.cmdOK);
    EXPECT_EQ(form.TakeNotes(), Notes{});
    EXPECT_FALSE(In(dialog, form.cmdOK).isEnabled());
  });
}

TEST_F(Mouse, ClosesTheWindowForTheForm) {
  form.whenClosing = [](bool& cancel, CloseReason /*reason*/) { cancel = true; };
  Show(form, [&](FormDialog& dialog, UserDriver& user) {
    form.TakeNotes();
    user.CloseWindow(CloseReason::CloseBox);
    EXPECT_EQ(form.TakeNotes(), Notes{"Form_QueryUnload 0"});
    EXPECT_TRUE(dialog.isVisible());
    user.CloseWindow(CloseReason::TaskManager);
    EXPECT_EQ(form.TakeNotes(), Notes{"Form_QueryUnload 3"});
    form.whenClosing = nullptr;
    user.CloseWindow(CloseReason::CloseBox);
    EXPECT_FALSE(dialog.isVisible());
  });
  EXPECT_FALSE(form.IsLoaded());
}

TEST_F(Mouse, ClicksByAnAssistiveProgram) {
  Show(form, [&](FormDialog& dialog, UserDriver&) {
    form.TakeNotes();
    In<QPushButton>(dialog, form.cmdOK).click();
    EXPECT_EQ(form.TakeNotes(), (Notes{"cmdOK_MouseDown", "optFirst_LostFocus", "cmdOK_Click"}));
    In<QAbstractButton>(dialog, form.chkFinal).click();
    EXPECT_TRUE(form.chkFinal.Value());
  });
}

}  // namespace
}  // namespace fiscalon::qt
