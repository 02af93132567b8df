#pragma once

#include <cstdint>
#include <ostream>
#include <string>
#include <string_view>

#include "core/platform/date.h"

namespace fiscalon {

/// What kind of batch is made, for trials and benchmarks.
struct BatchPlan {
  uint64_t payments = 0;
  /// One whose payments are judged.
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
/// that a judge must give. Error 5 for a screen whose payments are not judged.
void GenerateBatch(const BatchPlan& plan, std::ostream& payments, std::ostream& records, std::ostream& planted);

}  // namespace fiscalon
