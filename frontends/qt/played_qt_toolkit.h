#pragma once

#include <vector>

#include "frontends/played/driven_toolkit.h"
#include "frontends/qt/qt_application.h"

namespace fiscalon::qt {
class FormDialog;
}

namespace fiscalon {

/// The Qt front end without a person: real dialogs and boxes, driven through the window system's events and read
/// off the widgets. For scenarios, tests and pictures. Needs no display: windows go to Qt's "offscreen" platform unless
/// QT_QPA_PLATFORM names another.
class PlayedQtToolkit final : public DrivenToolkit {
 public:
  PlayedQtToolkit();

  void ServeModal(Form& form) override;
  MessageAnswer ShowMessage(const BoxRequest& box) override;

  /// The dialog that is up; null where none is.
  qt::FormDialog* Dialog() const { return dialogs_.empty() ? nullptr : dialogs_.back(); }

 private:
  /// Says where windows go, before Qt asks.
  struct Platform {
    Platform();
  };

  Platform platform_;
  qt::QtApplication application_;
  std::vector<qt::FormDialog*> dialogs_;
};

}  // namespace fiscalon
