#include "screens/parts/statement_choice.h"

#include <utility>

#include "core/forms/keys.h"
#include "screens/parts/moving_on.h"

namespace fiscalon {

StatementChoice::StatementChoice(Form& form, std::string_view name, StatementChoiceDesign design)
    : ControlArray(form, name,
                   [first = design.tabIndex](int index) {
                     return ToggleDesign{
                         .caption = index == 0 ? "Paying statement of account only" : "Paying with details below",
                         .tabIndex = first + index};
                   },
                   {.keyPress = [this](int index, int& character) { KeyPressed(index, character); },
                    .click = [this](int index) { Clicked(index); }}),
      design_(std::move(design)) {}

void StatementChoice::Clicked(int index) {
  (*this)[1 - index].Value(!(*this)[index].Value());
  if (design_.chosen)
    design_.chosen();
  if (BringsDetails())
    FocusIfAble(*design_.details);
}

void StatementChoice::KeyPressed(int index, int character) {
  if (character != key::kEnter)
    return;
  (*this)[index].Value(true);
  if (PaysStatementAlone())
    design_.accept();
  else if (BringsDetails())
    design_.details->SetFocus();
}

}  // namespace fiscalon
