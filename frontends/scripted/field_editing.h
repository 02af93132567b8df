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

/// Replaces the selection by a text, cut so that the field's limit holds. A single-line field takes the text up to
/// its first line end.
EditedText InsertText(const TextField& field, std::string_view inserted);

/// What Backspace, Delete, Left, Right, Home or End do; any other key does nothing.
EditedText EditByKey(const TextField& field, int keyCode);

}  // namespace fiscalon
