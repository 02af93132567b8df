#pragma once

#include <functional>
#include <string>

#include "core/forms/label.h"
#include "core/forms/text_field.h"
#include "screens/parts/asked.h"

namespace fiscalon {

/// What an amount entry takes, and what others are told behind its name.
enum class AmountRange { NotNegative, Positive };
enum class AmountCheck { Skipped, Refused, Accepted };

class AmountEntry;

/// When a form looks at its amounts.
enum class AmountsChecked { WhenLeft, OnOkAlone };

/// What the amounts of a form have in common.
struct AmountRule {
  /// The button to which the focus may leave a bad amount.
  const Control& cancel;
  AmountsChecked checked = AmountsChecked::WhenLeft;
  /// The calculated fields, anew: runs when an amount was left and accepted.
  Handler recalculate = {};
  /// What runs, in the place of `CheckValues`, when an amount is left.
  std::function<void(AmountEntry& box)> whenLeft = {};
};

/// What is an amount's own.
struct AmountEntryDesign {
  int tabIndex = FieldDesign().tabIndex;
  /// The field's name in messages.
  Asked<Wording> name = {};
  /// Where the focus goes when the field is full.
  Asked<Control*> next = {};
  /// A control to which the focus may step back without a check.
  const Control* back = nullptr;
  AmountRange range = AmountRange::NotNegative;
  bool visible = true;
};

/// A label's caption as the name of its field.
Asked<Wording> CaptionOf(const Label& label);

/// An amount of the newer kind: right-aligned, 12 characters. It keeps digits, "-" and the locale's decimal separator
/// of what is typed, moves on when it is full, and is checked and shown with two decimals when it is left.
class AmountEntry : public TextField {
 public:
  AmountEntry(fiscalon::Form& form, std::string name, const AmountRule& rule, AmountEntryDesign design);

  /// The amount in the field, by `LeadingNumber`.
  double Amount() const;

  /// The amount entry rule: an amount out of range is refused with a plain box unless the focus went to Cancel;
  /// any other text becomes an amount with two decimals, read as cents where no decimal separator was typed.
  AmountCheck Check();
  /// The rule, and where it accepts the form is recalculated.
  void CheckValues();

 private:
  static FieldEvents EventsOf(AmountEntry* self, AmountsChecked checked);
  void Left();
  bool IsOutOfRange(double amount) const;

  AmountRule rule_;
  AmountEntryDesign design_;
};

}  // namespace fiscalon
