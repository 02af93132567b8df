// Does not compile: an addend that counts for one biller alone, so that the amount depends on who is paid.

#include "validation/rules_with.h"
#include "validation/trial_payments.h"

using namespace fiscalon;

constexpr TrialRecipe kTrial = {};
constexpr FieldRule kFields[] = {{"01", {kQuickAmount, {kDigits}}, 0, "001052"}};
constexpr RuleSet kRules = RulesWith<kFields, Periods::Ignored, Total::EqualsPayment>(
    {.screenCode = "15", .noFieldsMessage = "No fields", .trial = &kTrial});
