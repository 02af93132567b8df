#include "core/messages.h"

#include <string>

#include "core/forms/form.h"
#include "core/module_state.h"

namespace fiscalon {

MessageAnswer ShowMessage(const BoxRequest& box) {
  Toolkit& toolkit = TheToolkit();
  for (const auto& [name, form] : TheModule().forms)
    if (form->IsUp())
      form->UserWasTold();
  return toolkit.ShowMessage(box);
}

MessageAnswer ShowMessage(std::string_view text, MessageStyle style) {
  return ShowMessage({.text = std::string(text), .style = style});
}

}  // namespace fiscalon
