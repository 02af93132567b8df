#pragma once

#include <array>
#include <concepts>
#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <span>
#include <string_view>

#include "validation/expectation.h"
#include "validation/quick_digits.h"

/// The tests that the values of fields must pass, and those that rules share. What one rule set alone asks for stands
/// in its own source.
namespace fiscalon {

/// A test, with the predicate of its message. It is given a value with its blanks, allocates nothing while the value is
/// good, and raises the run-time errors of the conversions that it makes.
struct FieldTest {
  constexpr FieldTest() = default;
  /// The routine by reference: without one a test does not compile, nor without a code or a value that it refuses.
  consteval FieldTest(bool (&routine)(std::string_view, const Expectation&), std::string_view itsPredicate,
                      std::string_view itsCode, std::string_view refusedValue = {})
      : passes(routine), predicate(itsPredicate), code(itsCode), refused(refusedValue) {
    if (code.empty() || refused.empty())
      throw "a test has a routine, a code and a value that it refuses";
  }

  bool (*passes)(std::string_view value, const Expectation& expected) = nullptr;
  /// What is wrong, behind the field's label.
  std::string_view predicate = {};
  /// The same as a fault's code.
  std::string_view code = {};
  /// A value that it refuses: if there is one, a value that no other test of its fields has anything against.
  std::string_view refused = {};
};

/// A look at the 18 characters of a value, as quick as can be: whether each lies between those of two texts, and then
/// at the number that they write down.
struct QuickTest {
  std::string_view lowest = {};
  std::string_view highest = {};
  /// For a value that lies between those two. Gives its number, or any other but `kNoDigits`, where the value passes
  /// all tests of its field for sure.
  uint64_t (*number)(const char* value, const Expectation& expected) = nullptr;
  /// Whether a value passes by being the amount to be paid, so that it tells which one that must be.
  bool tellsPayment = false;

  /// The same for any value.
  uint64_t operator()(const char* value, const Expectation& expected) const {
    return HasShape(value) ? number(value, expected) : kNoDigits;
  }
  bool HasShape(const char* value) const { return lowest.empty() || AreBetween(value, lowest.data(), highest.data()); }
};

/// The tests of a field. What the quick test passes, every other one passes: change both.
class FieldTests {
 public:
  consteval FieldTests(const QuickTest& quickTest, std::initializer_list<FieldTest> tests) : quick_(quickTest) {
    if (!quick_.lowest.empty() && (quick_.lowest.size() != kValueWidth || quick_.highest.size() != kValueWidth))
      throw "a quick test tells all characters of a value";
    for (const FieldTest& test : tests) tests_[count_++] = test;
  }
  /// With a routine that looks at the characters too. By reference: a field without a quick test does not compile.
  consteval FieldTests(uint64_t (&quickTest)(const char*, const Expectation&), std::initializer_list<FieldTest> tests)
      : FieldTests(QuickTest{.number = quickTest}, tests) {}
  template <std::same_as<std::nullptr_t> None>
  consteval FieldTests(None /*quickTest*/, std::initializer_list<FieldTest> /*tests*/) {
    static_assert(!std::same_as<None, std::nullptr_t>, "a field has a quick test");
  }

  constexpr const QuickTest& Quick() const { return quick_; }
  /// From the top; the first that fails gives the field's only message.
  constexpr std::span<const FieldTest> InOrder() const { return {tests_.data(), count_}; }

 private:
  static constexpr size_t kMost = 8;

  QuickTest quick_ = {};
  std::array<FieldTest, kMost> tests_ = {};
  size_t count_ = 0;
};

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
bool IsBlankOrZero(std::string_view value, const Expectation&);

// clang-format off
inline constexpr FieldTest kFilled       {IsFilled,       " cannot be blank",                        "blank",          " "};
inline constexpr FieldTest kFullLength   {HasFullLength,  " is invalid",                             "short",          "00000000000012300"};
inline constexpr FieldTest kNumeric      {IsNumber,       " is invalid",                             "not-a-number",   "999999999999999900"};
inline constexpr FieldTest kNotNegative  {IsNotNegative,  " cannot be less than 0",                  "negative",       "-00000000000012300"};
inline constexpr FieldTest kDigits       {HoldsDigits,    " is invalid",                             "not-digits",     "00000000000000001-"};
inline constexpr FieldTest kPayment      {EqualsPayment,  " is not equal to amount to be paid",      "not-the-amount", "000000000000012346"};
inline constexpr FieldTest kDate         {IsDateInRange,  " is invalid",                             "not-a-date",     "20260229"};
inline constexpr FieldTest kWholeDollars {IsWholeDollars, " cannot have decimal value or invalid",   "has-cents",      "000000000000012345"};
inline constexpr FieldTest kAtLeastOne   {IsAtLeastOne,   " is invalid",                             "below-one",      "000000000000000000"};
/// For a number that the screen does not use: its label ends with a blank.
inline constexpr FieldTest kUnused       {IsBlankOrZero,  "is not required",                         "not-required",   "000000000000000001"};
// clang-format on

}  // namespace fiscalon
