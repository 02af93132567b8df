#pragma once

#include <functional>

#include "core/screen.h"

namespace fiscalon {

/// `InValidation` of a form whose periods and account numbers are checked when they are left: while the first failed
/// check pulls the focus back, the field that had just received it is not checked.
class ValidationGuard {
 public:
  ValidationGuard(Screen& form, const Control& cancel) : form_(form), cancel_(cancel) {}

  /// A field is left: what its `LostFocus` does. Nothing, while the focus goes to Cancel. Otherwise the check runs,
  /// unless one is running, and where it fails, the focus comes back to the field. With resume-next.
  void FieldIsLeft(Control& field, const std::function<bool()>& passes);

 private:
  Screen& form_;
  const Control& cancel_;
  /// A field of the form's own: it outlives unloading.
  bool inValidation_ = false;
};

}  // namespace fiscalon
