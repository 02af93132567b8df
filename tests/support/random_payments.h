#pragma once

#include <cstdint>
#include <random>
#include <string>

#include "tests/support/bulk_payment.h"

namespace fiscalon {

/// Payments as they should be, and spoilt in every way that a field, a record or an amount can be. Made for
/// June 15, 2026.
class RandomPayments {
 public:
  explicit RandomPayments(uint64_t seed) : random_(seed) {}

  BulkPayment Next() {
    BulkPayment payment = Below(2) == 0 ? AgencyPayment(AgencyFields()) : QuebecPayment(QuebecFields(), Periods());
    payment.amount = std::to_string(total_);
    if (payment.screen == "20")
      payment.biller = Pick({"001052", "001051", ""});
    if (Below(4) != 0) {
      for (uint64_t spoilt = 1 + Below(3); spoilt > 0; --spoilt) Spoil(payment);
    }
    return payment;
  }

 private:
  uint64_t Below(uint64_t bound) { return random_() % bound; }
  std::string Pick(std::initializer_list<const char*> texts) { return texts.begin()[Below(texts.size())]; }

  static std::string Digits(uint64_t number) {
    const std::string digits = std::to_string(number);
    return std::string(18 - digits.size(), '0') + digits;
  }

  /// Mostly of the usual size, sometimes near a bound.
  uint64_t Amount() {
    constexpr uint64_t kBounds[] = {0, 100, 999'999'999'999, 1'000'000'000'000, 2'147'483'600, 922'337'203'685'477};
    return Below(10) == 0 ? kBounds[Below(std::size(kBounds))] + Below(3) : Below(100'000'000);
  }

  Fields AgencyFields() {
    total_ = Amount();
    return {{"01", Digits(total_)},
            {"02", Pick({"20260531", "20260228", "20240229", "20281231", "20240101", "20260430"})},
            {"03", Digits(100 * Below(20'000'000))},
            {"04", Digits(1 + Below(1000))}};
  }

  Fields QuebecFields() {
    total_ = 0;
    Fields fields;
    for (const char* number : {"01", "02", "03", "04", "05", "06"}) {
      const bool isType = std::string(number) == "05";
      const uint64_t value = isType ? 1 + Below(6) : Amount();
      total_ += isType ? 0 : value;
      fields.push_back({number, Digits(value)});
    }
    fields.push_back({"07", Digits(0)});
    fields.push_back({"08", Below(2) == 0 ? "" : Digits(0)});
    return fields;
  }

  std::vector<std::string> Periods() {
    std::vector<std::string> periods{Pick({"202606", "202605", "202604", "202603", "202602"})};
    if (Below(10) == 0)
      periods.push_back(Pick({"202606", "202601", "202607", "2026AB", "202613", "999999", ""}));
    return periods;
  }

  std::string Value() {
    switch (Below(4)) {
      case 0:
        return Pick({"",
                     "0",
                     "-0",
                     "1",
                     "12345",
                     "000000000000000000",
                     "-00000000000000001",
                     "00000000000000001-",
                     "+00000000000000001",
                     "000000000000000.01",
                     "00000000000000,000",
                     "$00000000000000001",
                     "999999999999999999",
                     "922337203685477.58",
                     "922337203685477.60",
                     "000922337203685477",
                     "000922337203685478",
                     "1e9999999999999999",
                     "1e0000000000000003",
                     "2026AB31",
                     "20260231",
                     "20231231",
                     "2026053",
                     "202605311",
                     "          00000001",
                     "(0000000000000001)"});
      case 1:
        return Digits(Below(1'000'000'000));
      default: {
        std::string value(Below(19), ' ');
        constexpr std::string_view kLetters = "0123456789000  .-,$eX\t\xA0";
        for (char& c : value) c = kLetters[Below(kLetters.size())];
        return value;
      }
    }
  }

  void Spoil(BulkPayment& payment) {
    if (payment.records.empty())
      return;
    std::string& record = payment.records[Below(payment.records.size())];
    switch (Below(12)) {
      case 0:
        payment.amount = std::to_string(Below(1'000'000));
        break;
      case 1:
        record = record.substr(0, Below(record.size() + 1));
        break;
      case 2:
        payment.records.erase(payment.records.begin() + static_cast<std::ptrdiff_t>(Below(payment.records.size())));
        break;
      case 3:
        payment.records.push_back(record);
        break;
      case 4:
        if (record.size() > 7)
          record[7] = Pick({"T", "F", "P", "x"})[0];
        break;
      case 5:
        payment.screen = Pick({"03", "20", "04", ""});
        break;
      case 6:
      case 7:
        if (!record.empty())
          record[Below(record.size())] = static_cast<char>(Below(256));
        break;
      default:
        SpoilSlot(record);
    }
  }

  void SpoilSlot(std::string& record) {
    const size_t slot = 8 + 20 * Below(4);
    if (record.size() < 88)
      return;
    if (Below(5) == 0)
      record.replace(slot, 2, Pick({"01", "02", "03", "04", "05", "06", "07", "09", "00", "  ", "1 ", "0\xE9"}));
    std::string value = Value();
    record.replace(slot + 2, 18, value.append(18 - value.size(), ' '));
  }

  std::mt19937_64 random_;
  uint64_t total_ = 0;
};

}  // namespace fiscalon
