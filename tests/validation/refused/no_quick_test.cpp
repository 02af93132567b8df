// Does not compile: a field whose tests have no quick test beside them.

#include "validation/field_tests.h"

constexpr fiscalon::FieldTests kAmount = {nullptr, {fiscalon::kFilled, fiscalon::kDigits}};
