// Screen "20": source deductions of Revenue Quebec.

#include "core/values/calendar.h"
#include "core/values/format.h"
#include "core/values/leading_number.h"
#include "validation/quick_tests.h"
#include "validation/rules_with.h"
#include "validation/trial_payments.h"

namespace fiscalon {

namespace {

bool IsRemittanceType(std::string_view value, const Expectation&) {
  const double type = LeadingNumber(value);
  return type >= 1 && type <= 6;
}

constexpr QuickTest kQuickRemittanceType = {"000000000000000001", "000000000000000006",
                                            [](const char*, const Expectation&) { return uint64_t{0}; }};

// clang-format off
constexpr FieldTest kRemittanceType = {IsRemittanceType, " is invalid", "not-a-type", "000000000000000007"};

constexpr FieldTests kAmount = {kQuickAmount,         {kFilled, kFullLength, kNumeric, kNotNegative, kDigits}};
constexpr FieldTests kType   = {kQuickRemittanceType, {kFilled, kFullLength, kNumeric, kRemittanceType, kDigits}};

constexpr FieldRule kFields[] = {
    {"01", kAmount, 0},
    {"02", kAmount, 1},
    {"03", kAmount, 2},
    {"04", kAmount, 3},
    {"05", kType,   kNoAddend, "001052"},
    {"06", kAmount, 4},
};

using namespace planted;

constexpr std::string_view kPeriodReason = "Remittance Period must be in the form YYYYMM and be within the last 4 months";

constexpr Defect kDefects[] = {
    {"01 short",         1, Short,        nullptr, "Field 01 Income tax withheld and compensation tax is invalid"},
    {"01 blank",         1, Blank,        nullptr, "Field 01 Income tax withheld and compensation tax cannot be blank, The Amount Payable must match the Amount to be paid"},
    {"01 negative",      1, MinusInFront, nullptr, "Field 01 Income tax withheld and compensation tax cannot be less than 0, The Amount Payable must match the Amount to be paid"},
    {"02 letter",        2, Letter,       nullptr, "Field 02 QPP contributions is invalid"},
    {"02 trailing sign", 2, MinusBehind,  nullptr, "Field 02 QPP contributions is invalid"},
    {"03 short",         3, Short,        nullptr, "Field 03 Contribution to the health services fund is invalid"},
    {"04 letter",        4, Letter,       nullptr, "Field 04 QPIP premiums is invalid"},
    {"05 blank",         5, Blank,        nullptr, "Field 05 Remittance Type cannot be blank"},
    {"05 zero",          5, Zero,         nullptr, "Field 05 Remittance Type is invalid"},
    {"05 seven",         5, [](std::string& value) { value = Digits(7); }, nullptr, "Field 05 Remittance Type is invalid"},
    {"06 trailing sign", 6, MinusBehind,  nullptr, "Field 06 CSST payments is invalid"},
    {"06 one cent more", 6, OneMore,      nullptr, "The Amount Payable must match the Amount to be paid"},
    {"07 used",          7, OneMore,      nullptr, "Field 07 is not required"},
    {"other amount",     0, nullptr, OtherAmount, "The Amount Payable must match the Amount to be paid"},
    {"old period",       0, nullptr, OldPeriod,   kPeriodReason},
    {"short period",     0, nullptr, ShortPeriod, kPeriodReason},
    {"no period",        0, nullptr, NoPeriod,    "Record for Remittance Period is missing"},
    {"no fields",        0, nullptr, NoFields,    "Records for other required fields are missing"},
};
// clang-format on

Draft GoodPayment(Dice& dice, const Date& today) {
  const Date month = AddMonths(DateFromParts(today.year, today.month, 1), -static_cast<int>(dice.Below(5)));
  Draft payment{.biller = "001052", .period = FormatDate(month, "YYYYMM")};
  const auto amount = [&] {
    const uint64_t cents = 1 + dice.Below(10'000'000);
    payment.cents += cents;
    return Digits(cents);
  };
  for (const char* number : {"01", "02", "03", "04"}) payment.slots.push_back({number, amount()});
  payment.slots.push_back({"05", Digits(1 + dice.Below(6))});
  payment.slots.push_back({"06", amount()});
  payment.slots.push_back({"07", Digits(0)});
  payment.slots.push_back({"08", Digits(0)});
  return payment;
}

constexpr TrialRecipe kTrial = {.goodPayment = GoodPayment, .defects = kDefects};

}  // namespace

constexpr RuleSet kQuebecRules = RulesWith<kFields, Periods::Tested, Total::EqualsPayment>(
    {.screenCode = "20",
     .routine = "ValidateQueRevSourceDeduction",
     .noFieldsMessage = "Records for other required fields are missing",
     .trial = &kTrial});

}  // namespace fiscalon
