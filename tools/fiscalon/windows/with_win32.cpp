// The front end of the program on Windows: forms of the system's own controls.

#include "frontends/win32/form_picture.h"
#include "frontends/win32/form_window.h"
#include "frontends/win32/played_win32_toolkit.h"
#include "frontends/win32/win32_toolkit.h"
#include "tools/fiscalon/context.h"
#include "tools/fiscalon/forms_front_end.h"

namespace fiscalon {
namespace {

class PhotographedWin32 final : public PhotographedToolkit {
 public:
  explicit PhotographedWin32(double scale) : toolkit_(static_cast<int>(scale * kUsualDotsPerInch + 0.5)) {}

  DrivenToolkit& Toolkit() override { return toolkit_; }
  void TakePicture() override {
    if (const win32::FormWindow* window = toolkit_.Window())
      picture_.Take(window->Window());
  }
  std::string Picture() const override { return picture_.Png(); }

 private:
  PlayedWin32Toolkit toolkit_;
  win32::FormPicture picture_;
};

}  // namespace

const char* const kFormsToolkit = "win32";

void GoOnWithForms(const Context& /*context*/) {}

std::unique_ptr<DrivenToolkit> NewPlayedForms() {
  return std::make_unique<PlayedWin32Toolkit>();
}

std::unique_ptr<Toolkit> NewForms(ActWatcher* watcher) {
  auto toolkit = std::make_unique<Win32Toolkit>();
  toolkit->Watch(watcher);
  return toolkit;
}

std::unique_ptr<PhotographedToolkit> NewPhotographedForms(const PictureLook& look) {
  if (look.theme == PictureLook::Theme::Dark)
    throw CommandError("--dark: forms have the colours of the desktop here; choose dark ones there");
  return std::make_unique<PhotographedWin32>(look.scale);
}

}  // namespace fiscalon
