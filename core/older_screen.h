#pragma once

#include <string>
#include <string_view>

#include "core/forms/keys.h"
#include "core/screen_contract.h"
#include "core/screen_heads.h"
#include "core/values/money.h"

namespace fiscalon {

/// The buttons to which the focus may leave a date without its check.
struct WaysOut {
  std::string_view cancel = "Command3D5";
  std::string_view help = "Command3D4";
};

/// The frame of the older screens: payee, amount and date above the entries, key filters, fields that check
/// themselves on Enter, and OK, Cancel and Help buttons. Their handlers go on with the next statement after a
/// run-time failure, as their helpers here do where they say so.
class OlderScreen : public Screen {
 public:
  OlderScreen(std::string_view name, std::string_view caption, const WaysOut& waysOut = {})
      : Screen(name, caption), waysOut_(waysOut) {}

 protected:
  // The steps of loading. The date and its caption are hidden while the payment is on hold. The help file lies three
  // folders above the record file.
  void ShowPayment(PayeeHead& head) const;
  void ShowDate(Label& caption, Label& payDate) const;
  void FindHelpFolder();
  /// The amount paid, read by `LeadingNumber`, as older screens show it: with two decimals.
  std::string ShownPaidAmount() const;

  void Cancel_Click() { Cancelled(); }
  void Help_Click();
  void Form_QueryUnload(bool& /*cancel*/, CloseReason reason) override { CancelOnClosing(reason); }

  /// Writes the records, sets `Chosen` and hides the form. With resume-next a failed output still accepts.
  enum class OutputFailure { Leaves, IsSkipped };
  void Accept(OutputFailure failure);
  virtual void WriteRecords() = 0;

  // Keys that pass beside digits, Backspace and Enter.
  static constexpr std::string_view kDateKeys = "";
  static constexpr std::string_view kAmountKeys = ".,";
  /// Swallows a key that is none of the field's and gives the field the focus again.
  static void FilterKey(TextField& field, int& character, std::string_view alsoAccepted);
  /// The filter as a field's `KeyPress`. Enter checks the field, and where the check passes the focus goes to `next`.
  template <class F>
  KeyPressHandler OnKeys(TextField& field, std::string_view alsoAccepted, bool (F::*check)(), Control& next) {
    return [form = static_cast<F*>(this), &field, alsoAccepted, check, &next](int& character) {
      FilterKey(field, character, alsoAccepted);
      if (character == key::kEnter && (form->*check)())
        next.SetFocus();
    };
  }

  /// Refuses with a critical box and empties the field.
  static bool RefuseAndEmpty(TextField& field, std::string_view message);
  /// Replaces a field's text by its trimmed text and returns it.
  static const std::string& TrimText(TextField& field);

  // Numbers at the start of a text, by `LeadingNumber`, with resume-next: 0 where the number is beyond its type, since
  // the statement that would keep it is skipped.
  static double NumberIn(std::string_view text);
  static Money AmountIn(std::string_view text);

  /// Shows an amount that was read from a field with two decimals; a text without a decimal separator counts cents.
  static void ShowWithImplicitCents(TextField& field, Money amount);

  /// A date field is left: unless it is empty or Cancel or Help took the focus, it must hold a date near today. With
  /// resume-next.
  void CheckDateOnLeaving(TextField& field);
  /// That, as the whole handler of a field's `LostFocus`.
  Handler OnDateLeft(TextField& field);
  /// Whether a field holds a date near today; a text with other characters than digits is none. With resume-next.
  static bool HoldsDate(const TextField& field);
  /// Shows a checked date as eight digits.
  static void ShowDateDigits(TextField& field);
  /// Whether the user refuses a date of another year in the Date Warning, which calls the date by that name.
  static bool YearIsRefused(const TextField& field, std::string_view name);
  /// A label's caption less the colon at its end.
  static std::string WithoutColon(const Label& label);

  /// A field's dollars in cents.
  static FreeFormatSlot AmountSlot(std::string number, const TextField& field);

 private:
  WaysOut waysOut_;
  std::string helpFolder_;
};

}  // namespace fiscalon
