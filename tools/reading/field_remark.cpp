#include "tools/reading/field_remark.h"

#include <algorithm>

#include "core/platform/code_page.h"
#include "core/values/text.h"
#include "core/wording/places.h"
#include "tools/reading/utf8_words.h"
#include "tools/reading/visible_text.h"

namespace fiscalon {
namespace {

std::string_view WithoutZeros(std::string_view digits) {
  digits.remove_prefix(std::min(digits.find_first_not_of('0'), digits.size()));
  return digits;
}

SignedDigits WithoutZeros(const SignedDigits& number) {
  return {number.isNegative, WithoutZeros(number.digits)};
}

/// "-12345" of a number without zeros in front; zero, which has no digits then, has no sign.
void AppendPlainly(std::string& out, const SignedDigits& number) {
  if (number.digits.empty()) {
    out += '0';
    return;
  }
  if (number.isNegative)
    out += '-';
  out += number.digits;
}

/// "12345, as cents $123.45"
void AppendOnDigits(std::string& out, const SignedDigits& number, const MoneyWords& money) {
  const SignedDigits shorter = WithoutZeros(number);
  AppendPlainly(out, shorter);
  if (shorter.digits.empty())
    return;
  out += ", as cents ";
  money.Append(out, shorter);
}

/// The same in the language of the forms.
std::string WordsOnDigits(const SignedDigits& number, const MoneyWords& money) {
  std::string plainly;
  AppendPlainly(plainly, WithoutZeros(number));
  if (plainly == "0")
    return plainly;
  std::string amount;
  money.Append(amount, number);
  return Utf8Words("{1}, as cents {2}", {plainly, amount});
}

/// A field's name: mostly its caption on the screen, which may have a colon.
std::string InWordsOfItsCaption(const std::string& name) {
  std::string words = Utf8Words(name);
  const std::string caption = name + ":";
  const std::string captionWords = Utf8Words(caption);
  if (words != name || captionWords == caption)
    return words;
  return ToUtf8(WithoutColon(FromUtf8(captionWords)));
}

}  // namespace

MoneyWords::MoneyWords(const Locale& locale)
    : decimal_(ToUtf8(locale.decimal)),
      group_(ToUtf8(locale.group)),
      positivePrefix_(ToUtf8(locale.positivePrefix)),
      positiveSuffix_(ToUtf8(locale.positiveSuffix)),
      negativePrefix_(ToUtf8(locale.negativePrefix)),
      negativeSuffix_(ToUtf8(locale.negativeSuffix)) {}

void MoneyWords::Append(std::string& out, const SignedDigits& cents) const {
  constexpr std::string_view kLargest = "92233720368547758";
  constexpr std::string_view kSmall = "000";
  constexpr size_t kGroup = 3;
  std::string_view digits = WithoutZeros(cents.digits);
  const bool isNegative = cents.isNegative && !digits.empty();
  if (digits.size() > kLargest.size() || (digits.size() == kLargest.size() && digits > kLargest)) {
    out.append(isNegative ? "-" : "")
        .append(digits, 0, digits.size() - 2)
        .append(".")
        .append(digits, digits.size() - 2);
    return;
  }
  char small[] = {'0', '0', '0'};
  if (digits.size() < kSmall.size()) {
    std::copy(digits.begin(), digits.end(), std::end(small) - digits.size());
    digits = {small, kSmall.size()};
  }
  out += isNegative ? negativePrefix_ : positivePrefix_;
  const size_t whole = digits.size() - 2;
  size_t at = (whole - 1) % kGroup + 1;
  out.append(digits, 0, at);
  for (; at < whole; at += kGroup) out.append(group_).append(digits, at, kGroup);
  out.append(decimal_).append(digits, whole);
  out += isNegative ? negativeSuffix_ : positiveSuffix_;
}

void AppendRemark(std::string& out, const ShownField& field, std::string_view text, const MoneyWords& money) {
  switch (field.sense) {
    case Sense::Blank:
      out += "blank";
      return;
    case Sense::Text:
      AppendNumber(out, Trim(text).size());
      out += " of ";
      AppendNumber(out, static_cast<uint64_t>(field.to - field.from + 1));
      out += " characters";
      return;
    case Sense::Cents:
    case Sense::Dollars:
      return money.Append(out, SignedDigitsIn(TrimLeft(text)));
    case Sense::Digits:
      return AppendOnDigits(out, SignedDigitsIn(text), money);
    case Sense::Missing:
      out += text.empty() ? "missing" : "cut off";
      return;
    case Sense::Wrong:
      out += '!';
      return;
    case Sense::Count:
    case Sense::Date:
    case Sense::Month:
    case Sense::Year:
    case Sense::FieldNumber:
      return AppendMeaning(out, field, text);
  }
}

std::string RemarkOn(const ShownRecord& record, const ShownField& field, const Locale& locale) {
  const std::string_view text = record.TextOf(field);
  const MoneyWords money(locale);
  std::string remark;
  AppendRemark(remark, field, text, money);
  switch (field.sense) {
    case Sense::Blank:
    case Sense::Missing:
      return Utf8Words(remark);
    case Sense::Text:
      return Utf8Words("{1} of {2} characters",
                       {std::to_string(Trim(text).size()), std::to_string(field.to - field.from + 1)});
    case Sense::FieldNumber:
      return InWordsOfItsCaption(remark);
    case Sense::Digits:
      return WordsOnDigits(SignedDigitsIn(text), money);
    default:
      return remark;
  }
}

bool IsWorthALine(const ShownField& field) {
  return !field.name.empty() || (field.sense != Sense::Blank && field.sense != Sense::Missing);
}

}  // namespace fiscalon
