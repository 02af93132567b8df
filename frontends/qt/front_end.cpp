#include "frontends/qt/front_end.h"

#include <QCoreApplication>
#include <latch>
#include <stdexcept>
#include <string>
#include <system_error>
#include <thread>
#include <vector>

#include "frontends/qt/form_picture.h"
#include "frontends/qt/played_qt_toolkit.h"
#include "frontends/qt/program_messages.h"
#include "frontends/qt/qt_toolkit.h"

namespace fiscalon::qt {
namespace {

class Photographed final : public PhotographedToolkit {
 public:
  explicit Photographed(const PictureLook& look)
      : picture_(look.theme == PictureLook::Theme::Dark ? FormPicture::Theme::Dark : FormPicture::Theme::Light,
                 look.scale) {}

  DrivenToolkit& Toolkit() override { return toolkit_; }
  void TakePicture() override {
    if (FormDialog* dialog = toolkit_.Dialog())
      picture_.Take(*dialog);
  }
  std::string Picture() const override { return picture_.Png(); }

 private:
  PlayedQtToolkit toolkit_;
  FormPicture picture_;
};

/// Qt waits for ever for a thread that the system does not make. It has up to three at once.
void ExpectThreads() {
  constexpr size_t kAtOnce = 4;
  std::latch over(1);
  std::vector<std::jthread> threads;
  std::string refusal;
  try {
    while (threads.size() < kAtOnce) threads.emplace_back([&over] { over.wait(); });
  } catch (const std::system_error& error) {
    refusal = error.code().message();
  }
  over.count_down();
  if (!refusal.empty())
    throw std::runtime_error("windows need threads, and the system makes too few: " + refusal);
}

}  // namespace

std::unique_ptr<DrivenToolkit> NewPlayed() {
  ExpectThreads();
  return std::make_unique<PlayedQtToolkit>();
}

std::unique_ptr<Toolkit> NewShown(ActWatcher* watcher) {
  if (!QtToolkit::HasDisplay())
    throw std::runtime_error("there is no display to show the form on; set DISPLAY or WAYLAND_DISPLAY");
  ExpectThreads();
  InstallProgramMessages("fiscalon");
  auto toolkit = std::make_unique<QtToolkit>();
  // Boxes without a title have this one. The program may be a twin, of which users know nothing.
  QCoreApplication::setApplicationName(QStringLiteral("Fiscalon"));
  toolkit->Watch(watcher);
  return toolkit;
}

std::unique_ptr<PhotographedToolkit> NewPhotographed(const PictureLook& look) {
  if (look.format != PictureLook::Format::Png)
    throw std::runtime_error("a picture of windows is a PNG file: name one that ends in .png");
  ExpectThreads();
  return std::make_unique<Photographed>(look);
}

}  // namespace fiscalon::qt
