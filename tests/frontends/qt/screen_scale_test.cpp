#include <gtest/gtest.h>

#include <QApplication>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <QTest>

#include "core/forms/captioned.h"
#include "core/host_setup.h"
#include "core/launch.h"
#include "core/session.h"
#include "frontends/qt/form_dialog.h"
#include "frontends/qt/played_qt_toolkit.h"
#include "frontends/qt/qt_application.h"

namespace fiscalon::qt {
namespace {

/// Every form in a real window, at the scale that the environment asks for.
TEST(ScreenScale, LeavesNoFormWithScrollBarsOnALargeScreen) {
  ResetModule();
  PlayedQtToolkit toolkit;
  UseToolkit(&toolkit);
  int forms = 0;
  toolkit.onForm = [&](Form& form, UserDriver&) {
    SCOPED_TRACE(form.ShownIn().name);
    ++forms;
    FormDialog& dialog = *toolkit.Dialog();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&dialog));
    QCoreApplication::processEvents();
    const auto& scroller = *dialog.findChild<QScrollArea*>();
    EXPECT_FALSE(scroller.verticalScrollBar()->isVisible()) << form.Name();
    EXPECT_FALSE(scroller.horizontalScrollBar()->isVisible()) << form.Name();
    for (const Control* control : form.Controls()) {
      const QWidget& widget = dialog.WidgetOf(*control);
      if (widget.isVisible() && control->Kind() != ControlKind::Frame) {
        EXPECT_EQ(widget.visibleRegion().boundingRect(), widget.rect()) << form.Name() << " " << control->Name();
        // Room for its words, or for a line of them where they are wrapped.
        const int wanted = widget.hasHeightForWidth() ? widget.minimumSizeHint().width() : widget.sizeHint().width();
        if (dynamic_cast<const Captioned*>(control) != nullptr) {
          EXPECT_GE(widget.width(), wanted) << form.Name() << " " << control->Name();
        }
      }
    }
  };
  const std::vector<std::string_view> languages = LanguageNames();
  for (const std::string_view language : languages) {
    UseLanguage(language);
    for (const LaunchRow& row : LaunchTable()) {
      Levyra session;
      session.PaidAmount("12345");
      session.ShowLevyraScreen(row.code);
    }
  }
  EXPECT_EQ(forms, static_cast<int>(LaunchTable().size() * languages.size()));
  ResetModule();
}

}  // namespace
}  // namespace fiscalon::qt

int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
    qputenv("QT_QPA_PLATFORM", "offscreen");
  const fiscalon::qt::QtApplication application;
  return RUN_ALL_TESTS();
}
