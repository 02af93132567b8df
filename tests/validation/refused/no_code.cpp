// Does not compile: a test whose faults have no code.

#include "validation/field_tests.h"

constexpr fiscalon::FieldTest kEven = {fiscalon::IsFilled, " is invalid", "", "000000000000000001"};
