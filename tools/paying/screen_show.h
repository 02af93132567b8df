#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/launch.h"
#include "tools/paying/payment.h"
#include "tools/paying/payment_entries.h"
#include "tools/reading/shown_record.h"

/// A screen shown at a desk, from what keeps it from opening to what has come of it. Texts are UTF-8.
namespace fiscalon {

/// What keeps a screen from being shown with a payment.
struct Obstacle {
  /// A sentence a line.
  std::string reasons = {};
  /// Where the first of them is mended.
  PaymentEntry entry = {};
};

/// All that stops the payment; nothing where nothing does.
std::optional<Obstacle> ObstacleIn(const Payment& payment);

/// Asks, in a box of that title, whether the records may take the place of a file that holds something else; true where
/// there is none.
bool MayReplaceFile(const Payment& payment, std::string_view title);

/// How a screen ended: cancelled, an error, or the records taken apart.
struct ShowOutcome {
  std::string words = {};
  std::vector<ShownRecord> records = {};
};

/// Shows the screen with a session of its own, and takes what is handed over out of the form. No error leaves it.
ShowOutcome ShowScreen(const Payment& payment, const LaunchRow& screen);

}  // namespace fiscalon
