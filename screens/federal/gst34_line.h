#pragma once

#include <array>
#include <string>
#include <string_view>

#include "screens/parts/typed_amount.h"

namespace fiscalon {

/// Caps the length of an amount while it is typed: `maxDigits` digits without a point, since the last two will be
/// cents, or two fewer ahead of a point and two behind it. A minus sign counts for nothing. A digit or a point too many
/// becomes 0, with a beep; a second point becomes 0 without one.
void LimitAmountKey(const TextField& box, int& key, int maxDigits);

/// Who fills a line of the return.
enum class LineFilledBy { User, Form };

/// What is a line's own.
struct Gst34LineDesign {
  int tabIndex = FieldDesign().tabIndex;
  /// What the user is told of an amount below 0. The form's own lines have no such test.
  std::string_view belowZero = {};
  /// What happens to such an amount when the line is left. OK empties the field on every line.
  Reaction belowZeroOnLeaving = Reaction::Empties;
  /// Where Enter leads.
  Asked<Control*> next = {};
  LineFilledBy filledBy = LineFilledBy::User;
};

/// The tests of a line, which bear its own words.
struct Gst34LineRows {
  explicit Gst34LineRows(const Gst34LineDesign& design);

  std::array<AmountRow, 7> onLeaving;
  std::array<AmountRow, 7> onOk;
};

/// An amount line of the GST/HST return: right-aligned, 12 characters. When it is left it becomes an amount with two
/// decimals, read as cents where no decimal separator was typed, and the return is calculated anew.
class Gst34Line : private Gst34LineRows, public TypedAmount {
 public:
  Gst34Line(fiscalon::Form& form, std::string name, const Handler& recalculate, const Gst34LineDesign& design);

  /// The same tests and the same rewriting on OK.
  bool PassesOnOk() { return Passes(onOk); }
};

}  // namespace fiscalon
