#pragma once

#include <cstdint>
#include <exception>
#include <string>
#include <utility>
#include <vector>

namespace fiscalon {

/// One thing that keeps a batch from being judged.
struct BatchProblem {
  /// The file's name as it was given.
  std::string file = {};
  /// From 1; 0 where the problem is the file's own.
  uint64_t line = 0;
  std::string reason = {};

  /// "batch.pc4:12: a line of 159 characters; a record has 160"
  std::string Text() const {
    std::string text = file;
    if (line != 0)
      text.append(":").append(std::to_string(line));
    return text.append(": ").append(reason);
  }

  friend bool operator==(const BatchProblem&, const BatchProblem&) = default;
};

/// A batch whose files can't be read or don't line up: no verdict of it counts.
class BatchError : public std::exception {
 public:
  explicit BatchError(std::vector<BatchProblem> problems) : problems_(std::move(problems)) {
    for (const BatchProblem& problem : problems_) {
      if (!text_.empty())
        text_ += '\n';
      text_ += problem.Text();
    }
  }
  BatchError(std::string file, std::string reason)
      : BatchError({BatchProblem{std::move(file), 0, std::move(reason)}}) {}

  const std::vector<BatchProblem>& Problems() const { return problems_; }
  /// A line for each problem.
  const char* what() const noexcept override { return text_.c_str(); }

 private:
  std::vector<BatchProblem> problems_;
  std::string text_;
};

}  // namespace fiscalon
