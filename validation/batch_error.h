#pragma once

#include <cstdint>
#include <exception>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace fiscalon {

/// One thing that keeps a batch from being judged.
struct BatchProblem {
  /// The file's name as it was given.
  std::string file = {};
  /// From 1; 0 where the problem is the file's own.
  uint64_t line = 0;
  /// In Windows-1252, as far as it quotes what stands in the file.
  std::string reason = {};

  /// "batch.pc4:12: a line of 159 characters; a record has 160"
  std::string Text() const {
    std::string text = file;
    if (line != 0)
      text.append(":").append(std::to_string(line));
    return text.append(": ").append(reason);
  }

  /// Whether file, line and reason are the same.
  friend bool operator==(const BatchProblem&, const BatchProblem&) = default;
};

/// A text of a file as a problem quotes it: in quotes, and no more of it than fits on a line.
inline std::string Quoted(std::string_view text) {
  constexpr size_t kMostShown = 40;
  const std::string shown(text.substr(0, kMostShown));
  return "'" + shown + (text.size() > kMostShown ? "...'" : "'");
}

/// A batch whose files can't be read or don't line up: no verdict of it counts.
class BatchError : public std::exception {
 public:
  /// Of several problems.
  explicit BatchError(std::vector<BatchProblem> problems) : problems_(std::move(problems)) {
    for (const BatchProblem& problem : problems_) {
      if (!text_.empty())
        text_ += '\n';
      text_ += problem.Text();
    }
  }
  /// Of one, which is the file's own.
  BatchError(std::string file, std::string reason)
      : BatchError({BatchProblem{std::move(file), 0, std::move(reason)}}) {}

  /// What is wrong, twenty of them at most.
  const std::vector<BatchProblem>& Problems() const { return problems_; }
  /// A line for each problem.
  const char* what() const noexcept override { return text_.c_str(); }

 private:
  std::vector<BatchProblem> problems_;
  std::string text_;
};

}  // namespace fiscalon
