#pragma once

#include <string>

#include "tools/fiscalon/commands/record_picks.h"
#include "tools/fiscalon/commands/shown_output.h"
#include "tools/fiscalon/context.h"

namespace fiscalon {

struct ShowBadOptions {
  std::string payments = {};
  std::string records = {};
  ShownAs form = ShownAs::Text;
  PickOptions picks = {};
};

/// `fiscalon show --bad-only`: judges a batch, and prints the records of the payments that fail with what is wrong with
/// them, as it goes. What is wrong with the files themselves is complained of, as `validate` does; then nothing that
/// was printed counts.
ExitStatus ShowBadPayments(const ShowBadOptions& options, const Context& context);

}  // namespace fiscalon
