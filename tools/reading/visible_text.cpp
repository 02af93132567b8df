#include "tools/reading/visible_text.h"

#include <algorithm>
#include <array>
#include <charconv>

#include "core/platform/code_page.h"
#include "core/values/text.h"
#include "validation/quick_digits.h"

namespace fiscalon {
namespace {

/// As many middle dots as the widest field has columns.
constexpr std::string_view kDot = "\u00B7";
constexpr size_t kMostDots = 60;
constexpr auto kDots = [] {
  std::array<char, kMostDots * kDot.size()> dots = {};
  for (size_t i = 0; i < dots.size(); ++i) dots[i] = kDot[i % kDot.size()];
  return dots;
}();

void AppendDots(std::string& out, size_t count) {
  for (; count > kMostDots; count -= kMostDots) out.append(kDots.data(), kDots.size());
  if (count > 0)
    out.append(kDots.data(), count * kDot.size());
}

/// Of eight characters, 0 where all are printable ASCII.
constexpr uint64_t OtherThanPlain(uint64_t eight) {
  // What is below a blank shows in the difference, what is above "~" in the sum, the highest in either.
  return ((eight - InAllEight(' ')) | (eight + InAllEight(1))) & InAllEight('\x80');
}

std::string VisibleCharacter(char character) {
  const auto code = static_cast<unsigned char>(character);
  if (code == 0x7F)
    return "\u2421";
  if (code < ' ')
    return std::string("\xE2\x90") + static_cast<char>(0x80 + code);  // U+2400 to U+241F
  return IsControlCharacter(character) ? "\uFFFD" : ToUtf8(std::string_view(&character, 1));
}

/// How many bytes the character of UTF-8 at the start takes; 0 where there is none.
size_t LengthOfCharacter(std::string_view utf8) {
  const auto lead = static_cast<unsigned char>(utf8.front());
  const size_t length = lead < 0x80 ? 1 : lead < 0xC2 ? 0 : lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : lead < 0xF5 ? 4 : 0;
  if (length > utf8.size())
    return 0;
  const std::string_view rest = utf8.substr(1, std::max<size_t>(length, 1) - 1);
  return std::all_of(rest.begin(), rest.end(), [](char byte) { return (byte & 0xC0) == 0x80; }) ? length : 0;
}

}  // namespace

bool IsControlCharacter(char character) {
  constexpr std::array<unsigned char, 6> kOthers = {0x7F, 0x81, 0x8D, 0x8F, 0x90, 0x9D};
  const auto code = static_cast<unsigned char>(character);
  return code < ' ' || std::find(kOthers.begin(), kOthers.end(), code) != kOthers.end();
}

bool IsPlain(std::string_view text) {
  if (text.size() < sizeof(uint64_t))
    return std::all_of(text.begin(), text.end(), [](char c) { return c >= ' ' && c < '\x7F'; });
  return InAnyEight(text, OtherThanPlain) == 0;
}

void AppendVisible(std::string& out, std::string_view text) {
  if (IsPlain(text)) {
    out += text;
    return;
  }
  for (const char character : text) out += VisibleCharacter(character);
}

std::string VisibleText(std::string_view text) {
  std::string visible;
  AppendVisible(visible, text);
  return visible;
}

std::string VisibleUtf8(std::string_view utf8) {
  std::string visible;
  while (!utf8.empty()) {
    const size_t length = LengthOfCharacter(utf8);
    const auto code = static_cast<unsigned char>(utf8.front());
    // Terminals take U+0080 to U+009F for commands too.
    const bool isCommand = length == 2 && code == 0xC2 && static_cast<unsigned char>(utf8[1]) < 0xA0;
    if (length == 0 || isCommand)
      visible += "\uFFFD";
    else if (length == 1 && code != '\n')
      visible += VisibleCharacter(utf8.front());
    else
      visible += utf8.substr(0, length);
    utf8.remove_prefix(std::max<size_t>(length, 1));
  }
  return visible;
}

std::string WithDots(std::string_view text) {
  constexpr char kMiddleDot = '\xB7';
  std::string dotted(text);
  for (size_t i = 0; i < text.size() && text[i] == ' '; ++i) dotted[i] = kMiddleDot;
  for (size_t i = text.size(); i > 0 && text[i - 1] == ' '; --i) dotted[i - 1] = kMiddleDot;
  return dotted;
}

void AppendDottedBlanks(std::string& out, size_t count) {
  out += '"';
  AppendDots(out, count);
  out += '"';
}

void AppendDotted(std::string& out, std::string_view text) {
  const std::string_view withoutTail = TrimRight(text);
  const std::string_view middle = TrimLeft(withoutTail);
  out += '"';
  AppendDots(out, withoutTail.size() - middle.size());
  AppendVisible(out, middle);
  AppendDots(out, text.size() - withoutTail.size());
  out += '"';
}

std::string DottedText(std::string_view text) {
  std::string dotted;
  AppendDotted(dotted, text);
  return dotted;
}

void AppendUtf8(std::string& out, std::string_view text) {
  if (IsPlain(text))
    out += text;
  else
    out += ToUtf8(text);
}

void AppendNumber(std::string& out, uint64_t number) {
  std::array<char, 20> digits = {};
  const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), number).ptr;
  out.append(digits.data(), end);
}

size_t ColumnsOf(std::string_view utf8) {
  return static_cast<size_t>(std::count_if(utf8.begin(), utf8.end(), [](char byte) { return (byte & 0xC0) != 0x80; }));
}

std::string PaddedTo(size_t columns, std::string_view utf8) {
  return std::string(utf8) + std::string(columns - std::min(columns, ColumnsOf(utf8)), ' ');
}

std::string Ruler(size_t columns) {
  constexpr size_t kStep = 10;
  std::string ruler;
  for (size_t tens = 1; ruler.size() < columns; ++tens) {
    const std::string label = std::to_string(tens);
    ruler += std::string("....+.....").substr(0, kStep - label.size()) + label;
  }
  return ruler.substr(0, columns);
}

std::string Counted(uint64_t count, std::string_view thing) {
  return std::to_string(count).append(" ").append(thing).append(count == 1 ? "" : "s");
}

}  // namespace fiscalon
