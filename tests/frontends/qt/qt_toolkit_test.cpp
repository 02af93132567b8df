#include "frontends/qt/qt_toolkit.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QDesktopServices>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <fstream>

#include "core/module_state.h"
#include "core/platform/runtime_error.h"
#include "core/session.h"
#include "frontends/qt/form_dialog.h"
#include "tests/support/every_kind_form.h"
#include "tests/support/temporary_folder.h"

namespace fiscalon::qt {
namespace {

/// A form served by Qt's own event loop. The test acts from within it.
class ModalForm : public testing::Test {
 protected:
  QtToolkit toolkit;
  EveryKindForm form;

  /// Each step runs from Qt's event loop, the innermost that waits. Behind the last one the form hides, so that no
  /// mistake hangs the test.
  void Serve(std::vector<std::function<void()>> steps) {
    steps.emplace_back([this] { form.Hide(); });
    steps_ = std::move(steps);
    next_ = 0;
    QTimer::singleShot(0, &context_, [this] { RunStep(); });
    form.ShowModal(toolkit);
  }

  static QWidget* Window() { return QApplication::activeModalWidget(); }
  static void Key(Qt::Key key) { QTest::keyClick(Window()->windowHandle(), key); }
  /// The message box that waits.
  static QMessageBox* Box() { return qobject_cast<QMessageBox*>(Window()); }

 private:
  void RunStep() {
    // Keys let events through while they are pressed; the next step waits until this one is over or waits itself,
    // in a box.
    const bool waits = running_ == nullptr || running_ != Window();
    if (!waits || next_ + 1 < steps_.size())
      QTimer::singleShot(0, &context_, [this] { RunStep(); });
    if (!waits)
      return;
    QWidget* const outer = std::exchange(running_, Window());
    steps_[next_++]();
    running_ = outer;
  }

