#pragma once

#include <vector>

#include "core/forms/act_watcher.h"
#include "core/forms/form_observer.h"
#include "frontends/played/user_driver.h"
#include "frontends/qt/qt_application.h"

namespace fiscalon::qt {
class FormDialog;
}

namespace fiscalon {

/// The Qt front end without a person: real dialogs and boxes, driven through the window system's events and read
/// off the widgets. For scenarios, tests and pictures. Needs no display: windows go to Qt's "offscreen" platform unless
/// QT_QPA_PLATFORM names another.
class PlayedQtToolkit final : public DrivenToolkit, private FormObserver {
 public:
  PlayedQtToolkit();

  void Opening(Form& form) override;
  void ServeModal(Form& form) override;
  MessageAnswer ShowMessage(const BoxRequest& box) override;
  void Beep() override;
  void OpenHelp(std::string_view file, int32_t context) override;

  /// Who hears of all that the played user does; null for nobody. Not owned.
  void Watch(ActWatcher* watcher) { watcher_ = watcher; }

  /// The dialog that is up; null where none is.
  qt::FormDialog* Dialog() const { return dialogs_.empty() ? nullptr : dialogs_.back(); }

 private:
  void HandlerRuns(std::string_view object, std::string_view event) override;

  /// Says where windows go, before Qt asks.
  struct Platform {
    Platform();
  };

  Platform platform_;
  qt::QtApplication application_;
  std::vector<qt::FormDialog*> dialogs_;
  ActWatcher* watcher_ = nullptr;
};

}  // namespace fiscalon
