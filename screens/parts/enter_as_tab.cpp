#include "screens/parts/enter_as_tab.h"

#include "core/forms/keys.h"

namespace fiscalon {

void EnterAsTab(Screen& form, int& keyCode, int shift) {
  if (keyCode != key::kEnter || shift != shift_state::kNone)
    return;
  keyCode = 0;
  form.SendKeys("{TAB}");
}

void EnterAsTab(Screen& form, int& character) {
  if (character != key::kEnter)
    return;
  character = 0;
  form.SendKeys("\t");
}

}  // namespace fiscalon
