#include "validation/trial_payments.h"

#include "core/records/field_values.h"

namespace fiscalon {

uint64_t Dice::Roll() {
  uint64_t mixed = state_ += 0x9E3779B97F4A7C15u;
  mixed = (mixed ^ (mixed >> 30)) * 0xBF58476D1CE4E5B9u;
  mixed = (mixed ^ (mixed >> 27)) * 0x94D049BB133111EBu;
  return mixed ^ (mixed >> 31);
}

void Defect::Plant(Draft& payment) const {
  if (spoilPayment != nullptr)
    spoilPayment(payment);
  else
    spoilValue(payment.slots[static_cast<size_t>(field) - 1].fieldValue);
}

std::string Digits(uint64_t number) {
  std::string digits = std::to_string(number);
  return digits.insert(0, kValueWidth - std::min(kValueWidth, digits.size()), '0');
}

namespace planted {

void Blank(std::string& value) {
  value.clear();
}
void Short(std::string& value) {
  value.erase(0, 1);
}
void Letter(std::string& value) {
  value = value.substr(1) + "X";
}
void MinusInFront(std::string& value) {
  value.front() = '-';
}
void MinusBehind(std::string& value) {
  value = value.substr(1) + "-";
}
void OneMore(std::string& value) {
  value = Digits(std::stoull(value) + 1);
}
void Zero(std::string& value) {
  value = Digits(0);
}

void NoFields(Draft& payment) {
  payment.slots.clear();
}
void NoPeriod(Draft& payment) {
  payment.hasPeriodRecord = false;
}
void UnusedField(Draft& payment) {
  payment.slots.push_back({"09", "1"});
}
void OldPeriod(Draft& payment) {
  payment.period = "199001";
}
void ShortPeriod(Draft& payment) {
  payment.period.pop_back();
}
void OtherAmount(Draft& payment) {
  payment.cents += 1;
}

}  // namespace planted

}  // namespace fiscalon
