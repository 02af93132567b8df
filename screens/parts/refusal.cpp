#include "screens/parts/refusal.h"

#include "core/module_state.h"

namespace fiscalon {

bool Refuse(Control& control) {
  control.SetFocus();
  return false;
}

bool Refuse(Control& control, std::string_view message, MessageStyle style) {
  ShowMessage(message, style);
  return Refuse(control);
}

}  // namespace fiscalon
