#pragma once

#include <string>
#include <string_view>

#include "core/forms/text_field.h"

namespace fiscalon {

/// A text and its selection after an edit.
struct EditedText {
  std::string text = {};
  Selection selection = {};
};

/// Replaces the selection by a text, cut so that the field's limit holds.
EditedText InsertText(const TextField& field, std::string_view inserted);

/// What Backspace, Delete, Left, Right, Home or End do; any other key does nothing. A line end is one character to
/// them, and a line's ends are where Home and End go.
EditedText EditByKey(const TextField& field, int keyCode);

}  // namespace fiscalon
