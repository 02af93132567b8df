#include "screens/parts/validation_guard.h"

#include <utility>

#include "core/resume_next.h"
#include "screens/parts/moving_on.h"

namespace fiscalon {

void ValidationGuard::FieldIsLeft(Control& field, const std::function<bool()>& passes) {
  if (FocusIsOn(cancel_))
    return;
  const bool isChecked = !std::exchange(inValidation_, true);
  if (isChecked && ResumeNext::Fails(passes)) {
    ResumeNext::Run([&] { field.SetFocus(); });
    // The loss of the focus that this has caused comes up here, while the guard stands.
    ResumeNext::Run([&] { form_.DoEvents(); });
  }
  inValidation_ = false;
}

}  // namespace fiscalon
