#pragma once

#include <gtest/gtest.h>

#include <QTest>
#include <memory>
#include <stdexcept>
#include <string>

#include "core/host_setup.h"
#include "frontends/qt/played_qt_toolkit.h"
#include "tools/desk/desk_window.h"

namespace fiscalon {

/// A desk that is up, in June 2026 in English Canada, whose forms are played.
class ShownDesk : public testing::Test {
 protected:
  ShownDesk() {
    ResetModule();
    UseToolkit(&toolkit_);
    UseFixedClock({.date = {2026, 6, 15}});
    UseLocale(EnglishCanada());
  }
  ~ShownDesk() override {
    desk_.reset();
    ResetModule();
  }

  void Open(const QString& operatorsPage) {
    desk_ = std::make_unique<DeskWindow>(operatorsPage);
    desk_->show();
    desk_->activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(desk_.get()));
  }

  template <class Widget>
  Widget& Find(const char* name) const {
    auto* widget = desk_->findChild<Widget*>(name);
    if (widget == nullptr)
      throw std::runtime_error(std::string("the desk has no ") + name);
    return *widget;
  }

  PlayedQtToolkit toolkit_;
  std::unique_ptr<DeskWindow> desk_;
};

}  // namespace fiscalon
