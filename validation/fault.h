#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace fiscalon {

/// One reason against a payment, and where it lies. Texts are in Windows-1252.
struct Fault {
  /// Which of the payment's records, from 1; in a batch the line of the record file. What is said of the payment as a
  /// whole stands at its first record.
  uint64_t line = 1;
  /// The number of the field; empty where no numbered field is meant.
  std::string field = {};
  /// The field's name; empty for a number that the screen does not use, and where no field is meant.
  std::string_view name = {};
  /// What was found there, without the blanks behind it.
  std::string value = {};
  /// Which test it failed: a word that stays the same from version to version, such as "blank" or "error-13".
  std::string code = {};
  /// Its part of the reason: "Field 02 End of Remitting Period is invalid".
  std::string message = {};
};

}  // namespace fiscalon
