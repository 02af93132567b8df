#pragma once

#include <stdexcept>
#include <string>

namespace fiscalon {

/// A mistake in a form's definition, or in what drives the form, such as a row that a list has not. `what()` names the
/// form and the control. No handler's policy swallows it.
class FormMisuse : public std::logic_error {
 public:
  FormMisuse(const std::string& form, const std::string& control, const std::string& mistake)
      : std::logic_error(form + "." + control + ": " + mistake) {}
};

}  // namespace fiscalon
