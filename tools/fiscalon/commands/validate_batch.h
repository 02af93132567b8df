#pragma once

#include <chrono>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "tools/fiscalon/commands/batch_desk.h"
#include "tools/fiscalon/context.h"
#include "validation/batch_part.h"

namespace fiscalon {

/// As many threads as there are cores.
unsigned UsualJobs();

/// For how long a folder may be silent, unless the user says otherwise.
inline constexpr std::chrono::seconds kUsualPatience = std::chrono::minutes(1);

/// What `fiscalon validate` is told of a batch.
struct BatchOptions {
  std::string payments = {};
  std::string records = {};
  BatchOutputs outputs = {};
  BatchPart part = {};
  unsigned jobs = UsualJobs();
  /// For how long a folder may be silent.
  uint32_t stallSeconds = kUsualPatience.count();
};

/// Judges a batch, writes what is wanted and prints the summary. What is wrong with the files is complained of.
ExitStatus ValidateBatchFiles(BatchOptions options, const Context& context);

/// Runs a judge on the two files of a batch, "-" for standard input. What is wrong with the files is complained of. A
/// folder of theirs, or of the outputs, that is silent for that long ends the program.
ExitStatus OnBatchFiles(const std::string& payments, const std::string& records,
                        const std::function<ExitStatus(ByteSource& payments, ByteSource& records)>& judge,
                        const std::vector<std::string>& outputs = {}, std::chrono::seconds patience = kUsualPatience);

/// Reads a part such as "2/8". Nothing where it is none.
std::optional<BatchPart> PartOf(const std::string& text);

}  // namespace fiscalon
