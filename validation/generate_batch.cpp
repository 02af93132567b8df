#include "validation/generate_batch.h"

#include <algorithm>
#include <cstdio>
#include <span>

#include "core/records/record_composer.h"
#include "core/records/record_layout.h"
#include "core/values/calendar.h"
#include "core/values/format.h"
#include "validation/batch_report.h"
#include "validation/payment_rows.h"

namespace fiscalon {

namespace {

/// Numbers that are the same on every platform.
class Dice {
 public:
  explicit Dice(uint64_t seed) : state_(seed) {}

  uint64_t Roll() {
    uint64_t mixed = state_ += 0x9E3779B97F4A7C15u;
    mixed = (mixed ^ (mixed >> 30)) * 0xBF58476D1CE4E5B9u;
    mixed = (mixed ^ (mixed >> 27)) * 0x94D049BB133111EBu;
    return mixed ^ (mixed >> 31);
  }
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
  bool hasPeriod = true;
  std::vector<FreeFormatSlot> slots = {};
};

std::string Digits(uint64_t number) {
  constexpr size_t kWidth = FieldNamed(kFreeFormatLayout, "FieldValue").Width();
  std::string digits = std::to_string(number);
  return digits.insert(0, kWidth - std::min(kWidth, digits.size()), '0');
}

// Defects of one value. Each keeps the number at its start, so that totals stay right, but for a minus in front.
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

/// What is planted into a payment, and the reason that it must be given.
struct Defect {
  std::string_view name;
  /// Which field's value; 0 for the payment as a whole.
  int field;
  void (*spoilValue)(std::string& value);
  void (*spoilPayment)(Draft& payment);
  std::string_view reason;
};

void NoFields(Draft& payment) {
  payment.slots.clear();
}
void NoPeriod(Draft& payment) {
  payment.hasPeriod = false;
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

// clang-format off
constexpr Defect kAgencyDefects[] = {
    {"01 blank",         1, Blank,        nullptr, "Field 01 Amount of Payment cannot be blank"},
    {"01 short",         1, Short,        nullptr, "Field 01 Amount of Payment is invalid"},
    {"01 letter",        1, Letter,       nullptr, "Field 01 Amount of Payment is invalid"},
    {"01 negative",      1, MinusInFront, nullptr, "Field 01 Amount of Payment cannot be less than 0"},
    {"01 trailing sign", 1, MinusBehind,  nullptr, "Field 01 Amount of Payment is invalid"},
    {"01 one cent more", 1, OneMore,      nullptr, "Field 01 Amount of Payment is not equal to amount to be paid"},
    {"02 blank",         2, Blank,        nullptr, "Field 02 End of Remitting Period cannot be blank"},
    {"02 short",         2, [](std::string& value) { value.pop_back(); },           nullptr, "Field 02 End of Remitting Period is invalid"},
    {"02 month 13",      2, [](std::string& value) { value.replace(4, 2, "13"); },  nullptr, "Field 02 End of Remitting Period is invalid"},
    {"02 long ago",      2, [](std::string& value) { value.replace(0, 4, "1999"); }, nullptr, "Field 02 End of Remitting Period is invalid"},
    {"02 letters",       2, [](std::string& value) { value.replace(4, 2, "AB"); },  nullptr, "Error 13 - Type mismatch"},
    {"03 blank",         3, Blank,        nullptr, "Field 03 Gross Payroll in Remitting Period cannot be blank"},
    {"03 short",         3, Short,        nullptr, "Field 03 Gross Payroll in Remitting Period is invalid"},
    {"03 letter",        3, Letter,       nullptr, "Field 03 Gross Payroll in Remitting Period is invalid"},
    {"03 negative",      3, MinusInFront, nullptr, "Field 03 Gross Payroll in Remitting Period cannot be less than 0"},
    {"03 cents",         3, OneMore,      nullptr, "Field 03 Gross Payroll in Remitting Period cannot have decimal value or invalid"},
    {"03 too large",     3, [](std::string& value) { value = Digits(2'147'483'700); }, nullptr, "Error 6 - Overflow"},
    {"04 blank",         4, Blank,        nullptr, "Field 04 Number of Employees cannot be blank"},
    {"04 short",         4, Short,        nullptr, "Field 04 Number of Employees is invalid"},
    {"04 letter",        4, Letter,       nullptr, "Field 04 Number of Employees is invalid"},
    {"04 zero",          4, Zero,         nullptr, "Field 04 Number of Employees is invalid"},
    {"04 trailing sign", 4, MinusBehind,  nullptr, "Field 04 Number of Employees is invalid"},
    {"unused field",     0, nullptr, UnusedField, "Field 09 is not required"},
    {"no fields",        0, nullptr, NoFields,    "Record for required fields is missing"},
};

constexpr std::string_view kPeriodReason = "Remittance Period must be in the form YYYYMM and be within the last 4 months";

constexpr Defect kQuebecDefects[] = {
    {"01 short",         1, Short,        nullptr, "Field 01 Income tax withheld and compensation tax is invalid"},
    {"01 blank",         1, Blank,        nullptr, "Field 01 Income tax withheld and compensation tax cannot be blank, The Amount Payable must match the Amount to be paid"},
    {"01 negative",      1, MinusInFront, nullptr, "Field 01 Income tax withheld and compensation tax cannot be less than 0, The Amount Payable must match the Amount to be paid"},
    {"02 letter",        2, Letter,       nullptr, "Field 02 QPP contributions is invalid"},
    {"02 trailing sign", 2, MinusBehind,  nullptr, "Field 02 QPP contributions is invalid"},
    {"03 short",         3, Short,        nullptr, "Field 03 Contribution to the health services fund is invalid"},
    {"04 letter",        4, Letter,       nullptr, "Field 04 QPIP premiums is invalid"},
    {"05 blank",         5, Blank,        nullptr, "Field 05 Remittance Type cannot be blank"},
    {"05 zero",          5, Zero,         nullptr, "Field 05 Remittance Type is invalid"},
    {"05 seven",         5, [](std::string& value) { value = Digits(7); }, nullptr, "Field 05 Remittance Type is invalid"},
    {"06 trailing sign", 6, MinusBehind,  nullptr, "Field 06 CSST payments is invalid"},
    {"06 one cent more", 6, OneMore,      nullptr, "The Amount Payable must match the Amount to be paid"},
    {"07 used",          7, OneMore,      nullptr, "Field 07 is not required"},
    {"other amount",     0, nullptr, OtherAmount, "The Amount Payable must match the Amount to be paid"},
    {"old period",       0, nullptr, OldPeriod,   kPeriodReason},
    {"short period",     0, nullptr, ShortPeriod, kPeriodReason},
    {"no period",        0, nullptr, NoPeriod,    "Record for Remittance Period is missing"},
    {"no fields",        0, nullptr, NoFields,    "Records for other required fields are missing"},
};
// clang-format on

std::span<const Defect> Defects(std::string_view screen) {
  if (screen == "03")
    return kAgencyDefects;
  if (screen == "20")
    return kQuebecDefects;
  return {};
}

Draft GoodAgencyPayment(Dice& dice, const Date& today) {
  const uint64_t cents = 1 + dice.Below(100'000'000);
  const Date periodEnd = AddDays(DateFromParts(today.year, 1, 1), static_cast<int>(dice.Below(365)));
  Draft payment{.cents = cents};
  payment.slots = {{"01", Digits(cents)},
                   {"02", FormatDate(periodEnd, "YYYYMMDD")},
                   {"03", Digits(100 * (1 + dice.Below(20'000'000)))},
                   {"04", Digits(1 + dice.Below(5000))}};
  return payment;
}

Draft GoodQuebecPayment(Dice& dice, const Date& today) {
  const Date month = AddMonths(DateFromParts(today.year, today.month, 1), -static_cast<int>(dice.Below(5)));
  Draft payment{.biller = "001052", .period = FormatDate(month, "YYYYMM")};
  const auto amount = [&] {
    const uint64_t cents = 1 + dice.Below(10'000'000);
    payment.cents += cents;
    return Digits(cents);
  };
  for (const char* number : {"01", "02", "03", "04"}) payment.slots.push_back({number, amount()});
  payment.slots.push_back({"05", Digits(1 + dice.Below(6))});
  payment.slots.push_back({"06", amount()});
  payment.slots.push_back({"07", Digits(0)});
  payment.slots.push_back({"08", Digits(0)});
  return payment;
}

void Plant(const Defect& defect, Draft& payment) {
  if (defect.spoilPayment != nullptr)
    defect.spoilPayment(payment);
  else
    defect.spoilValue(payment.slots[static_cast<size_t>(defect.field) - 1].fieldValue);
}

void WriteRecords(std::ostream& records, const std::string& seq, const Draft& payment, std::string_view screen) {
  // A payment has at least one record, or it could not be told from its neighbours.
  const bool hasPeriodRecord = payment.hasPeriod && screen == "20";
  if (hasPeriodRecord || screen == "03")
    records << QuotedLine(ComposeGovernmentFormat(seq, {.periodDueDate = payment.period}));
  for (const std::string& record : ComposeFreeFormats(seq, payment.slots)) records << QuotedLine(record);
}

}  // namespace

std::vector<std::string_view> DefectsOf(std::string_view screen) {
  std::vector<std::string_view> names;
  for (const Defect& defect : Defects(screen)) names.push_back(defect.name);
  return names;
}

void GenerateBatch(const BatchPlan& plan, std::ostream& payments, std::ostream& records, std::ostream& planted) {
  constexpr uint64_t kSequences = 9999;
  const std::span<const Defect> defects = Defects(plan.screen);
  Dice dice(plan.seed);
  payments << kPaymentsHeader << '\n';
  planted << kPlantedHeader << '\n';
  for (uint64_t row = 1; row <= plan.payments; ++row) {
    const std::string seq = Digits((row - 1) % kSequences + 1).substr(14);
    Draft payment = plan.screen == "03" ? GoodAgencyPayment(dice, plan.today) : GoodQuebecPayment(dice, plan.today);
    if (dice.Chance(plan.badRate)) {
      const Defect& defect = defects[static_cast<size_t>(dice.Below(defects.size()))];
      Plant(defect, payment);
      planted << row << ',' << seq << ',' << defect.name << ',' << CsvField(defect.reason) << '\n';
    }
    WriteRecords(records, seq, payment, plan.screen);
    payments << seq << ',' << plan.screen << ',' << payment.biller << ',' << payment.cents << '\n';
  }
}

}  // namespace fiscalon
