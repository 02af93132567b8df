// Does not compile: a test without a value that it refuses.

#include "validation/field_tests.h"
#include "validation/quick_tests.h"

constexpr fiscalon::FieldTest kEven = {fiscalon::IsFilled, " is invalid", "odd"};
constexpr fiscalon::FieldTests kAmount = {fiscalon::kQuickAmount, {kEven}};
