#pragma once

#include <cstdint>
#include <string>
#include <string_view>

/// Texts of the code page made visible, in UTF-8, one column per character.
namespace fiscalon {

/// Control characters become their pictures, such as "␀"; everything else stands as it is.
std::string VisibleText(std::string_view text);

/// The same of a text that is UTF-8 or was meant to be, such as the name of a file, which may hold any bytes: none of
/// them drives a terminal. Line ends stand as they are.
std::string VisibleUtf8(std::string_view utf8);

void AppendVisible(std::string& out, std::string_view text);

/// The blanks at either end as "·", in the code page: what a sentence has between its quotes.
std::string WithDots(std::string_view text);

/// In quotes, the blanks at either end as "·". It takes two columns more than the text.
std::string DottedText(std::string_view text);
void AppendDotted(std::string& out, std::string_view text);
/// The same of so many blanks.
void AppendDottedBlanks(std::string& out, size_t count);

/// Whether the text holds printable ASCII alone, as nearly all records do: it looks the same in the code page, in UTF-8
/// and to the eye.
bool IsPlain(std::string_view text);

/// Appends a text of the code page, in UTF-8.
void AppendUtf8(std::string& out, std::string_view text);

/// Appends a number in digits.
void AppendNumber(std::string& out, uint64_t number);

/// Whether the byte is no character of a text: a control character, or a place that the code page leaves open.
bool IsControlCharacter(char character);

/// How many columns a text in UTF-8 takes.
size_t ColumnsOf(std::string_view utf8);

/// The text with blanks behind it up to that many columns.
std::string PaddedTo(size_t columns, std::string_view utf8);

/// "....+....1....+....2", up to that many columns.
std::string Ruler(size_t columns);

/// "1 record", "2 records"
std::string Counted(uint64_t count, std::string_view thing);

}  // namespace fiscalon
