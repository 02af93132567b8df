#pragma once

#include <string>

#include "tools/fiscalon/commands/collecting.h"

namespace fiscalon {

/// `fiscalon collect --json`: a payment as JSON from that file, or from standard input by "-"; on standard output what
/// came of it, as one line of JSON. It is written whole, when all is over, or not at all. Of the payment only what
/// names no property is given here.
ExitStatus CollectByJson(const std::string& request, PaymentToCollect payment, const Context& context);

}  // namespace fiscalon
