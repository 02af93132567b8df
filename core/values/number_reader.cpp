#include "core/values/number_reader.h"

#include <algorithm>

#include "core/values/separators.h"
#include "core/values/text.h"

namespace fiscalon {

namespace {

constexpr char kNoBreakSpace = '\xA0';

bool IsWhiteSpace(char c) {
  return c == ' ' || (c >= '\t' && c <= '\r') || c == kNoBreakSpace;
}

class NumberReader {
 public:
  NumberReader(std::string_view text, const Separators& separators, std::string_view symbol, DecimalText& number)
      : text_(text),
        decimal_(separators.decimal),
        group_(separators.group),
        symbol_(symbol),
        blanksGroup_(group_.size() == 1 && group_.front() == kNoBreakSpace),
        number_(number) {}

  /// For the plain form.
  NumberReader(std::string_view text, DecimalText& number) : text_(text), decimal_("."), number_(number) {}

  bool ReadUnderLocale() { return ReadFront() && ReadMagnitude() && ReadBack(); }

  bool ReadPlain() {
    ReadSign();
    return ReadMagnitude() && at_ == text_.size();
  }

 private:
  enum class Sign { None, Character, OpenParenthesis, Parentheses };

  bool AtEnd() const { return at_ == text_.size(); }

  /// Takes a text of the locale's, if it stands here.
  bool Take(std::string_view piece) {
    if (piece.empty() || !text_.substr(at_).starts_with(piece))
      return false;
    at_ += piece.size();
    return true;
  }

  bool TakeAnyOf(char a, char b) {
    if (AtEnd() || (text_[at_] != a && text_[at_] != b))
      return false;
    ++at_;
    return true;
  }

  bool TakeWhiteSpace() {
    if (AtEnd() || !IsWhiteSpace(text_[at_]))
      return false;
    ++at_;
    return true;
  }

  /// Takes a sign character. The number may have one in all, in front or behind.
  bool ReadSign() {
    if (sign_ != Sign::None || !TakeAnyOf('+', '-'))
      return false;
    sign_ = Sign::Character;
    if (text_[at_ - 1] == '-')
      number_.SetNegative();
    return true;
  }

  bool ReadOpenParenthesis() {
    if (sign_ != Sign::None || !Take("("))
      return false;
    sign_ = Sign::OpenParenthesis;
    number_.SetNegative();
    return true;
  }

  bool ReadCloseParenthesis() {
    if (sign_ != Sign::OpenParenthesis || !Take(")"))
      return false;
    sign_ = Sign::Parentheses;
    return true;
  }

  /// What may stand before the digits: one currency symbol, one sign or "(", white space among them.
  bool ReadFront() {
    bool symbolSeen = false;
    while (!AtEnd() && !IsDigit(text_[at_])) {
      if (TakeWhiteSpace() || ReadSign() || ReadOpenParenthesis())
        continue;
      if (symbolSeen || !Take(symbol_))
        break;
      symbolSeen = true;
    }
    return !AtEnd();
  }

  bool TakeGroupSeparator() { return Take(group_) || (blanksGroup_ && Take(" ")); }

  bool ReadMagnitude() {
    bool digitSeen = false;
    bool pointSeen = false;
    while (!AtEnd()) {
      if (IsDigit(text_[at_])) {
        number_.AddDigit(text_[at_++]);
        digitSeen = true;
      } else if (!pointSeen && Take(decimal_)) {
        number_.MarkPoint();
        pointSeen = true;
      } else if (!digitSeen || !TakeGroupSeparator()) {
        break;
      }
    }
    number_.Finish(ReadExponent());
    return digitSeen;
  }

  /// An "e" without digits behind it is left where it stands: it may begin the currency symbol.
  int64_t ReadExponent() {
    constexpr int64_t kFarBeyond = 1'000'000'000'000;
    const size_t start = at_;
    if (!TakeAnyOf('e', 'E'))
      return 0;
    const bool negative = TakeAnyOf('+', '-') && text_[at_ - 1] == '-';
    if (AtEnd() || !IsDigit(text_[at_])) {
      at_ = start;
      return 0;
    }
    int64_t exponent = 0;
    for (; !AtEnd() && IsDigit(text_[at_]); ++at_) exponent = std::min(exponent * 10 + (text_[at_] - '0'), kFarBeyond);
    return negative ? -exponent : exponent;
  }

  /// What may stand behind the digits: any number of currency symbols, the sign or ")", white space among them.
  bool ReadBack() {
    while (!AtEnd())
      if (!TakeWhiteSpace() && !ReadSign() && !ReadCloseParenthesis() && !Take(symbol_))
        return false;
    return sign_ != Sign::OpenParenthesis;
  }

  std::string_view text_;
  size_t at_ = 0;
  std::string_view decimal_;
  std::string_view group_ = {};
  std::string_view symbol_ = {};
  bool blanksGroup_ = false;
  Sign sign_ = Sign::None;
  DecimalText& number_;
};

/// Whether the text is a number with the currency symbol, by separators that only money has.
bool IsMoney(std::string_view text, const Locale& locale) {
  const Separators separators = SeparatorsOfMoney(locale);
  const std::string_view symbol = locale.currencySymbol;
  if (symbol.empty() || text.find(symbol) == text.npos || separators == SeparatorsOfNumbers(locale))
    return false;
  DecimalText number;
  return NumberReader(text, separators, symbol, number).ReadUnderLocale();
}

}  // namespace

bool ReadNumber(std::string_view text, const Locale& locale, DecimalText& number) noexcept {
  const Separators separators = IsMoney(text, locale) ? SeparatorsOfMoney(locale) : SeparatorsOfNumbers(locale);
  return NumberReader(text, separators, locale.currencySymbol, number).ReadUnderLocale();
}

bool ReadPlainNumber(std::string_view text, DecimalText& number) noexcept {
  return NumberReader(Trim(text), number).ReadPlain();
}

}  // namespace fiscalon
