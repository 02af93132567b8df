#pragma once

#include <string>
#include <string_view>

#include "core/platform/date.h"
#include "core/session.h"

namespace fiscalon {

/// A payment as it is entered at a desk, before a screen asks for the rest. Texts are UTF-8, and as they were typed.
struct Payment {
  enum class Destination { Collection, File };

  std::string customerNumber = {};
  std::string billerCode = {};
  std::string billerName = {};
  std::string cents = {};
  /// The same amount, for whoever would rather type dollars.
  std::string dollars = {};
  /// "2026-06-15"
  std::string date = {};
  std::string enteredBy = {};
  std::string title = {};
  bool onHold = false;
  std::string sequence = {};
  int items = 1;
  std::string businessName = {};
  Destination destination = Destination::Collection;
  std::string file = {};
};

/// A payment that a newcomer can show screens with at once, due tomorrow.
Payment ExamplePayment();

/// Sets the session's properties. Raises what they raise.
void Give(const Payment& payment, Levyra& session);

/// Cents as dollars with a point, "12345" as "123.45"; and back, with a point or a comma. Empty for a text that is no
/// such amount.
std::string DollarsOf(std::string_view cents);
std::string CentsOf(std::string_view dollars);

/// "2026-06-15" for a date, and "06152026", as hosts say it; empty for a text that is no day of the calendar.
std::string DateText(const Date& date);
std::string HostDateOf(std::string_view date);

}  // namespace fiscalon