  std::vector<std::function<void()>> steps_;
  size_t next_ = 0;
  QWidget* running_ = nullptr;
  QObject context_;
};

TEST_F(ModalForm, IsServedUntilItHides) {
  form.when["cmdOK_Click"] = [this] { form.Hide(); };
  bool seen = false;
  Serve({[&] {
    seen = dynamic_cast<FormDialog*>(Window()) != nullptr && Window()->isVisible();
    QTest::keyClick(Window()->windowHandle(), Qt::Key_O, Qt::AltModifier);
  }});
  EXPECT_TRUE(seen);
  EXPECT_TRUE(form.IsLoaded());
  EXPECT_EQ(form.TakeNotes().back(), "cmdOK_Click");
  EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
}

TEST_F(ModalForm, IsUnloadedByTheCloseBox) {
  Serve({[] { Window()->close(); }});
  EXPECT_FALSE(form.IsLoaded());
}

TEST_F(ModalForm, ThrowsWhatLeavesAHandlerOutOfTheShow) {
  form.when["txtPeriod_Change"] = [] { throw RuntimeError(error_number::kOverflow, "Overflow"); };
  form.when["Form_Activate"] = [this] { form.txtPeriod.SetFocus(); };
  EXPECT_THROW(Serve({[] { Key(Qt::Key_2); }}), RuntimeError);
  EXPECT_TRUE(form.IsLoaded());
  EXPECT_FALSE(form.IsUp());
  EXPECT_EQ(QApplication::activeModalWidget(), nullptr) << "no dialog is left behind";
}

TEST_F(ModalForm, ThrowsForeignExceptionsToo) {
  form.when["cmdCancel_Click"] = [] { throw std::string("foreign"); };
  EXPECT_THROW(Serve({[] { Key(Qt::Key_Escape); }}), std::string);
}

TEST_F(ModalForm, WaitsInAMessageBoxWhileNothingActsOnIt) {
  MessageAnswer answer = MessageAnswer::Cancel;
  form.when["cmdCancel_Click"] = [&] {
    answer = toolkit.ShowMessage({.text = "Sure?", .style = MessageStyle::Question, .buttons = MessageButtons::YesNo});
  };
  FormDialog* dialog = nullptr;
  Serve({[&] {
           dialog = dynamic_cast<FormDialog*>(Window());
           Key(Qt::Key_Escape);
         },
         [&] {
           ASSERT_NE(Box(), nullptr);
           EXPECT_EQ(Box()->parentWidget(), dialog);
           form.TakeNotes();
           QTest::keyClick(dialog->windowHandle(), Qt::Key_Tab);
           dialog->close();
           EXPECT_EQ(form.TakeNotes(), Notes{}) << "the box holds the form";
           EXPECT_TRUE(dialog->isVisible());
           Box()->button(QMessageBox::Yes)->click();
         },
         [&] { EXPECT_TRUE(dialog->isActiveWindow()); }});
  EXPECT_EQ(answer, MessageAnswer::Yes);
}

TEST_F(ModalForm, EndsWithTheApplication) {
  Serve({[] { QCoreApplication::exit(); }});
  EXPECT_TRUE(form.IsLoaded());
  EXPECT_FALSE(form.IsUp());
  // No event loop runs again before the application does.
  QTimer::singleShot(0, [] { QCoreApplication::quit(); });
  QCoreApplication::exec();
}

TEST_F(ModalForm, CanBeShownAgainAfterItsWindowWasTheLastOne) {
  Serve({[] { Window()->close(); }});
  bool served = false;
  Serve({[&] { served = form.IsUp(); }});
  EXPECT_TRUE(served);
}

TEST_F(ModalForm, GivesTheHostARecordAndAnError) {
  ResetModule();
  UseToolkit(&toolkit);
  Levyra session;
  session.PaidAmount("12345");
  session.SeqNumber("0001");
  session.EnterName(std::string(31, 'x'));
  QTimer timer;
  int step = 0;
  QObject::connect(&timer, &QTimer::timeout, &timer, [&] {
    if (Box() != nullptr)
      return Box()->button(QMessageBox::Ok)->click();
    if (Window() == nullptr)
      return;
    if (step++ == 0)
      for (const char key : std::string("20261212345")) QTest::keyClick(Window()->windowHandle(), key);
    else if (step == 2)
      QTest::keyClick(Window()->windowHandle(), Qt::Key_O, Qt::AltModifier);
    else
      Window()->close();
  });
  timer.start(0);
  try {
    session.ShowLevyraScreen("15");
    ADD_FAILURE() << "a name of 31 characters does not fit";
  } catch (const RuntimeError& error) {
    EXPECT_EQ(error.Number(), 5);
    EXPECT_EQ(error.Source(), "Fiscalon.ShowLevyraScreen");
  }
  session.EnterName("H\xE9l\xE8ne C\xF4t\xE9");
  step = 0;
  EXPECT_TRUE(session.ShowLevyraScreen("15"));
  ASSERT_NE(session.PC4Records(), nullptr);
  EXPECT_EQ(session.PC4Records()->Item(1).Description().substr(40, 30), "H\xE9l\xE8ne C\xF4t\xE9                   ");
  ResetModule();
}

TEST_F(ModalForm, SaysWhichHelpFileIsMissing) {
  QString said;
  QTimer::singleShot(0, [&] {
    if (Box() == nullptr)
      return;
    said = Box()->text();
    Box()->button(QMessageBox::Ok)->click();
  });
  toolkit.OpenHelp("/no/such/folder/ZELMOR.CHM>ShowTopic", 100000004);
  EXPECT_EQ(said, "The help file /no/such/folder/ZELMOR.CHM is missing.");
}

TEST_F(ModalForm, GoesOnWithoutAHostsWindowThatGoes) {
  auto* const host = new QWidget;
  host->show();
  host->activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(host));
  Serve({[&] {
           EXPECT_EQ(Window()->parentWidget(), host);
           delete host;
         },
         [&] {
           ASSERT_NE(Window(), nullptr);
           EXPECT_EQ(Window()->parentWidget(), nullptr);
           form.txtPeriod.SetFocus();
           Key(Qt::Key_2);
           EXPECT_EQ(form.txtPeriod.Text(), "2");
         }});
  EXPECT_FALSE(form.IsUp());
}

}  // namespace
}  // namespace fiscalon::qt
