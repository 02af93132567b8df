#pragma once

#include <span>
#include <string_view>

namespace fiscalon {

/// How the value of a field is to be read.
enum class FieldKind {
  Text,
  /// YYYYMMDD, YYYYMM and YYYY.
  Date,
  Month,
  Year,
  /// A whole number that is no amount: a count, or a code.
  Count,
  /// Cents.
  Amount,
  /// Cents too, of an amount that has none: hundreds.
  WholeDollars,
};

/// What a two-digit field number of a screen's F records stands for, and what its value is.
struct FieldName {
  std::string_view number = {};
  std::string_view name = {};
  FieldKind kind = FieldKind::Text;
};

/// The fields that the F records of one screen can hold, by number.
struct ScreenFields {
  std::string_view code = {};
  std::span<const FieldName> names = {};
};

/// The fields of all screens that write F records. Core does not know the screens: the table is theirs
/// (screens/field_names.cpp).
std::span<const ScreenFields> FieldTable();

/// The fields of one screen; empty for a screen that writes no F record and for a code that is none.
std::span<const FieldName> FieldNamesOf(std::string_view screenCode);
/// One of them; null for a number that the screen does not use.
const FieldName* FindField(std::string_view screenCode, std::string_view number);
/// Its name; empty for a number that the screen does not use.
std::string_view FieldNameOf(std::string_view screenCode, std::string_view number);

}  // namespace fiscalon
