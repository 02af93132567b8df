#pragma once

#include <cstdint>
#include <ostream>
#include <string>
#include <string_view>
#include <vector>

#include "core/platform/date.h"

namespace fiscalon {

/// What kind of batch is made, for trials and benchmarks.
struct BatchPlan {
  uint64_t payments = 0;
  /// "03" or "20".
  std::string screen = "03";
  /// How many of the payments are bad, from 0 to 1.
  double badRate = 0;
  /// The same seed makes the same batch.
  uint64_t seed = 1;
  /// The day as of which the good payments are good.
  Date today = {};
};

inline constexpr std::string_view kPlantedHeader = "row,seq,defect,reason";

/// Writes a batch: the payments list, its records as screens write them, and what was planted: a row for each
/// bad payment with the row of the payments list (the first payment is 1), the defect, and the whole reason
/// that a judge must give.
void GenerateBatch(const BatchPlan& plan, std::ostream& payments, std::ostream& records, std::ostream& planted);

/// The names of the defects that a screen's batches can have; empty for a screen that has no batches.
std::vector<std::string_view> DefectsOf(std::string_view screen);

}  // namespace fiscalon
