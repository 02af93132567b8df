#pragma once

#include <string_view>

#include "core/forms/button.h"
#include "core/forms/control_array.h"

namespace fiscalon {

struct StatementChoiceDesign {
  /// Of the first box; the second one follows.
  int tabIndex = ToggleDesign().tabIndex;
  /// Where the details begin.
  Control* details = nullptr;
  /// Runs when the choice has been made, ahead of the move to the details.
  Handler chosen = {};
  /// Enter accepts a payment of the statement alone: nothing is written.
  Handler accept = {};
};

/// Two check boxes that are one choice: box 0 pays a statement of account alone, box 1 brings details. Whichever is
/// clicked, the other one becomes its opposite. Enter on a box ticks it, and then accepts or goes to the details.
class StatementChoice : public ControlArray<CheckBox, 2> {
 public:
  StatementChoice(Form& form, std::string_view name, StatementChoiceDesign design);

  bool PaysStatementAlone() const { return (*this)[0].Value(); }
  bool BringsDetails() const { return (*this)[1].Value(); }

 private:
  void Clicked(int index);
  void KeyPressed(int index, int character);

  StatementChoiceDesign design_;
};

}  // namespace fiscalon
