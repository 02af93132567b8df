#include "core/messages.h"

#include "core/forms/form.h"
#include "core/module_state.h"

namespace fiscalon {

MessageAnswer ShowMessage(const Message& message) {
  Toolkit& toolkit = TheToolkit();
  Language language = TheModule().language;
  for (Form* const form : TheModule().shown) {
    if (!form->IsUp())
      continue;
    form->UserWasTold();
    language = form->ShownIn();
  }
  return toolkit.ShowMessage({.text = message.text.In(language),
                              .style = message.style,
                              .buttons = message.buttons,
                              .defaultButton = message.defaultButton,
                              .title = message.title.In(language),
                              .language = language});
}

MessageAnswer ShowMessage(const Wording& text, MessageStyle style) {
  return ShowMessage(Message{.text = text, .style = style});
}

}  // namespace fiscalon
