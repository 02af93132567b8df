#pragma once

#include <string>
#include <string_view>

#include "core/screen_contract.h"

namespace fiscalon {

/// The frame of the newer screens: OK checks the form as a whole and then writes, Enter moves on like Tab, and
/// a field that fills up passes the focus on.
class NewerScreen : public Screen {
 public:
  using Screen::Screen;

 protected:
  /// The OK test: shows the message of the first rule that fails, gives its field the focus and answers false.
  virtual bool ValidateForm() = 0;
  virtual void DoWrite() = 0;

  void cmdOK_Click();
  void cmdCancel_Click();
  void Form_KeyDown(int& keyCode, int shift) override;

  /// Shows the payment's date and its amount in the locale's currency form.
  void ShowPayment(Label& payDate, Label& amountPaid) const;

  /// A typed amount as the screen shows it after its check: "0.00" for a blank text, cents where no decimal
  /// separator was typed, two decimals by the user's locale.
  static std::string AmountAsShown(std::string_view typed);

  /// Moves the focus on when a field holds as many characters as it takes and the next control is enabled.
  static void MoveOnWhenFull(const TextField& field, Control& next);
};

}  // namespace fiscalon
