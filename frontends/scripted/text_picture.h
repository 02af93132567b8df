#pragma once

#include <string>

#include "core/forms/form.h"
#include "core/forms/toolkit.h"

/// Forms and boxes drawn with characters, in UTF-8: what a user would see, for terminals, reports and documents.
namespace fiscalon {

/// The form as it stands, from its layout alone. The field that has the focus is marked with ">"; shaded fields stand
/// in single angle brackets, hidden controls leave their place blank. Below the buttons stands the form's status.
std::string DrawForm(Form& form);

/// A message box with its icon as a word, its buttons, and the answered one marked.
std::string DrawMessageBox(const BoxRequest& box, MessageAnswer answer);

}  // namespace fiscalon
