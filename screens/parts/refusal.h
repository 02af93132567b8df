#pragma once

#include <string_view>

#include "core/forms/control.h"
#include "core/platform/toolkit.h"

/// The reaction to a test that fails, always false, the result of the test.
namespace fiscalon {

/// The focus goes to the control, and nothing is said.
bool Refuse(Control& control);
/// A box, and then the focus.
bool Refuse(Control& control, std::string_view message, MessageStyle style = MessageStyle::Critical);

}  // namespace fiscalon
