#include "frontends/terminal/front_end.h"

#include <stdexcept>

#include "frontends/terminal/form_window.h"
#include "frontends/terminal/played_terminal_toolkit.h"
#include "frontends/terminal/screen_picture.h"
#include "frontends/terminal/terminal_toolkit.h"

namespace fiscalon::terminal {
namespace {

/// As wide as terminals are, and as high as it takes.
constexpr Size kPhotographed = {.width = 80, .height = 60};

class Photographed final : public PhotographedToolkit {
 public:
  explicit Photographed(const PictureLook& look) : look_(look) {}

  DrivenToolkit& Toolkit() override { return toolkit_; }
  void TakePicture() override {
    if (const FormWindow* const window = toolkit_.Window())
      picture_ = look_.format == PictureLook::Format::Text ? AsText(toolkit_.Seen(), window->Place())
                                                           : AsSvg(toolkit_.Seen(), window->Place(), look_);
  }
  std::string Picture() const override { return picture_; }

 private:
  PictureLook look_;
  PlayedTerminalToolkit toolkit_{kPhotographed};
  std::string picture_;
};

}  // namespace

std::unique_ptr<DrivenToolkit> NewPlayed() {
  return std::make_unique<PlayedTerminalToolkit>();
}

std::unique_ptr<Toolkit> NewShown(ActWatcher* watcher) {
  auto toolkit = std::make_unique<TerminalToolkit>();
  toolkit->Watch(watcher);
  return toolkit;
}

std::unique_ptr<PhotographedToolkit> NewPhotographed(const PictureLook& look) {
  if (look.format == PictureLook::Format::Png)
    throw std::runtime_error("a terminal's picture is text or SVG: name a file that ends in .txt or .svg");
  return std::make_unique<Photographed>(look);
}

std::string Hindrance() {
  return TerminalToolkit::Hindrance();
}

}  // namespace fiscalon::terminal
