// Does not compile: rules of a screen without a recipe for trial payments.

#include "validation/quick_rules.h"

using namespace fiscalon;

constexpr FieldRule kFields[] = {{"01", {QuickAmount, {kDigits}}}};
constexpr RuleSet kRules =
    RulesWith<kFields, Periods::Ignored, Total::Ignored>({.screenCode = "15", .noFieldsMessage = "No fields"});
