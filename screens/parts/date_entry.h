#pragma once

#include <functional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "core/forms/text_field.h"
#include "screens/parts/asked.h"
#include "screens/parts/entry_rows.h"

namespace fiscalon {

/// What a date that is none is told, on leaving and mostly on OK.
inline constexpr std::string_view kInvalidDate = "Invalid date value.";

/// A date while its rows are gone through.
class TestedDate {
 public:
  TestedDate(TextField& field, std::string_view nameInWarning, Failures policy)
      : field_(field), nameInWarning_(nameInWarning), policy_(policy) {}

  TextField& Field() const { return field_; }
  const std::string& Text() const { return field_.Text(); }
  std::string_view NameInWarning() const { return nameInWarning_; }
  Failures Policy() const { return policy_; }

 private:
  TextField& field_;
  std::string_view nameInWarning_;
  Failures policy_;
};

using DateRow = EntryRow<TestedDate>;
/// Of a table that outlives the fields that it is for.
using DateRows = std::span<const DateRow>;

/// What rows of dates test and do.
namespace date {

// Rewrite the field; never met.
bool Trim(TestedDate& entry);
/// Shows a checked date as eight digits.
bool ShowDigits(TestedDate& entry);

// Tests. Blanks around the text do not count, but for the one that asks whether it is a date.
bool IsMissing(TestedDate& entry);
bool IsNotEightLong(TestedDate& entry);
/// No date, or none near today. Other characters than digits are a run-time failure, which where those are skipped
/// counts as met.
bool IsInvalid(TestedDate& entry);
/// A date of another year, which the user, asked in the Date Warning, will not use.
bool YearIsRefused(TestedDate& entry);

}  // namespace date

/// What happens to a date that is left.
enum class DateLeft {
  /// It is checked, and a good one shown as eight digits.
  ShowsDigits,
  /// It is checked, and a good one stays as it stands.
  StaysAsItIs,
  Unchecked
};

/// How a date field behaves. What is left out does not happen.
struct DateRules {
  /// Where the focus goes from a field that holds as many characters as it takes.
  Asked<Control*> whenFull = {};
  /// What Enter tests; where that passes, `confirmed` runs and the focus goes to `next`, if it is enabled.
  DateRows onEnter = {};
  Handler confirmed = {};
  Asked<Control*> next = {};
  DateLeft whenLeft = DateLeft::ShowsDigits;
  /// The controls to which the focus may leave without a check.
  std::vector<std::reference_wrapper<const Control>> waysOut = {};
  /// What the Date Warning calls the date.
  std::string nameInWarning = {};
  /// Of Enter and OK. Leaving goes on with the next statement on every form.
  Failures failures = Failures::Skipped;
};

/// A date of eight digits that is filtered key by key, moves on when it is full, and is checked on Enter and when it is
/// left. OK goes through rows of its own.
class DateEntry : public TextField {
 public:
  DateEntry(fiscalon::Form& form, std::string name, const FieldDesign& design, DateRules rules, FieldEvents own = {});

  /// Whether the field passes the rows, which rewrite it, show boxes and move the focus on their way.
  bool Passes(DateRows rows);

 private:
  static FieldEvents EventsOf(DateEntry* self, const DateRules& rules);
  void KeyPressed(int& character);
  void Left();

  DateRules rules_;
};

}  // namespace fiscalon
