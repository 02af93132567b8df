#include "frontends/qt/qt_application.h"

#include <gtest/gtest.h>

#include <QApplication>

#include "core/platform/runtime_error.h"
#include "frontends/qt/qt_toolkit.h"

namespace fiscalon::qt {
namespace {

class OfAHost : public testing::Test {
 protected:
  void SetUp() override { qputenv("QT_QPA_PLATFORM", "offscreen"); }

  int count_ = 1;
  char name_[5] = "host";
  char* arguments_[2] = {name_, nullptr};
};

TEST_F(OfAHost, WithoutAnApplicationGetsOneThatGoesWithTheToolkit) {
  ASSERT_EQ(QCoreApplication::instance(), nullptr);
  {
    QtToolkit toolkit;
    EXPECT_NE(qobject_cast<QApplication*>(QCoreApplication::instance()), nullptr);
    EXPECT_FALSE(QGuiApplication::quitOnLastWindowClosed());
    const QtToolkit second;
  }
  EXPECT_EQ(QCoreApplication::instance(), nullptr);
}

TEST_F(OfAHost, ThatHasAnApplicationKeepsIt) {
  QApplication application(count_, arguments_);
  { QtToolkit toolkit; }
  EXPECT_EQ(QCoreApplication::instance(), &application);
  EXPECT_TRUE(QGuiApplication::quitOnLastWindowClosed()) << "its settings are the host's";
}

TEST_F(OfAHost, WhoseApplicationShowsNoWidgetsIsToldSo) {
  const QCoreApplication application(count_, arguments_);
  EXPECT_THROW(QtToolkit(), RuntimeError);
}

TEST_F(OfAHost, HasADisplayWhereOneIsNamed) {
  EXPECT_TRUE(QtToolkit::HasDisplay());
  const QByteArray display = qgetenv("DISPLAY"), wayland = qgetenv("WAYLAND_DISPLAY");
  for (const char* variable : {"QT_QPA_PLATFORM", "DISPLAY", "WAYLAND_DISPLAY"}) qunsetenv(variable);
  EXPECT_FALSE(QtToolkit::HasDisplay());
  if (!display.isEmpty())
    qputenv("DISPLAY", display);
  if (!wayland.isEmpty())
    qputenv("WAYLAND_DISPLAY", wayland);
}

}  // namespace
}  // namespace fiscalon::qt
