// Does not compile: rules of a screen without a recipe for trial payments.

#include "validation/rules_with.h"

using namespace fiscalon;

constexpr FieldRule kFields[] = {{"01", {kQuickAmount, {kDigits}}}};
constexpr RuleSet kRules =
    RulesWith<kFields, Periods::Ignored, Total::Ignored>({.screenCode = "15", .noFieldsMessage = "No fields"});
