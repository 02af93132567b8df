// Screen "03": source deductions of the Canada Revenue Agency.

#include "core/values/calendar.h"
#include "core/values/format.h"
#include "validation/quick_tests.h"
#include "validation/rules_with.h"
#include "validation/trial_payments.h"

namespace fiscalon {

namespace {

// clang-format off
constexpr FieldTests kAmountOfPayment = {kQuickPayment,      {kFilled, kFullLength, kNumeric, kNotNegative, kDigits, kPayment}};
constexpr FieldTests kPeriodEnd       = {kQuickDate,         {kFilled, kDate}};
constexpr FieldTests kGrossPayroll    = {kQuickWholeDollars, {kFilled, kFullLength, kNumeric, kNotNegative, kWholeDollars}};
constexpr FieldTests kEmployees       = {kQuickCount,        {kFilled, kFullLength, kNumeric, kAtLeastOne, kDigits}};

constexpr FieldRule kFields[] = {
    {"01", kAmountOfPayment},
    {"02", kPeriodEnd},
    {"03", kGrossPayroll},
    {"04", kEmployees},
};

using namespace planted;

constexpr Defect kDefects[] = {
    {"01 blank",         1, Blank,        nullptr, "Field 01 Amount of Payment cannot be blank"},
    {"01 short",         1, Short,        nullptr, "Field 01 Amount of Payment is invalid"},
    {"01 letter",        1, Letter,       nullptr, "Field 01 Amount of Payment is invalid"},
    {"01 negative",      1, MinusInFront, nullptr, "Field 01 Amount of Payment cannot be less than 0"},
    {"01 trailing sign", 1, MinusBehind,  nullptr, "Field 01 Amount of Payment is invalid"},
    {"01 one cent more", 1, OneMore,      nullptr, "Field 01 Amount of Payment is not equal to amount to be paid"},
    {"02 blank",         2, Blank,        nullptr, "Field 02 End of Remitting Period cannot be blank"},
    {"02 short",         2, [](std::string& value) { value.pop_back(); },           nullptr, "Field 02 End of Remitting Period is invalid"},
    {"02 month 13",      2, [](std::string& value) { value.replace(4, 2, "13"); },  nullptr, "Field 02 End of Remitting Period is invalid"},
    {"02 long ago",      2, [](std::string& value) { value.replace(0, 4, "1999"); }, nullptr, "Field 02 End of Remitting Period is invalid"},
    {"02 letters",       2, [](std::string& value) { value.replace(4, 2, "AB"); },  nullptr, "Error 13 - Type mismatch"},
    {"03 blank",         3, Blank,        nullptr, "Field 03 Gross Payroll in Remitting Period cannot be blank"},
    {"03 short",         3, Short,        nullptr, "Field 03 Gross Payroll in Remitting Period is invalid"},
    {"03 letter",        3, Letter,       nullptr, "Field 03 Gross Payroll in Remitting Period is invalid"},
    {"03 negative",      3, MinusInFront, nullptr, "Field 03 Gross Payroll in Remitting Period cannot be less than 0"},
    {"03 cents",         3, OneMore,      nullptr, "Field 03 Gross Payroll in Remitting Period cannot have decimal value or invalid"},
    {"03 too large",     3, [](std::string& value) { value = Digits(2'147'483'700); }, nullptr, "Error 6 - Overflow"},
    {"04 blank",         4, Blank,        nullptr, "Field 04 Number of Employees cannot be blank"},
    {"04 short",         4, Short,        nullptr, "Field 04 Number of Employees is invalid"},
    {"04 letter",        4, Letter,       nullptr, "Field 04 Number of Employees is invalid"},
    {"04 zero",          4, Zero,         nullptr, "Field 04 Number of Employees is invalid"},
    {"04 trailing sign", 4, MinusBehind,  nullptr, "Field 04 Number of Employees is invalid"},
    {"unused field",     0, nullptr, UnusedField, "Field 09 is not required"},
    {"no fields",        0, nullptr, NoFields,    "Record for required fields is missing"},
};
// clang-format on

Draft GoodPayment(Dice& dice, const Date& today) {
  const uint64_t cents = 1 + dice.Below(100'000'000);
  const Date periodEnd = AddDays(DateFromParts(today.year, 1, 1), static_cast<int>(dice.Below(365)));
  Draft payment{.cents = cents};
  payment.slots = {{"01", Digits(cents)},
                   {"02", FormatDate(periodEnd, "YYYYMMDD")},
                   {"03", Digits(100 * (1 + dice.Below(20'000'000)))},
                   {"04", Digits(1 + dice.Below(5000))}};
  return payment;
}

constexpr TrialRecipe kTrial = {.goodPayment = GoodPayment, .defects = kDefects};

}  // namespace

constexpr RuleSet kAgencyRules =
    RulesWith<kFields, Periods::Ignored, Total::Ignored>({.screenCode = "03",
                                                          .routine = "ValidateCRASourceDeduction",
                                                          .noFieldsMessage = "Record for required fields is missing",
                                                          .trial = &kTrial});

}  // namespace fiscalon
