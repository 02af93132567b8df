#pragma once

#include <memory>
#include <span>
#include <string_view>

namespace fiscalon {

class Levyra;
class Screen;

/// One property that a launch sets on a form. The ones that many forms receive stand in launch_properties.h.
struct LaunchProperty {
  std::string_view name = {};
  void (*set)(const Levyra& session, std::string_view code, Screen& screen) = nullptr;
};

/// One screen code, and how it is launched.
struct LaunchRow {
  std::string_view code = {};
  /// The launch routine, named in the source of its errors.
  std::string_view routine = {};
  std::string_view form = {};
  /// One line for people: what the screen collects.
  std::string_view collects = {};
  /// All that the form receives, in the order in which it is set.
  std::span<const LaunchProperty> properties = {};
  /// Makes the form's one instance. A reference, so that a row without a form does not compile.
  std::shared_ptr<Screen> (&make)();
  /// A routine of the form that runs after the last property is set, before the form is shown.
  void (*beforeShow)(Screen& screen) = nullptr;
};

/// All screen codes in order. Core does not know the screens: the table is theirs (screens/launch_table.cpp).
std::span<const LaunchRow> LaunchTable();

/// The row of a code, compared exactly; null for a code that is none.
const LaunchRow* FindLaunchRow(std::string_view code);

}  // namespace fiscalon
