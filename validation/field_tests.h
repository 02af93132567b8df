#pragma once

#include <string_view>

#include "validation/expectation.h"

/// The tests that a field's value must pass, each with the predicate of its message. A value is given with
/// its blanks. A test allocates nothing while the value is good, and raises the run-time errors of the
/// conversions that it makes.
namespace fiscalon {

bool IsFilled(std::string_view value, const Expectation&);
bool HasFullLength(std::string_view value, const Expectation&);
bool IsNumber(std::string_view value, const Expectation&);
bool IsNotNegative(std::string_view value, const Expectation&);
bool HoldsDigits(std::string_view value, const Expectation&);
bool EqualsPayment(std::string_view value, const Expectation& expected);
bool IsDateInRange(std::string_view value, const Expectation& expected);
/// Error 6 for cents above 2,147,483,647.
bool IsWholeDollars(std::string_view value, const Expectation&);
bool IsAtLeastOne(std::string_view value, const Expectation&);
bool IsRemittanceType(std::string_view value, const Expectation&);
bool IsBlankOrZero(std::string_view value, const Expectation&);

struct FieldTest {
  bool (*passes)(std::string_view value, const Expectation& expected) = nullptr;
  /// What is wrong, behind the field's label.
  std::string_view predicate = {};
  /// The same as a fault's code.
  std::string_view code = {};
};

inline constexpr FieldTest kFilled{IsFilled, " cannot be blank", "blank"};
inline constexpr FieldTest kFullLength{HasFullLength, " is invalid", "short"};
inline constexpr FieldTest kNumeric{IsNumber, " is invalid", "not-a-number"};
inline constexpr FieldTest kNotNegative{IsNotNegative, " cannot be less than 0", "negative"};
inline constexpr FieldTest kDigits{HoldsDigits, " is invalid", "not-digits"};
inline constexpr FieldTest kPayment{EqualsPayment, " is not equal to amount to be paid", "not-the-amount"};
inline constexpr FieldTest kDate{IsDateInRange, " is invalid", "not-a-date"};
inline constexpr FieldTest kWholeDollars{IsWholeDollars, " cannot have decimal value or invalid", "has-cents"};
inline constexpr FieldTest kAtLeastOne{IsAtLeastOne, " is invalid", "below-one"};
inline constexpr FieldTest kRemittanceType{IsRemittanceType, " is invalid", "not-a-type"};
/// For a number that the screen does not use: its label ends with a blank.
inline constexpr FieldTest kUnused{IsBlankOrZero, "is not required", "not-required"};

}  // namespace fiscalon
