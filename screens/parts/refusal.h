#pragma once

#include <string_view>

#include "core/forms/control.h"
#include "core/forms/toolkit.h"

namespace fiscalon {

/// A box about a control, under the title of its form's boxes.
void Complain(const Control& control, const Wording& message, MessageStyle style);

// The reaction to a test that fails, always false, the result of the test.

/// The focus goes to the control, and nothing is said.
bool Refuse(Control& control);
/// A box, and then the focus.
bool Refuse(Control& control, const Wording& message, MessageStyle style = MessageStyle::Critical);

}  // namespace fiscalon
