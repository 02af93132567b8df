#include "frontends/qt/qt_application.h"

#include <QApplication>
#include <array>
#include <filesystem>
#include <string>
#include <system_error>

#include "core/platform/runtime_error.h"
#include "core/platform/utf8_path.h"

namespace fiscalon::qt {
namespace {

/// The program's own file name, for message boxes without a title.
std::string ProgramName() {
  std::error_code error;
  const auto program = std::filesystem::read_symlink("/proc/self/exe", error);
  return error ? std::string("Fiscalon") : Utf8Of(program.filename());
}

}  // namespace

/// An application with the arguments that it refers to as long as it lives.
struct QtApplication::Own {
  std::string name = ProgramName();
  int count = 1;
  std::array<char*, 2> arguments = {name.data(), nullptr};
  QApplication application{count, arguments.data()};

  // A form that closes ends no host. The setting outlives the application, so it is put back.
  bool quitsBefore = QGuiApplication::quitOnLastWindowClosed();

  Own() { QGuiApplication::setQuitOnLastWindowClosed(false); }
  ~Own() { QGuiApplication::setQuitOnLastWindowClosed(quitsBefore); }
  Own(const Own&) = delete;
  Own& operator=(const Own&) = delete;
};

QtApplication::QtApplication() {
  static std::weak_ptr<Own> theOwn;
  own_ = theOwn.lock();
  if (own_ || qobject_cast<QApplication*>(QCoreApplication::instance()) != nullptr)
    return;
  if (QCoreApplication::instance() != nullptr)
    throw RuntimeError(error_number::kInvalidProcedureCall,
                       "The host's Qt application shows no widgets; make it a QApplication");
  own_ = std::make_shared<Own>();
  theOwn = own_;
}

QtApplication::~QtApplication() = default;

bool QtApplication::CanShow() {
#if defined(Q_OS_UNIX) && !defined(Q_OS_DARWIN)
  for (const char* variable : {"QT_QPA_PLATFORM", "WAYLAND_DISPLAY", "DISPLAY"})
    if (qEnvironmentVariableIsSet(variable) && !qEnvironmentVariableIsEmpty(variable))
      return true;
  return QCoreApplication::instance() != nullptr;
#else
  return true;
#endif
}

}  // namespace fiscalon::qt
