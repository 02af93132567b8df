#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "core/records/pc4_records.h"
#include "core/records/record_composer.h"

namespace fiscalon {

/// A payment as a bulk import hands it over.
struct BulkPayment {
  std::string screen = "03";
  std::string biller = "";
  /// Cents.
  std::string amount = "12345";
  std::vector<std::string> records = {};

  std::vector<std::string_view> Views() const { return {records.begin(), records.end()}; }

  std::shared_ptr<PC4s> Collection() const {
    auto collection = std::make_shared<PC4s>();
    for (const std::string& record : records) collection->Add("", "", record);
    return collection;
  }
};

using Fields = std::vector<FreeFormatSlot>;

/// Source deductions of 123.45 dollars for a period that ended on May 31, 2026.
inline Fields GoodAgencyFields() {
  return {{"01", "000000000000012345"}, {"02", "20260531"}, {"03", "000000000000500000"}, {"04", "000000000000000012"}};
}

inline BulkPayment AgencyPayment(const Fields& fields) {
  BulkPayment payment;
  payment.records.push_back(ComposeGovernmentFormat("0001", {}));
  for (std::string& record : ComposeFreeFormats("0001", fields)) payment.records.push_back(std::move(record));
  return payment;
}

/// Revenue Quebec source deductions of 1.00 + 2.00 + 3.00 + 4.00 + 113.45 dollars.
inline Fields GoodQuebecFields() {
  return {{"01", "000000000000000100"}, {"02", "000000000000000200"}, {"03", "000000000000000300"},
          {"04", "000000000000000400"}, {"05", "000000000000000003"}, {"06", "000000000000011345"},
          {"07", "000000000000000000"}, {"08", "000000000000000000"}};
}

inline BulkPayment QuebecPayment(const Fields& fields, const std::vector<std::string>& periods = {"202606"}) {
  BulkPayment payment{.screen = "20", .biller = "001052"};
  for (const std::string& period : periods)
    payment.records.push_back(ComposeGovernmentFormat("0001", {.periodDueDate = period}));
  for (std::string& record : ComposeFreeFormats("0001", fields)) payment.records.push_back(std::move(record));
  return payment;
}

/// The fields with the value of one number replaced, or that number added.
inline Fields With(Fields fields, const std::string& number, const std::string& value) {
  for (FreeFormatSlot& field : fields) {
    if (field.fieldNum == number) {
      field.fieldValue = value;
      return fields;
    }
  }
  fields.push_back({number, value});
  return fields;
}

}  // namespace fiscalon
