#include "tools/fiscalon/visible_text.h"

#include <algorithm>
#include <array>

#include "core/platform/code_page.h"
#include "core/values/text.h"

namespace fiscalon {
namespace {

constexpr std::string_view kMiddleDot = "\u00B7";

std::string Repeated(std::string_view mark, size_t times) {
  std::string repeated;
  for (size_t i = 0; i < times; ++i) repeated += mark;
  return repeated;
}

std::string VisibleCharacter(char character) {
  const auto code = static_cast<unsigned char>(character);
  if (code == 0x7F)
    return "\u2421";
  if (code < ' ')
    return std::string("\xE2\x90") + static_cast<char>(0x80 + code);  // U+2400 to U+241F
  return IsControlCharacter(character) ? "\uFFFD" : ToUtf8(std::string_view(&character, 1));
}

}  // namespace

bool IsControlCharacter(char character) {
  constexpr std::array<unsigned char, 6> kOthers = {0x7F, 0x81, 0x8D, 0x8F, 0x90, 0x9D};
  const auto code = static_cast<unsigned char>(character);
  return code < ' ' || std::find(kOthers.begin(), kOthers.end(), code) != kOthers.end();
}

std::string VisibleText(std::string_view text) {
  std::string visible;
  for (const char character : text) visible += VisibleCharacter(character);
  return visible;
}

std::string DottedText(std::string_view text) {
  const std::string_view withoutTail = TrimRight(text);
  const std::string_view middle = TrimLeft(withoutTail);
  return '"' + Repeated(kMiddleDot, withoutTail.size() - middle.size()) + VisibleText(middle) +
         Repeated(kMiddleDot, text.size() - withoutTail.size()) + '"';
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

std::string Counted(size_t count, std::string_view thing) {
  return std::to_string(count).append(" ").append(thing).append(count == 1 ? "" : "s");
}

}  // namespace fiscalon
