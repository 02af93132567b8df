// Does not compile: rules in which both a field and the total tell the amount.

#include "validation/rules_with.h"
#include "validation/trial_payments.h"

using namespace fiscalon;

constexpr TrialRecipe kTrial = {};
constexpr FieldRule kFields[] = {{"01", {kQuickPayment, {kDigits}}, 0}};
constexpr RuleSet kRules = RulesWith<kFields, Periods::Ignored, Total::EqualsPayment>(
    {.screenCode = "15", .noFieldsMessage = "No fields", .trial = &kTrial});
