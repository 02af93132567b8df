#include "screens/parts/key_filter.h"

#include "core/forms/keys.h"
#include "core/platform/code_page.h"

namespace fiscalon {

void FilterKey(Control& field, int& character, std::string_view alsoAccepted) {
  const bool accepted = IsDigitKey(character) || character == key::kBackspace || character == key::kEnter ||
                        alsoAccepted.find(static_cast<char>(character)) != std::string_view::npos;
  if (accepted)
    return;
  character = 0;
  field.SetFocus();
}

void DropQuote(int& character) {
  if (character == '"')
    character = 0;
}

void Capitalize(int& character) {
  character = static_cast<unsigned char>(UpperCase(static_cast<char>(character)));
}

}  // namespace fiscalon
