#pragma once

#include <string>

namespace fiscalon {

/// What a user sees of a control, read off what a front end shows and not off the form behind it. Texts are in the code
/// page.
struct ShownControl {
  /// A field's text, a button's or label's caption as designed, a list's selected row.
  std::string text = {};
  /// The part of a field's text that is selected.
  std::string selection = {};
  /// The rows of a list.
  int items = 0;
  bool checked = false;  ///< a tick, or the option that is on
  bool locked = false;   ///< a field that the user can't change
  bool enabled = true;   ///< takes input
  bool visible = true;   ///< is there at all
};

}  // namespace fiscalon
