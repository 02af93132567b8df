#include "frontends/qt/form_picture.h"
#include "frontends/qt/played_qt_toolkit.h"
#include "frontends/qt/program_messages.h"
#include "frontends/qt/qt_toolkit.h"
#include "tools/fiscalon/context.h"
#include "tools/fiscalon/forms_front_end.h"

namespace fiscalon {
namespace {

class PhotographedQt final : public PhotographedToolkit {
 public:
  explicit PhotographedQt(const PictureLook& look)
      : picture_(look.theme == PictureLook::Theme::Dark ? qt::FormPicture::Theme::Dark : qt::FormPicture::Theme::Light,
                 look.scale) {}

  DrivenToolkit& Toolkit() override { return toolkit_; }
  void TakePicture() override {
    if (qt::FormDialog* dialog = toolkit_.Dialog())
      picture_.Take(*dialog);
  }
  std::string Picture() const override { return picture_.Png(); }

 private:
  PlayedQtToolkit toolkit_;
  qt::FormPicture picture_;
};

}  // namespace

const char* const kFormsToolkit = "qt";

void GoOnWithForms(const Context& /*context*/) {}

std::unique_ptr<DrivenToolkit> NewPlayedForms() {
  return std::make_unique<PlayedQtToolkit>();
}

std::unique_ptr<Toolkit> NewForms(ActWatcher* watcher) {
  if (!QtToolkit::HasDisplay())
    throw CommandError("there is no display to show the form on; set DISPLAY or WAYLAND_DISPLAY");
  qt::InstallProgramMessages("fiscalon");
  auto toolkit = std::make_unique<QtToolkit>();
  toolkit->Watch(watcher);
  return toolkit;
}

std::unique_ptr<PhotographedToolkit> NewPhotographedForms(const PictureLook& look) {
  return std::make_unique<PhotographedQt>(look);
}

}  // namespace fiscalon
