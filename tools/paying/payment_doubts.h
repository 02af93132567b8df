#pragma once

#include <string>
#include <vector>

#include "tools/paying/payment.h"
#include "tools/paying/payment_entries.h"

/// What a desk says of a payment before it shows a screen. Texts are UTF-8.
namespace fiscalon {

/// What speaks against one entry.
struct Doubt {
  /// Much is only told, since hosts may want to see what comes of it. What no screen can do anything with stops it: an
  /// amount that is none, a file that can't be.
  enum class Weight { Told, Stops };

  PaymentEntry entry = {};
  /// Stands behind the entry's name.
  std::string text = {};
  Weight weight = Weight::Told;
};

/// Of all entries, in their order.
std::vector<Doubt> DoubtsAbout(const Payment& payment);

/// "Sequence: 5 characters instead of four, which shifts the columns of all records."
std::string SentenceOf(const Doubt& doubt);

/// What is to be asked before the screen is shown: whether the records may take the place of a file that holds
/// something else. Yes goes on. Empty where there is nothing to ask.
std::string QuestionAbout(const Payment& payment);

}  // namespace fiscalon
