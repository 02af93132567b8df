#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "bindings/c/failure.h"
#include "validation/fault.h"

namespace fiscalon::c {

/// Verdicts as hosts get them, with their texts in UTF-8 and in one place, which never moves: where there is no room
/// for another verdict, `Fits` says so, and an empty one takes any.
class Verdicts {
 public:
  /// What a verdict tells, in the code page.
  struct Told {
    uint64_t row = 0;
    uint64_t line = 0;
    std::string_view seq = {};
    std::string_view screen = {};
    std::string_view reason = {};
    std::string_view lines = {};
    std::span<const Fault> faults = {};
  };

  bool Fits(const Told& told) const;
  void Add(const Told& told);
  void Clear();

  std::span<const fiscalon_verdict> Get() const { return verdicts_; }

 private:
  static size_t RoomFor(const Told& told);
  fiscalon_text Keep(std::string_view text);

  std::vector<fiscalon_verdict> verdicts_;
  std::vector<fiscalon_fault> faults_;
  std::string texts_;
};

}  // namespace fiscalon::c
