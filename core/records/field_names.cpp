#include "core/records/field_names.h"

namespace fiscalon {

std::span<const FieldName> FieldNamesOf(std::string_view screenCode) {
  for (const ScreenFields& screen : FieldTable())
    if (screen.code == screenCode)
      return screen.names;
  return {};
}

const FieldName* FindField(std::string_view screenCode, std::string_view number) {
  for (const FieldName& field : FieldNamesOf(screenCode))
    if (field.number == number)
      return &field;
  return nullptr;
}

std::string_view FieldNameOf(std::string_view screenCode, std::string_view number) {
  const FieldName* field = FindField(screenCode, number);
  return field == nullptr ? std::string_view() : field->name;
}

}  // namespace fiscalon
