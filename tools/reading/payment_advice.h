#pragma once

#include <string>
#include <vector>

#include "core/platform/runtime_error.h"
#include "core/session.h"

/// What people are told about a payment beside the words of the library, which name no path and no property.
/// Sentences in UTF-8.
namespace fiscalon {

/// What an error that ended a screen is about, by the property and its value, and what to do. Empty where its own words
/// say all that is known.
std::string AdviceOn(const RuntimeError& error, const Levyra& session);

/// What of a payment the library takes without a word and records do not bear: a sequence that shifts their columns, a
/// name that fails their output.
std::vector<std::string> DoubtsAbout(const Levyra& session);

}  // namespace fiscalon
