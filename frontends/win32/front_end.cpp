#include "frontends/win32/front_end.h"

#include <stdexcept>

#include "frontends/win32/form_picture.h"
#include "frontends/win32/form_window.h"
#include "frontends/win32/played_win32_toolkit.h"
#include "frontends/win32/win32_toolkit.h"

namespace fiscalon::win32 {
namespace {

class Photographed final : public PhotographedToolkit {
 public:
  explicit Photographed(double scale) : toolkit_(static_cast<int>(scale * kUsualDotsPerInch + 0.5)) {}

  DrivenToolkit& Toolkit() override { return toolkit_; }
  void TakePicture() override {
    if (const FormWindow* window = toolkit_.Window())
      picture_.Take(window->Window());
  }
  std::string Picture() const override { return picture_.Png(); }

 private:
  PlayedWin32Toolkit toolkit_;
  FormPicture picture_;
};

}  // namespace

std::unique_ptr<DrivenToolkit> NewPlayed() {
  return std::make_unique<PlayedWin32Toolkit>();
}

std::unique_ptr<Toolkit> NewShown(ActWatcher* watcher) {
  auto toolkit = std::make_unique<Win32Toolkit>();
  toolkit->Watch(watcher);
  return toolkit;
}

std::unique_ptr<PhotographedToolkit> NewPhotographed(const PictureLook& look) {
  if (look.format != PictureLook::Format::Png)
    throw std::runtime_error("a picture of windows is a PNG file: name one that ends in .png");
  if (look.theme == PictureLook::Theme::Dark)
    throw std::runtime_error("--dark: forms have the colours of the desktop here; choose dark ones there");
  return std::make_unique<Photographed>(look.scale);
}

}  // namespace fiscalon::win32
