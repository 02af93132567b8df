#include <gtest/gtest.h>

#include <QByteArray>

#include "frontends/qt/qt_application.h"

/// One application for all tests, as hosts have one.
int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  qputenv("QT_QPA_PLATFORM", "offscreen");
  const fiscalon::qt::QtApplication application;
  return RUN_ALL_TESTS();
}
