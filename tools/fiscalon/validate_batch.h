#pragma once

#include <optional>
#include <string>

#include "tools/fiscalon/batch_desk.h"
#include "tools/fiscalon/context.h"
#include "validation/batch_part.h"

namespace fiscalon {

/// What `fiscalon validate` is told of a batch.
struct BatchOptions {
  std::string payments = {};
  std::string records = {};
  BatchOutputs outputs = {};
  BatchPart part = {};
  unsigned jobs = 1;
};

/// Judges a batch, writes what is wanted and prints the summary. What is wrong with the files is complained of.
ExitStatus ValidateBatchFiles(BatchOptions options, const Context& context);

/// Reads a part such as "2/8". Nothing where it is none.
std::optional<BatchPart> PartOf(const std::string& text);

}  // namespace fiscalon
