#pragma once

#include <string>
#include <string_view>

namespace fiscalon {

/// Whether a field must be filled. It makes no difference to an e-mail address: an empty one passes.
enum class Required { No, Yes };

/// Whether the text is blank or an e-mail address, letters of either case. Otherwise `message` says what to
/// enter: a complete address, for a trimmed text of under 5 characters, or a valid one.
bool IsValidEmail(std::string_view text, std::string& message, Required required);

/// Whether the whole text is an address by
/// ^[a-z0-9!#$%&'*+/=?^_`{|}~-]+(?:\.[a-z0-9!#$%&'*+/=?^_`{|}~-]+)*@(?:[a-z0-9](?:[a-z0-9-]*[a-z0-9])?\.)+[a-z0-9](?:[a-z0-9-]*[a-z0-9])?$
/// without regard to case. Takes one look at each character, so that no text can hold a form up
/// (docs/decisions/0005-e-mail-by-a-hand-written-matcher.md).
bool IsEmailAddress(std::string_view text);

}  // namespace fiscalon
