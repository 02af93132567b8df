#include "core/records/pc4_records.h"

#include <utility>

namespace fiscalon {

PC4& PC4s::Add(std::string theDate, std::string amount, std::string description, std::string_view key) {
  // Nobody else makes a record, and this way it lies in one piece with its count.
  struct Made : PC4 {};
  const auto record = std::make_shared<Made>();
  record->TheDate(std::move(theDate));
  record->Amount(std::move(amount));
  record->Description(std::move(description));
  return KeyedCollection::Add(record, key);
}

clsPC4GovFormat& clsPC4GovFormats::Add(std::string periodStartDate, std::string periodEndDate,
                                       std::string periodDueDate, std::string filler1, std::string contactName,
                                       std::string contactTitle, std::string filler2, std::string_view key) {
  auto fields = std::make_shared<clsPC4GovFormat>();
  fields->PeriodStartDate(std::move(periodStartDate));
  fields->PeriodEndDate(std::move(periodEndDate));
  fields->PeriodDueDate(std::move(periodDueDate));
  fields->Filler1(std::move(filler1));
  fields->ContactName(std::move(contactName));
  fields->ContactTitle(std::move(contactTitle));
  fields->Filler2(std::move(filler2));
  return KeyedCollection::Add(std::move(fields), key);
}

clsPC4FreeFormat& clsPC4FreeFormats::Add(std::string fieldNum, std::string fieldValue, std::string_view key) {
  auto field = std::make_shared<clsPC4FreeFormat>();
  field->FieldNum(std::move(fieldNum));
  field->FieldValue(std::move(fieldValue));
  return KeyedCollection::Add(std::move(field), key);
}

}  // namespace fiscalon
