#include "frontends/played/last_key.h"

namespace fiscalon {

bool LastKey::RetypedIn(const TextField* field) const {
  return Meets(field) && field->Text() == text_ && field->Selected() == Selection{.start = selection_.start + 1};
}

std::vector<std::string> LastKey::KeysBefore(PlayerCaret& caret) const {
  const int characters = TakesLastCharacter() ? selection_.length - 1 : selection_.length;
  return caret.KeysThatErase(text_, selection_, characters);
}

}  // namespace fiscalon
