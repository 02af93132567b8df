#pragma once

#include <string>
#include <string_view>

#include "core/platform/runtime_error.h"
#include "core/session.h"
#include "core/wording/language.h"

/// What people are told about a payment beside the words of the library, which name no path and no property.
/// Sentences in UTF-8.
namespace fiscalon {

/// What the properties are called where their names are not known.
struct PaymentWords {
  std::string_view govFilename = "GovFilename";
  std::string_view mainPath = "MainPath";
  std::string_view enterName = "EnterName";
  std::string_view enterTitle = "EnterTitle";
  std::string_view paidAmount = "PaidAmount";
  /// Of the advice. A program's own messages are in English.
  Language language = {};
};

/// What an error that ended a screen is about, by the property and its value, and what to do. Empty where its own words
/// say all that is known.
std::string AdviceOn(const RuntimeError& error, const Levyra& session, const PaymentWords& words = {});

}  // namespace fiscalon
