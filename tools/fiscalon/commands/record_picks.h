#pragma once

#include <cstdint>
#include <limits>
#include <optional>
#include <string>
#include <vector>

#include "tools/reading/shown_record.h"

namespace fiscalon {

/// Which records `show` is told to pick, as the user writes it.
struct PickOptions {
  /// Letters of record kinds.
  std::vector<std::string> only = {};
  /// "12", "12-20" or "12-".
  std::optional<std::string> line = {};
  std::optional<std::string> seq = {};
};

/// Picks records; without any option all of them.
class RecordPicks {
 public:
  /// A `UsageError` for an option that can't be read.
  explicit RecordPicks(const PickOptions& options);

  bool AreAll() const { return areAll_; }
  /// Whether nothing is picked behind that line.
  bool EndBehind(uint64_t line) const { return line >= lastLine_; }
  bool Hold(const ShownRecord& record) const {
    return areAll_ || (record.number >= firstLine_ && record.number <= lastLine_ && HoldKind(record) &&
                       (seq_.empty() || record.Seq() == seq_));
  }

 private:
  bool HoldKind(const ShownRecord& record) const;
  void ReadLines(const std::string& text);
  void ReadSequence(const std::string& text);

  std::string kinds_;
  std::string seq_;
  uint64_t firstLine_ = 1;
  uint64_t lastLine_ = std::numeric_limits<uint64_t>::max();
  bool areAll_ = true;
};

}  // namespace fiscalon
