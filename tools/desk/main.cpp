// The payment desk: a small host program with a Qt application of its own, for trying the screens out.

#include <CLI/CLI.hpp>
#include <QApplication>
#include <QDir>
#include <QLibraryInfo>
#include <exception>
#include <iostream>

#include "core/host_setup.h"
#include "frontends/qt/program_messages.h"
#include "frontends/qt/qt_text.h"
#include "frontends/qt/qt_toolkit.h"
#include "tools/desk/catalogue_translator.h"
#include "tools/desk/desk_window.h"
#include "tools/desk/operators_page.h"

namespace {

constexpr int kUnusable = 2;

/// The operators' page in a language, as it is installed, wherever the program lies; in English where there is none.
QString OperatorsPage(std::string_view language) {
  const QString page =
      QDir::cleanPath(QApplication::applicationDirPath() + QStringLiteral("/" FISCALON_OPERATORS_PAGE));
  const QString worded =
      QString(page).replace(QStringLiteral(".md"), u'.' + fiscalon::qt::ToQt(language) + QStringLiteral(".md"));
  return fiscalon::OperatorsPage::IsThere(worded) ? worded : page;
}

int OpenDesk(int argc, char** argv, const std::string& language) {
  fiscalon::qt::InstallProgramMessages("fiscalon-desk");
  const QApplication application(argc, argv);
  fiscalon::UseLanguage(language);
  // Qt's own dialogs have words of their own, where they are installed.
  QTranslator ofQt;
  if (ofQt.load(QStringLiteral("qtbase_") + fiscalon::qt::ToQt(language),
                QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
    QApplication::installTranslator(&ofQt);
  fiscalon::CatalogueTranslator ofCatalogue;
  QApplication::installTranslator(&ofCatalogue);
  QApplication::setApplicationDisplayName(QStringLiteral("Fiscalon"));
  fiscalon::QtToolkit toolkit;
  fiscalon::UseToolkit(&toolkit);
  fiscalon::DeskWindow desk(OperatorsPage(language));
  desk.show();
  // Without a window manager nobody else gives it the keyboard.
  desk.activateWindow();
  const int status = QApplication::exec();
  fiscalon::UseToolkit(nullptr);
  return status;
}

int RunProgram(int argc, char** argv) {
  CLI::App program("The payment desk: try the screens out with a payment of your own", "fiscalon-desk");
  program.set_version_flag("--version", "fiscalon " FISCALON_VERSION, "Print the version and exit");
  program.footer("Exit status: 0; 2 where there is no display, or for an unknown argument.");
  std::string language = "en";
  program.add_option("--language", language, "The language of the desk and of its forms")
      ->type_name("NAME")
      ->check(CLI::IsMember(fiscalon::LanguageNames()));
  try {
    program.parse(argc, argv);
  } catch (const CLI::ParseError& end) {
    return program.exit(end) == 0 ? 0 : kUnusable;
  }
  if (!fiscalon::QtToolkit::HasDisplay()) {
    std::cerr << "fiscalon-desk: there is no display to open the desk on; set DISPLAY or WAYLAND_DISPLAY\n";
    return kUnusable;
  }
  return OpenDesk(argc, argv, language);
}

}  // namespace

int main(int argc, char** argv) {
  try {
    return RunProgram(argc, argv);
  } catch (const std::exception& error) {
    std::cerr << "fiscalon-desk: " << error.what() << '\n';
  }
  return kUnusable;
}
