#pragma once

#include <string>
#include <string_view>

#include "core/forms/text_field.h"
#include "core/values/money.h"

/// What stands in an entry field, read with resume-next.
namespace fiscalon {

/// Replaces a field's text by its trimmed text and returns it.
const std::string& TrimText(TextField& field);

// The number at the start of a text, by `LeadingNumber`: 0 where it is beyond its type, since the statement that would
// keep it is skipped.
double NumberIn(std::string_view text);
Money AmountIn(std::string_view text);

}  // namespace fiscalon
