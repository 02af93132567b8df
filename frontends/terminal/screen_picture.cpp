#include "frontends/terminal/screen_picture.h"

#include <cmath>

#include "frontends/terminal/utf8.h"

namespace fiscalon::terminal {
namespace {

struct Colours {
  const char* paper;
  const char* normal;
  const char* faint;
  const char* accent;
  const char* alarm;
};
constexpr Colours kLight = {"#ffffff", "#1a1a1a", "#767676", "#006d77", "#b00020"};
constexpr Colours kDark = {"#1c1e20", "#e6e6e6", "#8e9297", "#56c2cc", "#ff6b6b"};

// Of one cell, in pixels of a usual screen.
constexpr double kWidth = 8.4;
constexpr double kHeight = 18;
constexpr double kBaseline = 13.5;
constexpr double kMargin = 8;

const char* ColourOf(Ink ink, const Colours& colours) {
  switch (ink) {
    case Ink::Normal:
      return colours.normal;
    case Ink::Faint:
      return colours.faint;
    case Ink::Accent:
      return colours.accent;
    case Ink::Alarm:
      return colours.alarm;
  }
  return colours.normal;
}

/// With one digit behind the point: the same under every locale.
std::string Number(double value) {
  const auto tenths = static_cast<long>(std::lround(value * 10));
  return std::to_string(tenths / 10) + (tenths % 10 == 0 ? "" : "." + std::to_string(tenths % 10));
}

std::string Attribute(const char* name, const std::string& value) {
  return std::string(" ") + name + "=\"" + value + "\"";
}

void AppendEscaped(std::string& svg, char32_t character) {
  switch (character) {
    case U'&':
      svg += "&amp;";
      break;
    case U'<':
      svg += "&lt;";
      break;
    case U'>':
      svg += "&gt;";
      break;
    default:
      AppendUtf8(svg, character);
  }
}

/// Cells side by side that look the same.
struct Run {
  Point from = {};
  int length = 0;
};

void AppendRun(std::string& svg, const Screen& screen, const Run& run, Point corner, const Colours& colours) {
  const Style style = screen.At(run.from).style;
  const double x = kMargin + kWidth * (run.from.x - corner.x);
  const double y = kMargin + kHeight * (run.from.y - corner.y);
  const std::string width = Number(kWidth * run.length);
  const std::string ink = ColourOf(style.ink, colours);
  if (style.reverse)
    svg += "<rect" + Attribute("x", Number(x)) + Attribute("y", Number(y)) + Attribute("width", width) +
           Attribute("height", Number(kHeight)) + Attribute("fill", ink) + "/>\n";
  std::string text;
  bool isBlank = true;
  for (int i = 0; i < run.length; ++i) {
    const char32_t character = screen.At({run.from.x + i, run.from.y}).character;
    isBlank = isBlank && character == U' ';
    AppendEscaped(text, character);
  }
  if (isBlank)
    return;
  svg += "<text" + Attribute("x", Number(x)) + Attribute("y", Number(y + kBaseline)) + Attribute("textLength", width) +
         Attribute("fill", style.reverse ? colours.paper : ink);
  if (style.bold)
    svg += Attribute("font-weight", "bold");
  if (style.underline)
    svg += Attribute("text-decoration", "underline");
  svg += ">" + text + "</text>\n";
}

}  // namespace

std::string AsText(const Screen& screen, const Rect& part) {
  std::string text;
  for (int y = part.y; y < part.Bottom(); ++y) {
    std::string line;
    for (int x = part.x; x < part.Right(); ++x) AppendUtf8(line, screen.At({x, y}).character);
    text += line.substr(0, line.find_last_not_of(' ') + 1) + '\n';
  }
  return text;
}

std::string AsSvg(const Screen& screen, const Rect& part, const PictureLook& look) {
  const Colours& colours = look.theme == PictureLook::Theme::Dark ? kDark : kLight;
  const double width = 2 * kMargin + kWidth * part.width;
  const double height = 2 * kMargin + kHeight * part.height;
  std::string svg = "<svg xmlns=\"http://www.w3.org/2000/svg\"" + Attribute("width", Number(width * look.scale)) +
                    Attribute("height", Number(height * look.scale)) +
                    Attribute("viewBox", "0 0 " + Number(width) + " " + Number(height)) +
                    " font-family=\"DejaVu Sans Mono, Menlo, Consolas, monospace\" font-size=\"14\" "
                    "xml:space=\"preserve\">\n<rect width=\"100%\" height=\"100%\" rx=\"4\"" +
                    Attribute("fill", colours.paper) + "/>\n";
  for (int y = part.y; y < part.Bottom(); ++y)
    for (Run run = {.from = {part.x, y}}; run.from.x < part.Right(); run.from.x += run.length) {
      const Style style = screen.At(run.from).style;
      run.length = 1;
      while (run.from.x + run.length < part.Right() && screen.At({run.from.x + run.length, y}).style == style)
        ++run.length;
      AppendRun(svg, screen, run, {part.x, part.y}, colours);
    }
  return svg + "</svg>\n";
}

}  // namespace fiscalon::terminal
