#pragma once

#include <memory>
#include <string>

#include "core/forms/act_watcher.h"
#include "frontends/played/driven_toolkit.h"

/// What the commands want of the front end that shows forms: Qt's, or on Windows the system's own. Loading Qt takes
/// longer than many a command does, so the program itself has none there: it has a twin that does.
namespace fiscalon {

struct Context;

/// What `play --toolkit` calls it.
extern const char* const kFormsToolkit;

/// To be called by a command that wants the front end, before it reads input or writes output: a program without it
/// starts its twin in its own place, with the same arguments. A `CommandError` where the build has no twin or it can't
/// be started.
void GoOnWithForms(const Context& context);

/// Plays scenarios on real controls. Needs no display.
std::unique_ptr<DrivenToolkit> NewPlayedForms();

/// Shows forms to the user; the watcher, if any, hears of all that the user does. A `CommandError` where there is no
/// display to show them on.
std::unique_ptr<Toolkit> NewForms(ActWatcher* watcher);

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
  /// The last picture as the bytes of a PNG file.
  virtual std::string Picture() const = 0;
};

std::unique_ptr<PhotographedToolkit> NewPhotographedForms(const PictureLook& look);

}  // namespace fiscalon
