#pragma once

#include <algorithm>

#include "core/forms/text_field.h"

/// How large fields are in windows, in characters and lines.
namespace fiscalon {

/// Of a field without a limit.
constexpr int kCharactersOfText = 34;
/// Of a field of several lines.
constexpr int kLinesOfText = 4;
constexpr int kCharactersOfList = 66;
constexpr int kRowsOfList = 8;
/// Amounts stand beneath each other in fields of one width, wherever their limits lie. Limits hold back what is typed:
/// a locked field has what code puts into it.
constexpr int kCharactersOfAmount = 14;

inline int CharactersOf(const TextField& field) {
  constexpr int kMost = 44;
  if (field.MaxLength() == FieldDesign::kNoLimit || field.IsMultiLine())
    return kCharactersOfText;
  const FieldDesign& design = field.Designed();
  const int least = design.alignment == Alignment::Right || design.locked ? kCharactersOfAmount : 0;
  return std::clamp(field.MaxLength() + 1, least, kMost);
}

}  // namespace fiscalon
