#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "core/platform/date.h"
#include "core/records/record_composer.h"

/// How payments for trials are made. The recipe for those of a screen stands beside the screen's rules.
namespace fiscalon {

/// Numbers that are the same on every platform.
class Dice {
 public:
  explicit Dice(uint64_t seed) : state_(seed) {}

  uint64_t Roll();
  /// From 0 to below the bound.
  uint64_t Below(uint64_t bound) { return Roll() % bound; }
  bool Chance(double rate) { return static_cast<double>(Roll() >> 11) < rate * 9007199254740992.0; }

 private:
  uint64_t state_;
};

/// A payment while it is made. Slot i holds field i + 1.
struct Draft {
  std::string biller = {};
  uint64_t cents = 0;
  std::string period = {};
  /// Whether it has a T record; the period stands there. A payment has at least one record, or it could not be told
  /// from its neighbours.
  bool hasPeriodRecord = true;
  std::vector<FreeFormatSlot> slots = {};
};

/// What is planted into a payment, and the reason that it must be given.
struct Defect {
  std::string_view name = {};
  /// Which field's value; 0 for the payment as a whole.
  int field = 0;
  void (*spoilValue)(std::string& value) = nullptr;
  void (*spoilPayment)(Draft& payment) = nullptr;
  /// The whole of it.
  std::string_view reason = {};

  void Plant(Draft& payment) const;
};

struct TrialRecipe {
  /// A payment that is good as of that day.
  Draft (*goodPayment)(Dice& dice, const Date& today) = nullptr;
  std::span<const Defect> defects = {};
};

/// A number as the value of a field.
std::string Digits(uint64_t number);

namespace planted {

// Defects of one value. Each keeps the number at its start, so that totals stay right, but for a minus in front.
void Blank(std::string& value);
void Short(std::string& value);
void Letter(std::string& value);
void MinusInFront(std::string& value);
void MinusBehind(std::string& value);
void OneMore(std::string& value);
void Zero(std::string& value);

// Defects of a payment.
void NoFields(Draft& payment);
void NoPeriod(Draft& payment);
void UnusedField(Draft& payment);
void OldPeriod(Draft& payment);
void ShortPeriod(Draft& payment);
void OtherAmount(Draft& payment);

}  // namespace planted

}  // namespace fiscalon
