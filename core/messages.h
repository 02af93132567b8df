#pragma once

#include <string_view>

#include "core/forms/toolkit.h"

/// How screens and routines tell the user something.
namespace fiscalon {

/// Shows a message box and returns its answer. Forms that are up know by it that their user was told something.
MessageAnswer ShowMessage(const BoxRequest& box);
/// The same for a box without a title.
MessageAnswer ShowMessage(std::string_view text, MessageStyle style);

}  // namespace fiscalon
