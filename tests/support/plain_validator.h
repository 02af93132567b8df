#pragma once

#include <string>

#include "tests/support/bulk_payment.h"

namespace fiscalon {

/// The rules of the validator once more, in the plainest way: every record is cut into strings, and one test
/// stands behind the other. Tests hold the tables and short cuts against it, and benchmarks measure what they
/// gain. Returns the reason; empty for a valid payment. Keeps no logs.
std::string ReasonInPlainWords(const BulkPayment& payment);

}  // namespace fiscalon
