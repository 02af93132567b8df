#include "screens/parts/refusal.h"

#include <string>

#include "core/forms/form.h"
#include "core/messages.h"

namespace fiscalon {

void Complain(const Control& control, const Wording& message, MessageStyle style) {
  ShowMessage({.text = message, .style = style, .title = control.Owner().BoxTitle()});
}

bool Refuse(Control& control) {
  control.SetFocus();
  return false;
}

bool Refuse(Control& control, const Wording& message, MessageStyle style) {
  Complain(control, message, style);
  return Refuse(control);
}

}  // namespace fiscalon
