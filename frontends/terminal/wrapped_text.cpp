#include "frontends/terminal/wrapped_text.h"

#include <algorithm>

namespace fiscalon::terminal {
namespace {

// What stands behind a line. Nobody sees how a blank is written but in reverse.
constexpr Style kBehindLine = {.ink = Ink::Faint};
constexpr Style kEndOfLine = {.bold = true, .ink = Ink::Faint};

/// How much of a line goes before it is broken.
size_t BreakOf(std::string_view line, size_t width) {
  if (line.size() <= width)
    return line.size();
  const size_t blank = line.substr(0, width).find_last_of(' ');
  return blank == std::string_view::npos ? width : blank + 1;
}

}  // namespace

std::vector<WrappedLine> Wrapped(std::string_view text, int width, LineEnds ends) {
  std::vector<WrappedLine> lines;
  const auto most = static_cast<size_t>(std::max(width, 1));
  size_t at = 0;
  while (true) {
    const size_t found = ends == LineEnds::EndLines ? text.find_first_of("\r\n", at) : text.npos;
    const size_t end = std::min(found, text.size());
    std::string_view line = text.substr(at, end - at);
    do {
      const size_t length = BreakOf(line, most);
      lines.push_back(
          {.start = static_cast<int>(line.data() - text.data()), .text = std::string(line.substr(0, length))});
      line.remove_prefix(length);
    } while (!line.empty());
    if (end == text.size())
      return lines;
    lines.back().ends = true;
    at = end + (text.substr(end).starts_with("\r\n") ? 2 : 1);
  }
}

void PutWrapped(Screen& screen, Point at, const std::vector<WrappedLine>& lines, int width, Style style) {
  for (const WrappedLine& line : lines) {
    const int length = static_cast<int>(line.text.size());
    screen.Put(at, line.text, style);
    screen.Fill({.x = at.x + length, .y = at.y, .width = width - length, .height = 1}, {.style = kBehindLine});
    if (line.ends)
      screen.Put({at.x + length, at.y}, {.style = kEndOfLine});
    ++at.y;
  }
}

std::string ReadWrapped(const Screen& screen, const Rect& place) {
  std::string text;
  for (int y = place.y; y < place.Bottom(); ++y) {
    int x = place.x;
    while (x < place.Right() && screen.At({x, y}).style.ink != Ink::Faint) ++x;
    text += screen.Text({place.x, y}, x - place.x);
    if (x < place.Right() && screen.At({x, y}).style == kEndOfLine)
      text += '\n';
  }
  return text;
}

}  // namespace fiscalon::terminal
