#include "frontends/terminal/key_decoder.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <utility>
#include <vector>

#include "core/platform/code_page.h"

namespace fiscalon::terminal {
namespace {

constexpr char kEscapeByte = '\x1B';
constexpr std::string_view kPasteEnds = "\x1B[201~";

struct NumberedKey {
  int number;
  int keyCode;
};
// By the number before "~". Some terminals number the ends of a line otherwise.
constexpr std::array kNumberedKeys = {
    NumberedKey{1, key::kHome},     NumberedKey{2, key::kInsert},  NumberedKey{3, key::kDelete},
    NumberedKey{4, key::kEnd},      NumberedKey{5, key::kPageUp},  NumberedKey{6, key::kPageDown},
    NumberedKey{7, key::kHome},     NumberedKey{8, key::kEnd},     NumberedKey{11, key::kF1},
    NumberedKey{12, key::kF1 + 1},  NumberedKey{13, key::kF1 + 2}, NumberedKey{14, key::kF1 + 3},
    NumberedKey{15, key::kF1 + 4},  NumberedKey{17, key::kF1 + 5}, NumberedKey{18, key::kF1 + 6},
    NumberedKey{19, key::kF1 + 7},  NumberedKey{20, key::kF1 + 8}, NumberedKey{21, key::kF1 + 9},
    NumberedKey{23, key::kF1 + 10}, NumberedKey{24, key::kF1 + 11}};

struct LetteredKey {
  char letter;
  int keyCode;
};
constexpr std::array kLetteredKeys = {LetteredKey{'A', key::kUp},     LetteredKey{'B', key::kDown},
                                      LetteredKey{'C', key::kRight},  LetteredKey{'D', key::kLeft},
                                      LetteredKey{'H', key::kHome},   LetteredKey{'F', key::kEnd},
                                      LetteredKey{'P', key::kF1},     LetteredKey{'Q', key::kF1 + 1},
                                      LetteredKey{'R', key::kF1 + 2}, LetteredKey{'S', key::kF1 + 3}};

int KeyOfNumber(int number) {
  const auto* const found = std::find_if(kNumberedKeys.begin(), kNumberedKeys.end(),
                                         [&](const NumberedKey& row) { return row.number == number; });
  return found == kNumberedKeys.end() ? 0 : found->keyCode;
}

int KeyOfLetter(char letter) {
  const auto* const found = std::find_if(kLetteredKeys.begin(), kLetteredKeys.end(),
                                         [&](const LetteredKey& row) { return row.letter == letter; });
  return found == kLetteredKeys.end() ? 0 : found->keyCode;
}

/// Terminals count modifiers from 1: Shift adds 1, Alt 2, Ctrl 4.
int ShiftOf(int modifiers) {
  const int bits = std::max(modifiers - 1, 0);
  return ((bits & 1) != 0 ? shift_state::kShift : 0) | ((bits & 2) != 0 ? shift_state::kAlt : 0) |
         ((bits & 4) != 0 ? shift_state::kControl : 0);
}

std::optional<Input> Stroke(int keyCode, int shift = shift_state::kNone) {
  if (keyCode == 0)
    return std::nullopt;
  return KeyStroke{.keyCode = keyCode, .shift = shift};
}

/// A key that makes a character by itself, held down with others.
KeyStroke WithModifiers(KeyStroke stroke, int shift) {
  const bool controls = (shift & shift_state::kControl) != 0;
  stroke.shift |= shift;
  if ((shift & shift_state::kAlt) != 0)
    stroke.character = 0;
  else if (controls && stroke.keyCode == key::kEnter)
    stroke.character = key::kLineFeed;
  else if (controls && stroke.keyCode >= 'A' && stroke.keyCode <= 'Z')
    stroke.character = stroke.keyCode - 'A' + 1;
  return stroke;
}

/// The key of a byte below 32, or of Delete's, which is Backspace on nearly all keyboards.
std::optional<KeyStroke> StrokeOfControl(unsigned char byte) {
  constexpr unsigned char kUndo = 0x1F;
  switch (byte) {
    case '\t':
      return StrokeNamed("Tab");
    case '\r':
      return StrokeNamed("Enter");
    case '\n':
      return StrokeNamed("Ctrl+Enter");
    case '\b':
    case 0x7F:
      return StrokeNamed("Backspace");
    case static_cast<unsigned char>(kEscapeByte):
      return StrokeNamed("Escape");
    case kUndo:
      // Ctrl and the underscore or the slash: what line editors undo by, since Ctrl+Z is the terminal's own.
      return KeyStroke{.keyCode = 'Z', .shift = shift_state::kControl};
    default:
      if (byte == 0 || byte > 26)
        return std::nullopt;
      return KeyStroke{.keyCode = 'A' + byte - 1, .shift = shift_state::kControl, .character = byte};
  }
}

/// Of the extended protocols, which tell a character by its number.
std::optional<Input> StrokeOfNumber(int number, int modifiers) {
  const int shift = ShiftOf(modifiers);
  if (number < 32 || number == 127) {
    const auto stroke = StrokeOfControl(static_cast<unsigned char>(number));
    return stroke ? std::optional<Input>(WithModifiers(*stroke, shift)) : std::nullopt;
  }
  if (number > 126)
    return std::nullopt;
  return WithModifiers(StrokeOf(static_cast<char>(number)), shift);
}

/// The numbers of a sequence, which ";" parts; what a ":" adds to one says nothing that is needed here.
std::vector<int> NumbersOf(std::string_view text) {
  std::vector<int> numbers;
  while (true) {
    const size_t end = std::min(text.find(';'), text.size());
    int number = 0;
    std::from_chars(text.data(), text.data() + end, number);
    numbers.push_back(number);
    if (end == text.size())
      return numbers;
    text.remove_prefix(end + 1);
  }
}

int NumberAt(const std::vector<int>& numbers, size_t i, int usual) {
  return i < numbers.size() && numbers[i] != 0 ? numbers[i] : usual;
}

/// Buttons but the left one mean nothing.
std::optional<Input> MouseOf(int buttons, Point at, bool isUp) {
  constexpr int kButton = 3;
  constexpr int kDrag = 32;
  constexpr int kWheel = 64;
  if ((buttons & kWheel) != 0)
    return (buttons & kButton) > 1
               ? std::nullopt
               : std::optional<Input>(MouseInput{
                     (buttons & kButton) == 0 ? MouseInput::What::WheelUp : MouseInput::What::WheelDown, at});
  if ((buttons & kButton) != 0)
    return std::nullopt;
  return MouseInput{isUp                     ? MouseInput::What::Release
                    : (buttons & kDrag) != 0 ? MouseInput::What::Drag
                                             : MouseInput::What::Press,
                    at};
}

/// How many bytes the character has that begins so; 0 where none begins so.
size_t LengthOfUtf8(unsigned char first) {
  return first >= 0xC2 && first < 0xE0 ? 2 : first >= 0xE0 && first < 0xF0 ? 3 : first >= 0xF0 && first < 0xF5 ? 4 : 0;
}

}  // namespace

void KeyDecoder::Feed(std::string_view bytes) {
  bytes_.erase(0, taken_);
  taken_ = 0;
  bytes_ += bytes;
}

std::optional<Input> KeyDecoder::Next() {
  while (true) {
    rest_ = std::string_view(bytes_).substr(taken_);
    length_ = 0;
    std::optional<Input> input;
    if (pasting_)
      input = TakePaste();
    else if (!rest_.empty())
      input = Take();
    taken_ += length_;
    if (input)
      return input;
    if (length_ == 0) {
      complete_ = false;
      return std::nullopt;
    }
  }
}

KeyDecoder::Rest KeyDecoder::Waiting() const {
  return pasting_ ? Rest::Paste : taken_ == bytes_.size() ? Rest::None : Rest::Key;
}

std::optional<Input> KeyDecoder::Take() {
  const auto first = static_cast<unsigned char>(rest_.front());
  if (rest_.front() == kEscapeByte)
    return TakeEscape();
  if (first >= 0x80)
    return TakeCharacter();
  length_ = 1;
  if (first < ' ' || first == 0x7F) {
    const auto stroke = StrokeOfControl(first);
    return stroke ? std::optional<Input>(*stroke) : std::nullopt;
  }
  return StrokeOf(rest_.front());
}

std::optional<Input> KeyDecoder::TakeEscape() {
  const bool alone = rest_.size() == 1;
  if (alone && !complete_)
    return std::nullopt;
  const auto next = static_cast<unsigned char>(alone ? 0 : rest_[1]);
  length_ = 1;
  if (alone || next >= 0x80 || next == static_cast<unsigned char>(kEscapeByte))
    return StrokeNamed("Escape").value();
  const bool introduces = next == '[' || next == 'O';
  if (introduces && (rest_.size() > 2 || !complete_))
    return TakeSequence();
  length_ = 2;
  if (next < ' ' || next == 0x7F) {
    const auto stroke = StrokeOfControl(next);
    return stroke ? std::optional<Input>(WithModifiers(*stroke, shift_state::kAlt)) : std::nullopt;
  }
  return WithModifiers(StrokeOf(rest_[1]), shift_state::kAlt);
}

std::optional<Input> KeyDecoder::TakeSequence() {
  constexpr size_t kLongest = 64;
  // After "O" there is one letter, on some terminals with a modifier before it.
  size_t end = 2;
  while (end < rest_.size() && rest_[end] >= ' ' && rest_[end] <= '?' && end < kLongest) ++end;
  const bool isCut = end == rest_.size();
  length_ = isCut && !complete_ ? 0 : end;
  if (isCut || rest_[end] < '@' || rest_[end] > '~')
    return std::nullopt;
  const char letter = rest_[end];
  const std::string_view between = rest_.substr(2, end - 2);
  length_ = end + 1;
  if (letter == '[')
    return TakeConsoleKey(end + 1);
  if (letter == 'M' && between.empty())
    return TakeOldMouse();
  if (between.starts_with('<')) {
    const std::vector<int> numbers = NumbersOf(between.substr(1));
    const bool isUp = letter == 'm';
    const Point at = {NumberAt(numbers, 1, 1) - 1, NumberAt(numbers, 2, 1) - 1};
    return isUp || letter == 'M' ? MouseOf(numbers[0], at, isUp) : std::nullopt;
  }
  if (!between.empty() && (between.front() < '0' || between.front() > ';'))
    return std::nullopt;
  return KeyOf(letter, NumbersOf(between));
}

std::optional<Input> KeyDecoder::TakeConsoleKey(size_t at) {
  if (rest_.size() <= at) {
    length_ = complete_ ? length_ : 0;
    return std::nullopt;
  }
  length_ = at + 1;
  const char which = rest_[at];
  return which >= 'A' && which <= 'E' ? Stroke(key::kF1 + which - 'A') : std::nullopt;
}

std::optional<Input> KeyDecoder::KeyOf(char letter, const std::vector<int>& numbers) {
  switch (letter) {
    case '~':
      if (numbers[0] == 200) {
        pasting_ = true;
        return std::nullopt;
      }
      if (numbers[0] == 27)
        return StrokeOfNumber(NumberAt(numbers, 2, 0), NumberAt(numbers, 1, 1));
      return Stroke(KeyOfNumber(numbers[0]), ShiftOf(NumberAt(numbers, 1, 1)));
    case 'u':
      return StrokeOfNumber(numbers[0], NumberAt(numbers, 1, 1));
    case 'Z':
      return StrokeNamed("Shift+Tab").value();
    default:
      return Stroke(KeyOfLetter(letter), ShiftOf(NumberAt(numbers, 1, 1)));
  }
}

std::optional<Input> KeyDecoder::TakeOldMouse() {
  constexpr size_t kWhole = 6;
  constexpr int kFirst = 32;
  constexpr int kUp = 3;
  if (rest_.size() < kWhole) {
    length_ = complete_ ? rest_.size() : 0;
    return std::nullopt;
  }
  length_ = kWhole;
  const auto value = [&](size_t i) { return static_cast<unsigned char>(rest_[i]) - kFirst; };
  const Point at = {value(4) - 1, value(5) - 1};
  return value(3) == kUp ? MouseOf(0, at, true) : MouseOf(value(3), at, false);
}

std::optional<Input> KeyDecoder::TakeCharacter() {
  const auto first = static_cast<unsigned char>(rest_.front());
  if (charset_ == Charset::Latin1) {
    length_ = 1;
    return first < 0xA0 ? std::nullopt : std::optional<Input>(StrokeOf(rest_.front()));
  }
  const size_t wanted = LengthOfUtf8(first);
  size_t whole = 1;
  while (whole < wanted && whole < rest_.size() && (static_cast<unsigned char>(rest_[whole]) & 0xC0) == 0x80) ++whole;
  if (wanted == 0 || whole < wanted) {
    const bool mayGoOn = wanted != 0 && whole == rest_.size() && !complete_;
    length_ = mayGoOn ? 0 : whole;
    return std::nullopt;
  }
  length_ = wanted;
  const std::string character = FromUtf8(rest_.substr(0, wanted));
  return StrokeOf(character.front());
}

std::optional<Input> KeyDecoder::TakePaste() {
  // More than any field takes, many times over. What is beyond is not kept.
  constexpr size_t kMost = size_t{1} << 20;
  const size_t end = rest_.find(kPasteEnds);
  const bool ends = end != std::string::npos || complete_;
  // The mark of the end may be cut.
  const size_t taken = end != std::string::npos ? end
                       : complete_              ? rest_.size()
                                                : rest_.size() - std::min(rest_.size(), kPasteEnds.size() - 1);
  pasted_.append(rest_.substr(0, std::min(taken, kMost - std::min(pasted_.size(), kMost))));
  length_ = taken + (end != std::string::npos ? kPasteEnds.size() : 0);
  if (!ends)
    return std::nullopt;
  pasting_ = false;
  std::string text = charset_ == Charset::Latin1 ? std::exchange(pasted_, {}) : FromUtf8(std::exchange(pasted_, {}));
  return PasteInput{std::move(text)};
}

}  // namespace fiscalon::terminal
