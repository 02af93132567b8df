#include "screens/parts/key_filter.h"

#include "core/forms/keys.h"

namespace fiscalon {

void FilterKey(Control& field, int& character, std::string_view alsoAccepted) {
  const bool accepted = (character >= '0' && character <= '9') || character == key::kBackspace ||
                        character == key::kEnter ||
                        alsoAccepted.find(static_cast<char>(character)) != std::string_view::npos;
  if (accepted)
    return;
  character = 0;
  field.SetFocus();
}

}  // namespace fiscalon
