// A host program with a Qt application of its own: its window stays behind the form, which is modal to it, and the
// records are printed. A host without Qt makes the same QtToolkit and gets an application with it.

#include <fiscalon/fiscalon.h>
#include <fiscalon/qt.h>

#include <QApplication>
#include <QMessageBox>
#include <QPushButton>
#include <iostream>

namespace {

void Pay(QWidget& window) {
  fiscalon::Levyra payment;
  payment.CompName("Summit Levies");
  payment.PaidAmount("12345");  // cents
  payment.PaidDate("06152026");
  payment.SeqNumber("0001");
  // No exception may cross Qt's event loop, so each slot that shows a screen catches its own.
  try {
    if (!payment.ShowLevyraScreen("15"))
      return;
  } catch (const fiscalon::RuntimeError& error) {
    QMessageBox::critical(&window, {}, QString::fromStdString(fiscalon::ToUtf8(error.Description())));
    return;
  }
  for (const auto& record : *payment.PC4Records()) std::cout << fiscalon::ToUtf8(record.Description()) << std::endl;
}

}  // namespace

int main(int argc, char** argv) {
  if (!fiscalon::QtToolkit::HasDisplay()) {
    std::cerr << "qt_host: there is no display to show the payment on; set DISPLAY or WAYLAND_DISPLAY\n";
    return 1;
  }
  const QApplication application(argc, argv);
  fiscalon::QtToolkit toolkit;
  fiscalon::UseToolkit(&toolkit);

  QPushButton window("&Pay Summit Levies");
  window.resize(240, 80);
  QObject::connect(&window, &QPushButton::clicked, [&window] { Pay(window); });
  window.show();
  const int status = QApplication::exec();

  fiscalon::UseToolkit(nullptr);
  return status;
}
