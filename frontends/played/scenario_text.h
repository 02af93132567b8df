#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "core/forms/toolkit.h"

namespace fiscalon {

/// A text in the code page as a scenario writes it.
std::string QuotedFromCodePage(std::string_view text);

/// The text of a scenario as it grows while somebody acts: each line with the answers that stand before it, since they
/// are given while it is played, and with what is expected behind it.
class ScenarioText {
 public:
  void Begin(const std::string& line) { steps_.push_back({.line = line}); }
  /// Begins a line in the place of the last one, where that is what it says.
  void BeginInPlaceOf(const std::string& replaced, const std::string& line);
  /// The line before the last one begins here. Neither sees what the last one does.
  void InsertBeforeLast(const std::vector<std::string>& lines);
  void ReplaceLast(const std::string& line) { steps_.back().line = line; }

  enum class Typing {
    /// In a line with what was typed just before, if nothing was to be seen since.
    GoesOn,
    Begins
  };
  void Type(char character, Typing how);

  // What the last line has led to. Before the first line nothing counts.
  void Answered(const BoxRequest& box, MessageAnswer answer);
  void Expect(const std::string& line);

  std::string Text() const;

 private:
  struct Step {
    std::string line = {};
    /// What the line types; it grows by what is typed next.
    std::string typed = {};
    std::vector<BoxRequest> boxes = {};
    std::vector<MessageAnswer> answers = {};
    std::vector<std::string> expected = {};
  };

  static std::string AnswersTo(const Step& step);

  std::vector<Step> steps_;
};

}  // namespace fiscalon
