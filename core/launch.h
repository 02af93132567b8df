#pragma once

#include <memory>
#include <span>
#include <string_view>

namespace fiscalon {

class Levyra;
class Screen;

/// The properties that every launch sets on a form, in the order in which it sets them.
enum class ContractProperty {
  CompName,
  PaidAmount,
  PaidDate,
  EnterName,
  EnterTitle,
  GovFilename,
  SeqNumber,
  APHoldFlg,
  WriteFile
};

/// What a form receives beside the contract properties.
struct OwnProperty {
  /// The contract property behind which it is set.
  ContractProperty after = ContractProperty::WriteFile;
  void (*set)(const Levyra& session, std::string_view code, Screen& screen) = nullptr;
};

/// What a two-digit field number of the screen's F records stands for.
struct FieldName {
  std::string_view number = {};
  std::string_view name = {};
};

/// One screen code: how it is launched, and what its records hold.
struct LaunchRow {
  std::string_view code = {};
  /// The launch routine, named in the source of its errors.
  std::string_view routine = {};
  std::string_view form = {};
  /// One line for people: what the screen collects.
  std::string_view collects = {};
  std::span<const OwnProperty> ownProperties = {};
  /// Makes the form's one instance. Null while the form does not exist.
  std::shared_ptr<Screen> (*make)() = nullptr;
  /// A routine of the form that runs after the last property is set, before the form is shown.
  void (*beforeShow)(Screen& screen) = nullptr;
  std::span<const FieldName> fieldNames = {};
};

/// All screen codes in order. Core does not know the screens: the table is theirs (screens/launch_table.cpp).
std::span<const LaunchRow> LaunchTable();

/// The row of a code, compared exactly; null for a code that is none.
const LaunchRow* FindLaunchRow(std::string_view code);

}  // namespace fiscalon
