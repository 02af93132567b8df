#pragma once

#include <time.h>

#include <QApplication>
#include <QEvent>
#include <QTimer>
#include <QWidget>
#include <QWindow>
#include <cstdio>

namespace fiscalon {

/// Ends the application when a window is up and painted, and prints how many milliseconds of processor time that took
/// from the program's start.
class PaintedWindow final : public QObject {
 public:
  explicit PaintedWindow(QWidget& window) {
    window.show();
    window.windowHandle()->installEventFilter(this);
  }

 private:
  bool eventFilter(QObject* watched, QEvent* event) override {
    // It is painted while it hears of that, so what comes next comes behind it.
    if (event->type() == QEvent::Expose)
      QTimer::singleShot(0, this, &PaintedWindow::End);
    return QObject::eventFilter(watched, event);
  }

  void End() {
    timespec taken = {};
    ::clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &taken);
    std::printf("%.3f\n", static_cast<double>(taken.tv_sec) * 1e3 + static_cast<double>(taken.tv_nsec) / 1e6);
    std::fflush(stdout);
    QApplication::quit();
  }
};

}  // namespace fiscalon
