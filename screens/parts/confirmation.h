#pragma once

#include "core/forms/control.h"
#include "core/resume_next.h"
#include "screens/parts/asked.h"

namespace fiscalon {

/// An entry has passed what Enter tests: the form's own handler runs, if it has one, and the focus goes on to `next`,
/// if that is given and enabled.
inline void Confirm(const Handler& confirmed, const Asked<Control*>& next, Failures policy) {
  if (confirmed)
    Attempt(policy, confirmed);
  if (Control* const target = next(); target != nullptr && target->Enabled())
    Attempt(policy, [&] { target->SetFocus(); });
}

}  // namespace fiscalon
