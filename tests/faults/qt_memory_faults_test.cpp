#include <link.h>

#include <QApplication>
#include <QKeyEvent>
#include <QTimer>
#include <QWidget>
#include <array>
#include <optional>

#include "frontends/qt/played_qt_toolkit.h"
#include "frontends/qt/qt_toolkit.h"
#include "tests/faults/showing_host.h"

namespace fiscalon {
namespace {

struct Code {
  uintptr_t begin = 0;
  uintptr_t end = 0;
};

/// This program's, and that of the standard library.
std::array<Code, 2> ownCode;

void FindOwnCode() {
  size_t found = 0;
  ::dl_iterate_phdr(
      [](dl_phdr_info* library, size_t, void* data) {
        const std::string_view name = library->dlpi_name;
        if (!name.empty() && name.find("libstdc++") == std::string_view::npos)
          return 0;
        auto& next = *static_cast<size_t*>(data);
        if (next == ownCode.size() || library->dlpi_phnum == 0)
          return 0;
        Code& code = ownCode[next++];
        code.begin = library->dlpi_addr;
        for (int i = 0; i < library->dlpi_phnum; ++i)
          code.end = std::max<uintptr_t>(
              code.end, library->dlpi_addr + library->dlpi_phdr[i].p_vaddr + library->dlpi_phdr[i].p_memsz);
        return 0;
      },
      &found);
  EXPECT_EQ(found, ownCode.size());
}

bool IsOurs(const void* caller) {
  const auto place = reinterpret_cast<uintptr_t>(caller);
  return std::any_of(ownCode.begin(), ownCode.end(),
                     [place](const Code& code) { return code.begin <= place && place < code.end; });
}

// Where Qt's own allocations fail, it gives up with the program.

TEST(QtFrontEnd, TellsTheHostThatMemoryIsOutAndGoesOn) {
  PlayedQtToolkit frontEnd;
  FindOwnCode();
  FailOnly(IsOurs);
  ExpectAllocationsMayFailOn(frontEnd);
  FailOnly(nullptr);
}

/// Shows a form whose user leaves a field that keeps the focus, which the form then says, and closes the window, with
/// an allocation that fails meanwhile. False where there are fewer.
bool ShowWithAFailingAllocation(size_t nth) {
  Levyra host;
  std::optional<AllocationFault> fault;
  QTimer::singleShot(0, qApp, [&] {
    QWidget* const form = QApplication::activeModalWidget();
    // Through the event loop, which is code that no exception may cross.
    QCoreApplication::postEvent(form->focusWidget(),
                                new QKeyEvent(QEvent::KeyPress, Qt::Key_Tab, Qt::NoModifier, "\t"));
    QCoreApplication::postEvent(form, new QEvent(QEvent::Close));
    fault.emplace(nth);
  });
  bool told = false;
  try {
    EXPECT_FALSE(host.ShowLevyraScreen("03"));
  } catch (const std::bad_alloc&) {
    told = true;
  }
  EXPECT_EQ(told, fault->HasThrown()) << "allocation " << nth;
  const bool reached = fault->Allocations() >= nth;
  fault.reset();
  return reached;
}

/// How often Qt has complained that an exception came its way.
int complaints = 0;

TEST(QtToolkit, TellsTheHostThatMemoryIsOutInTheEventLoop) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  ResetModule();
  QtToolkit toolkit;
  UseToolkit(&toolkit);
  FindOwnCode();
  FailOnly(IsOurs);
  const auto before = qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString& text) {
    complaints += text.contains(QStringLiteral("caught an exception")) ? 1 : 0;
  });
  size_t nth = 1;
  while (ShowWithAFailingAllocation(nth) && !HasFailure()) ++nth;
  EXPECT_GT(nth, 10U);
  EXPECT_EQ(complaints, 0);
  qInstallMessageHandler(before);
  FailOnly(nullptr);
  UseToolkit(nullptr);
}

}  // namespace
}  // namespace fiscalon
