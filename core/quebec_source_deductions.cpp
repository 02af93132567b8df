#include "core/quebec_source_deductions.h"

#include "core/logging.h"
#include "core/messages.h"
#include "core/platform/runtime_error.h"
#include "core/user_locale.h"
#include "core/value_routines.h"
#include "core/values/calendar.h"
#include "core/values/leading_number.h"

namespace fiscalon {

namespace {

void Report(const RuntimeError& error, std::string_view procedure, Batch batch) {
  ShowError(error.Number(), error.Description(), procedure, batch == Batch::Yes ? Silent::Yes : Silent::No);
}

}  // namespace

bool IsRemittancePeriodInRange(std::string_view period, const Date& today) {
  if (period.size() < 6)
    return false;
  const Date date = DateFromTexts(period.substr(0, 4), period.substr(4, 2));
  if (FormatDate(date, "YYYYMMDD") != std::string(period) + "01")
    return false;
  const Date thisMonth = DateFromParts(today.year, today.month, 1);
  return date >= AddMonths(thisMonth, -kRemittanceMonthsBack) && date < AddMonths(thisMonth, 1);
}

bool IsValidRemittancePeriodQueRevSrcDeduct(std::string_view period, [[maybe_unused]] std::string_view compCode,
                                            Batch batch, std::string& message) {
  bool valid = true;
  try {
    WritePlayByPlay("modLevyra - IsValidRemittancePeriodQueRevSrcDeduct");
    valid = IsRemittancePeriodInRange(period, Today());
    if (!valid && batch == Batch::Yes)
      message = kRemittancePeriodMessage;
    else if (!valid)
      ShowMessage(Filled("{1}.", kRemittancePeriodMessage), MessageStyle::Critical);
  } catch (const RuntimeError& error) {
    Report(error, "modLevyra.IsValidRemittancePeriodQueRevSrcDeduct", batch);
    if (batch == Batch::Yes)
      message = ErrorReason(error);
  }
  return valid;
}

Money TotalQueRevSrcDeduct(std::string_view a, std::string_view b, std::string_view c, std::string_view d,
                           std::string_view e) {
  return Money::FromDouble(LeadingNumber(a) + LeadingNumber(b) + LeadingNumber(c) + LeadingNumber(d) +
                           LeadingNumber(e));
}

void RecalcFormQueRevSrcDeduct(std::string& total, std::string_view a, std::string_view b, std::string_view c,
                               std::string_view d, std::string_view e, Batch batch) {
  try {
    WritePlayByPlay("modLevyra - RecalcFormQueRevSrcDeduct");
    total = Format(TotalQueRevSrcDeduct(a, b, c, d, e), "0.00");
  } catch (const RuntimeError& error) {
    Report(error, "modLevyra.RecalcFormQueRevSrcDeduct", batch);
  }
}

}  // namespace fiscalon
