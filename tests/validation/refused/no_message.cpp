// Does not compile: rules without a message for a payment that has no fields.

#include "validation/rules_with.h"
#include "validation/trial_payments.h"

using namespace fiscalon;

constexpr TrialRecipe kTrial = {};
constexpr FieldRule kFields[] = {{"01", {kQuickAmount, {kDigits}}}};
constexpr RuleSet kRules = RulesWith<kFields, Periods::Ignored, Total::Ignored>({.screenCode = "15", .trial = &kTrial});
