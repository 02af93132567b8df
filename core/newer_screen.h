#pragma once

#include <string>
#include <string_view>

#include "core/screen_contract.h"
#include "core/screen_heads.h"

namespace fiscalon {

/// The frame of the newer screens: OK checks the form as a whole and then writes, Enter moves on like Tab, a field
/// that fills up passes the focus on, and an amount is checked and shown with two decimals when it is left.
class NewerScreen : public Screen {
 public:
  using Screen::Screen;

 protected:
  /// The OK test: shows the message of the first rule that fails, gives its field the focus and answers false.
  virtual bool ValidateForm() = 0;
  virtual void DoWrite() = 0;
  /// The calculated fields of the form, anew.
  virtual void RecalcForm() {}

  void cmdOK_Click();
  void cmdCancel_Click();
  void Form_KeyDown(int& keyCode, int shift) override;

  /// A handler or routine begins. For the one screen that writes the play-by-play log.
  virtual void Entered(std::string_view /*routine*/) const {}

  /// Shows the payment's date and its amount in the locale's currency form.
  void ShowPayment(Label& payDate, Label& amountPaid) const;

  // The handlers that fields of a kind have in common, for a form's table of controls. What is no part of a number
  // goes as it is typed, and a full field moves the focus on to `next`. Digits with resume-next.
  Handler OnDigitsChange(TextField& field, Control& next);
  Handler OnAmountChange(TextField& field, Control& next);
  /// The check of an amount that is left, with the field's name in messages: a literal, or a label's caption.
  Handler OnAmountLeft(TextField& box, std::string_view name);
  Handler OnAmountLeft(TextField& box, const Label& name);

  /// What an amount's `Change` does: keeps digits, "-" and the locale's decimal separator, and moves on.
  void AmountChange(TextField& field, Control& next);

  /// What amounts a field takes, and what others are told behind the field's name.
  enum class AmountRange { NotNegative, Positive };
  enum class AmountCheck { Skipped, Refused, Accepted };
  /// The amount entry rule: an amount out of range is refused with a plain box unless the focus went to Cancel;
  /// any other text becomes an amount with two decimals, read as cents where no decimal separator was typed.
  AmountCheck CheckAmount(TextField& box, std::string_view name, AmountRange range);
  /// The rule for an amount that adds up to a total: when it is accepted the form is recalculated.
  virtual void CheckValues(TextField& box, std::string_view name);

  // Slots of "F" records: a field's amount in cents, and a number with nothing behind it.
  static FreeFormatSlot AmountSlot(std::string number, const TextField& field);
  static FreeFormatSlot ZeroSlot(std::string number);
};

}  // namespace fiscalon
