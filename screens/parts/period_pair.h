#pragma once

#include <optional>
#include <string>

#include "core/forms/label.h"
#include "core/forms/layout.h"
#include "core/platform/date.h"
#include "screens/parts/asked.h"
#include "screens/parts/digits_entry.h"
#include "screens/parts/validation_guard.h"

namespace fiscalon {

/// How far ahead of today a period may end.
enum class PeriodLimit { None, OneYear, OneYearLessADay };

struct PeriodDesign {
  Wording caption = {};
  /// Of the first field; the second one follows.
  int tabIndex = 0;
  /// Asked at each check.
  Asked<PeriodLimit> limit = {};
  /// Where the focus goes from a full second field.
  Asked<Control*> next = {};
  /// What messages call it, on a form with periods of two taxes.
  Wording name = "Reporting Period";
  std::string fromCaptionName = "Label6";
  std::string from = "txtPeriodFrom";
  std::string toCaptionName = "Label7";
  std::string to = "txtPeriodTo";
  /// Labels that say YYYYMMDD behind the fields; without a name there is none.
  std::string fromHint = "lblPeriodFromFormat";
  std::string toHint = "lblPeriodToFormat";
};

/// The two ends of a reporting period, checked when they are left: dates by the calendar, the first from 2 July 1992 to
/// yesterday, the second up to a limit, and in order where the other one holds eight characters.
class PeriodPair {
 public:
  PeriodPair(Form& form, ValidationGuard& guard, const PeriodDesign& design);

  /// Both fields in one row, with their captions and hints.
  fiscalon::Row Row();

  Label FromCaption;
  DigitsEntry From;
  std::optional<Label> FromHint;
  Label ToCaption;
  DigitsEntry To;
  std::optional<Label> ToHint;

 private:
  // With resume-next: a date that can't be made is none. They show their own messages.
  bool CheckPeriodFrom();
  bool CheckPeriodTo();

  ValidationGuard& guard_;
  Wording name_;
  Asked<PeriodLimit> limit_;
};

}  // namespace fiscalon
