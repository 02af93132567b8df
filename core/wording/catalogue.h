#pragma once

#include <span>
#include <string_view>

#include "core/wording/language.h"

/// The words of all that a user reads. docs/adding-a-language.md tells how a language comes to it.
namespace fiscalon {

/// A text in UTF-8, with its words in each language beside English, a member each. "&" marks an access key, "{1}" the
/// first place that is filled when the text is shown.
struct CatalogueText {
  std::string_view english = {};
  std::string_view french = {};
  /// For whoever translates: where a term comes from, what a place holds.
  std::string_view remark = {};
};

/// All texts, in the order of the screens. None stands there twice.
std::span<const CatalogueText> Catalogue();

/// All languages, English first.
std::span<const Language> CatalogueLanguages();

}  // namespace fiscalon
