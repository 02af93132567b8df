#pragma once

#include "core/forms/text_field.h"

/// How large fields are in windows, in characters and lines, and how they stand in their rows.
namespace fiscalon {

/// Of a field without a limit.
constexpr int kCharactersOfText = 34;
/// Of a field of several lines.
constexpr int kLinesOfText = 4;
/// Of a list.
constexpr int kCharactersOfList = 66;
/// Of a list that shows its rows.
constexpr int kRowsOfList = 8;
/// Amounts stand beneath each other in fields of one width, wherever their limits lie. Limits hold back what is typed:
/// a locked field has what code puts into it.
constexpr int kCharactersOfAmount = 14;

/// How wide a field is, in characters.
int CharactersOf(const TextField& field);

/// Takes all the width that its row leaves.
bool GrowsWide(const Control& control);
/// Higher than a line: what stands beside it is in line with its upper edge.
bool IsTall(const Control& control);
/// Begins where captions do, when none stands before it.
bool BeginsAtLeft(const Control& control);

}  // namespace fiscalon
