#include "tools/paying/payment.h"

#include <algorithm>
#include <array>

#include "core/boolean.h"
#include "core/platform/code_page.h"
#include "core/user_locale.h"
#include "core/values/calendar.h"
#include "core/values/text.h"

namespace fiscalon {
namespace {

constexpr size_t kMostDigits = 15;
constexpr size_t kDigitsOfCents = 2;

/// Takes the minus sign off, and says it.
std::string_view TakeSign(std::string_view& text) {
  const std::string_view sign = text.substr(0, text.starts_with('-') ? 1 : 0);
  text.remove_prefix(sign.size());
  return sign;
}

/// The digits without zeros at their start, but for that many at least.
std::string WithoutZeros(std::string digits, size_t least) {
  const size_t zeros = std::min(digits.find_first_not_of('0'), digits.size());
  return digits.erase(0, std::min(zeros, digits.size() - std::min(least, digits.size())));
}

}  // namespace

Payment ExamplePayment() {
  return {.customerNumber = "1234567",
          .billerCode = "001052",
          .billerName = "Summit Levies",
          .cents = "12345",
          .dollars = "123.45",
          .date = DateText(AddDays(Today(), 1)),
          .enteredBy = "Hélène Côté",
          .title = "Clerk",
          .sequence = "0001",
          .items = 3,
          .businessName = "Summit Books"};
}

void Give(const Payment& payment, Levyra& session) {
  session.ZelmorNumber(FromUtf8(payment.customerNumber));
  session.CompCode(FromUtf8(payment.billerCode));
  session.CompName(FromUtf8(payment.billerName));
  session.PaidAmount(FromUtf8(payment.cents));
  session.PaidDate(HostDateOf(payment.date));
  session.EnterName(FromUtf8(payment.enteredBy));
  session.EnterTitle(FromUtf8(payment.title));
  session.APHoldFlg(payment.onHold ? 1 : 0);
  session.SeqNumber(FromUtf8(payment.sequence));
  session.NumberOfInfoCollect(std::to_string(payment.items));
  session.BusinessName(FromUtf8(payment.businessName));
  session.GovFilename(FromUtf8(payment.file));
  session.WriteFile(payment.destination == Payment::Destination::File ? kTrue : kFalse);
}

std::string DollarsOf(std::string_view cents) {
  std::string_view text = Trim(cents);
  const std::string_view sign = TakeSign(text);
  if (!AreDigits(text) || text.size() > kMostDigits)
    return {};
  std::string digits = std::string(kDigitsOfCents, '0').append(text);
  digits.insert(digits.size() - kDigitsOfCents, 1, '.');
  return std::string(sign) + WithoutZeros(std::move(digits), std::string_view("0.00").size());
}

std::string CentsOf(std::string_view dollars) {
  std::string_view text = Trim(dollars);
  const std::string_view sign = TakeSign(text);
  const std::string_view whole = text.substr(0, text.find_first_of(".,"));
  const std::string_view rest = text.substr(std::min(text.size(), whole.size() + 1));
  if (!AreDigits(whole) || whole.size() > kMostDigits - kDigitsOfCents || rest.size() > kDigitsOfCents ||
      (!rest.empty() && !AreDigits(rest)))
    return {};
  std::string digits = std::string(whole).append(rest).append(kDigitsOfCents - rest.size(), '0');
  return std::string(sign) + WithoutZeros(std::move(digits), 1);
}

std::string DateText(const Date& date) {
  std::string text = "0000-00-00";
  const auto put = [&](int number, size_t last) {
    for (; number > 0; number /= 10) text[last--] = static_cast<char>('0' + number % 10);
  };
  put(date.year, 3);
  put(date.month, 6);
  put(date.day, 9);
  return text;
}

std::string HostDateOf(std::string_view date) {
  constexpr std::string_view kForm = "0000-00-00";
  if (date.size() != kForm.size() || date[4] != '-' || date[7] != '-')
    return {};
  const std::array parts = {date.substr(0, 4), date.substr(5, 2), date.substr(8, 2)};
  for (const std::string_view part : parts)
    if (!AreDigits(part))
      return {};
  const auto number = [](std::string_view digits) { return std::stoi(std::string(digits)); };
  const int year = number(parts[0]);
  const int month = number(parts[1]);
  const int day = number(parts[2]);
  if (month < 1 || month > 12 || day < 1 || day > DaysOfMonth(year, month))
    return {};
  return std::string(parts[1]).append(parts[2]).append(parts[0]);
}

}  // namespace fiscalon
