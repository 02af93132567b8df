#pragma once

#include <memory>
#include <string>

#include "frontends/scripted/act_watcher.h"
#include "frontends/scripted/user_driver.h"

/// What the commands want of the Qt front end. A build without one answers each with a `CommandError` that says so.
namespace fiscalon {

/// Plays scenarios on real widgets. Needs no display.
std::unique_ptr<DrivenToolkit> NewPlayedQtToolkit();

/// Shows forms to the user; the watcher, if any, hears of all that the user does. A `CommandError` where there is no
/// display to show them on.
std::unique_ptr<Toolkit> NewQtToolkit(ActWatcher* watcher);

/// How a picture looks.
struct PictureLook {
  enum class Theme { Light, Dark };
  Theme theme = Theme::Light;
  /// Pixels for each of a usual screen.
  double scale = 1;
};

/// A front end that is played, and can be photographed while a form is up.
class PhotographedToolkit {
 public:
  virtual ~PhotographedToolkit() = default;

  virtual DrivenToolkit& Toolkit() = 0;
  /// Takes a picture of the form that is up.
  virtual void TakePicture() = 0;
  /// Writes the last picture as PNG. False where the file can't be written.
  virtual bool SavePicture(const std::string& path) const = 0;
};

std::unique_ptr<PhotographedToolkit> NewPhotographedToolkit(const PictureLook& look);

}  // namespace fiscalon
