#pragma once

#include <functional>
#include <span>
#include <string>
#include <string_view>

#include "core/forms/label.h"
#include "core/forms/text_field.h"
#include "core/values/money.h"
#include "screens/parts/asked.h"
#include "screens/parts/entry_rows.h"
#include "screens/parts/key_filter.h"

namespace fiscalon {

/// An amount while its rows are gone through: the field, and what has been read of it so far. Nothing read is 0.
class TestedAmount {
 public:
  TestedAmount(TextField& field, const Asked<double>& toBePaid, Failures policy)
      : field_(field), toBePaid_(toBePaid), policy_(policy) {}

  TextField& Field() const { return field_; }
  const std::string& Text() const { return field_.Text(); }
  Failures Policy() const { return policy_; }
  /// The amount that the field is compared with.
  double ToBePaid() const { return toBePaid_(); }

  double Value() const { return isMoney_ ? money_.ToDouble() : number_; }
  void ReadNumber();
  void ReadMoney();
  /// What was read, as cents where the text has no decimal separator.
  void TakeAsCents();
  void Show(std::string_view pattern);
  void ShowZero();

 private:
  TextField& field_;
  const Asked<double>& toBePaid_;
  Failures policy_;
  bool isMoney_ = false;
  double number_ = 0;
  Money money_;
};

using AmountRow = EntryRow<TestedAmount>;
/// Of a table that outlives the fields that it is for.
using AmountRows = std::span<const AmountRow>;

/// What rows of amounts test and do. A form adds its own beside them, as routines of the same shape.
namespace amount {

// Read or rewrite the field; never met.
bool Trim(TestedAmount& entry);
/// The number at the start of the text, as a 64-bit float, or as money with four decimals.
bool ReadNumber(TestedAmount& entry);
bool ReadMoney(TestedAmount& entry);
/// Shows what was read: with two decimals, where a text without a decimal separator counts cents; with two decimals as
/// it stands; as a whole number.
bool ShowInCents(TestedAmount& entry);
bool ShowInDollars(TestedAmount& entry);
bool ShowWhole(TestedAmount& entry);
/// Shows an amount of 0 with two decimals, or fills an empty field so.
bool ShowZero(TestedAmount& entry);
bool FillEmpty(TestedAmount& entry);

// Tests.
bool IsMissing(TestedAmount& entry);
/// Other characters than digits, "." and ",", or none at all.
bool IsNoAmount(TestedAmount& entry);
bool IsNegative(TestedAmount& entry);
bool IsZero(TestedAmount& entry);
/// 0, while the amount to be paid is not.
bool IsZeroWhileDue(TestedAmount& entry);
bool HasFraction(TestedAmount& entry);
/// What was read is more than the amount to be paid.
bool Exceeds(TestedAmount& entry);
/// The text, read as a number, is not the amount to be paid.
bool Differs(TestedAmount& entry);

}  // namespace amount

/// The amount that a label shows, for comparisons.
Asked<double> AmountOn(const Label& label);

/// How an amount field behaves that is tested on Enter. What is left out does not happen.
struct TypedAmountRules {
  /// Keys beside digits, Backspace and Enter.
  std::string_view keys = kAmountKeys;
  /// What Enter tests; where that passes, `confirmed` runs and the focus goes to `next`, if it is enabled.
  AmountRows onEnter = {};
  Handler confirmed = {};
  Asked<Control*> next = {};
  /// What leaving the field tests; where that passes, `left` runs.
  AmountRows onLeaving = {};
  Handler left = {};
  Asked<double> toBePaid = {};
  /// Of Enter and OK. Leaving goes on with the next statement on every form.
  Failures failures = Failures::Skipped;
};

/// An amount that is filtered key by key and checked on Enter. OK goes through rows of its own.
class TypedAmount : public TextField {
 public:
  TypedAmount(fiscalon::Form& form, std::string name, const FieldDesign& design, TypedAmountRules rules,
              FieldEvents own = {});

  /// Whether the field passes the rows, which rewrite it, show boxes and move the focus on their way.
  bool Passes(AmountRows rows);

 private:
  static FieldEvents EventsOf(TypedAmount* self, const TypedAmountRules& rules);
  void KeyPressed(int& character);
  void Left();

  TypedAmountRules rules_;
};

}  // namespace fiscalon
