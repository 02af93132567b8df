#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "frontends/terminal/screen.h"

namespace fiscalon::terminal {

/// A line of a text as it stands on a screen.
struct WrappedLine {
  /// Where it begins in the text.
  int start = 0;
  std::string text = {};
  /// The text has a line end behind it; otherwise it goes on in the next line, or is over.
  bool ends = false;
};

/// A line end in what is one line by its nature, such as a name, is a character like others.
enum class LineEnds { EndLines, AreCharacters };

/// A text in lines of at most that many characters, broken behind blanks where there are any. No character is lost but
/// the line ends.
std::vector<WrappedLine> Wrapped(std::string_view text, int width, LineEnds ends = LineEnds::EndLines);

/// Puts lines beneath each other. Behind a line that ends a cell says so, which nobody sees, so that who reads the
/// screen knows it from one that was broken.
void PutWrapped(Screen& screen, Point at, const std::vector<WrappedLine>& lines, int width, Style style);
/// The text of such lines, LF for each line end.
std::string ReadWrapped(const Screen& screen, const Rect& place);

}  // namespace fiscalon::terminal
