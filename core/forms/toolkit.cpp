#include "core/forms/toolkit.h"

#include "core/wording/wording.h"

namespace fiscalon {

bool BoxRequest::Offers(MessageAnswer answer) const {
  switch (answer) {
    case MessageAnswer::Ok:
      return buttons != MessageButtons::YesNo;
    case MessageAnswer::Cancel:
      return buttons == MessageButtons::OkCancel;
    default:
      return buttons == MessageButtons::YesNo;
  }
}

MessageAnswer BoxRequest::DefaultAnswer() const {
  // The second button is the careful one. A box of one button has no other.
  if (defaultButton == DefaultButton::Second)
    return ClosedAnswer();
  return buttons == MessageButtons::YesNo ? MessageAnswer::Yes : MessageAnswer::Ok;
}

MessageAnswer BoxRequest::ClosedAnswer() const {
  switch (buttons) {
    case MessageButtons::OkCancel:
      return MessageAnswer::Cancel;
    case MessageButtons::YesNo:
      return MessageAnswer::No;
    default:
      return MessageAnswer::Ok;
  }
}

std::string ButtonCaption(MessageAnswer answer, const Language& language) {
  switch (answer) {
    case MessageAnswer::Ok:
      return Wording("OK").In(language);
    case MessageAnswer::Cancel:
      return Wording("Cancel").In(language);
    case MessageAnswer::Yes:
      return Wording("&Yes").In(language);
    default:
      return Wording("&No").In(language);
  }
}

}  // namespace fiscalon
