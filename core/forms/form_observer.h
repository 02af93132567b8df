#pragma once

#include <string_view>

#include "core/forms/control.h"

namespace fiscalon {

/// What a front end hears of the form that it shows.
class FormObserver {
 public:
  virtual ~FormObserver() = default;

  /// Text, caption, rows, value, selection, Enabled, Visible or Locked of a control.
  virtual void ControlChanged(const Control& /*control*/) {}
  /// A control has the focus now.
  virtual void FocusMoved(const Control& /*control*/, FocusBy /*by*/) {}
  /// The form's own caption reads otherwise.
  virtual void CaptionChanged() {}
  /// The form is no longer up: it was hidden or unloaded, or an error ended its show.
  virtual void ShowEnded() {}
  /// An event of the form is about to run, or one of a control that has a handler for it: "txtAmountPayable", "Change".
  virtual void HandlerRuns(std::string_view /*object*/, std::string_view /*event*/) {}
};

}  // namespace fiscalon
