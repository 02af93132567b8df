#pragma once

#include <string>
#include <string_view>

#include "core/platform/date.h"
#include "core/values/money.h"

/// The rules of Revenue Quebec source deductions that screen "20" and the validator share.
namespace fiscalon {

enum class Batch { No, Yes };

/// A remittance period lies at most so many months before the current one.
inline constexpr int kRemittanceMonthsBack = 4;

/// Whether a period is YYYYMM, of the current month or one of the four before it. On False shows a critical
/// box or, in a batch, puts the sentence without its full stop into `message`. The biller code makes no
/// difference. A run-time error is reported by `ShowError`, silently in a batch, where `message` becomes its
/// `ErrorReason`; the result is then what it was so far. Logs its entry.
bool IsValidRemittancePeriodQueRevSrcDeduct(std::string_view period, std::string_view compCode, Batch batch,
                                            std::string& message);

/// The total of five amounts of dollars, each read by `LeadingNumber`, as text by "0.00". A run-time error
/// is reported by `ShowError`, silently in a batch, and leaves the total as it was. Logs its entry.
void RecalcFormQueRevSrcDeduct(std::string& total, std::string_view a, std::string_view b, std::string_view c,
                               std::string_view d, std::string_view e, Batch batch = Batch::No);

/// The test of the period alone, for a known day. Error 13 for a text of 6 characters or more whose year or
/// month is no number, 5 for a month beyond the year 9999.
bool IsRemittancePeriodInRange(std::string_view period, const Date& today);

/// What a period that is out of range is told, without the full stop that the box has.
inline constexpr std::string_view kRemittancePeriodMessage =
    "Remittance Period must be in the form YYYYMM and be within the last 4 months";

/// The total alone: the amounts added as 64-bit floats from left to right. Error 6 beyond `Money`.
Money TotalQueRevSrcDeduct(std::string_view a, std::string_view b, std::string_view c, std::string_view d,
                           std::string_view e);

}  // namespace fiscalon
