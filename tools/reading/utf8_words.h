#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "core/module_state.h"

namespace fiscalon {

/// A text of the catalogue as a desk says it, in UTF-8, in the language of the forms unless another is named. What its
/// places hold is UTF-8 too and stands as it is: names of files have letters that no form knows.
std::string Utf8Words(std::string_view text, const std::vector<std::string>& places = {},
                      const Language& language = TheModule().language);

}  // namespace fiscalon
