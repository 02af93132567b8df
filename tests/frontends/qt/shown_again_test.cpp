#include "tests/support/shown_again.h"

#include <QApplication>
#include <QTimer>
#include <QWidget>

#include "frontends/qt/qt_toolkit.h"
#include "tests/support/held_on_posix.h"

namespace fiscalon {
namespace {

TEST(QtToolkit, HoldsNoMoreThanBeforeWhenFormsAreShownAgain) {
  QtToolkit toolkit;
  UseToolkit(&toolkit);
  const auto show = [](const GoodSession& session, Levyra& host) {
    QTimer::singleShot(0, qApp, [] { QApplication::activeModalWidget()->close(); });
    return host.ShowLevyraScreen(session.code);
  };
  ExpectToHoldNoMoreWhenShownAgain(show, HeldNow, AllowedMore());
  UseToolkit(nullptr);
}

}  // namespace
}  // namespace fiscalon
