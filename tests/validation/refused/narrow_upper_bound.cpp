// Does not compile: a quick test whose highest value has fewer characters than a value.

#include "validation/quick_tests.h"

constexpr fiscalon::QuickTest kShort = {"000000000000000000", "999", fiscalon::NumberOfAmount};
constexpr fiscalon::FieldTests kAmount = {kShort, {fiscalon::kDigits}};
