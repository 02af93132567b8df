#pragma once

#include <span>
#include <string>

#include "frontends/played/driven_toolkit.h"

namespace fiscalon {

/// Plays scenario files, which are written in English, through a front end in another language: what they expect of
/// forms and boxes is put into the words of the catalogue, and all else must be as it was, the focus and the records
/// among it. Fails too where a form shows a text without words, or one that is neither of the catalogue nor of the
/// host's and the user's own. The arguments are the language and the files. "long" is made up: each text twice, so that
/// what is too narrow for a language of long words is found.
int PlayInLanguage(DrivenToolkit& toolkit, std::span<const std::string> arguments);

}  // namespace fiscalon
