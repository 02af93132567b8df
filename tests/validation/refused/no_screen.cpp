// Does not compile: rules of a screen whose code is too short.

#include "validation/rules_with.h"
#include "validation/trial_payments.h"

using namespace fiscalon;

constexpr TrialRecipe kTrial = {};
constexpr FieldRule kFields[] = {{"01", {kQuickAmount, {kDigits}}}};
constexpr RuleSet kRules = RulesWith<kFields, Periods::Ignored, Total::Ignored>(
    {.screenCode = "5", .noFieldsMessage = "No fields", .trial = &kTrial});
