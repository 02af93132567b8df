// Does not compile: rules that leave out a number.

#include "validation/rules_with.h"
#include "validation/trial_payments.h"

using namespace fiscalon;

constexpr TrialRecipe kTrial = {};
constexpr FieldRule kFields[] = {{"01", {kQuickAmount, {kDigits}}}, {"03", {kQuickAmount, {kDigits}}}};
constexpr RuleSet kRules = RulesWith<kFields, Periods::Ignored, Total::Ignored>(
    {.screenCode = "15", .noFieldsMessage = "No fields", .trial = &kTrial});
