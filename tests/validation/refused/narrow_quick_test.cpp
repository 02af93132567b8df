// Does not compile: a quick test that tells fewer characters than a value has.

#include "validation/quick_tests.h"

constexpr fiscalon::QuickTest kShort = {"000", "999999999999999999", fiscalon::NumberOfAmount};
constexpr fiscalon::FieldTests kAmount = {kShort, {fiscalon::kDigits}};
