#pragma once

#include <ostream>
#include <string>
#include <string_view>
#include <vector>

#include "frontends/played/scenario_player.h"
#include "tools/fiscalon/context.h"

namespace fiscalon {

/// Tells a scenario while it is played, to somebody who sees the program for the first time: its comments and lines,
/// the form drawn when it opens and whenever acts have changed it, the boxes, how it ended, and the records taken
/// apart.
class Narrator {
 public:
  /// `text` is what the scenario was parsed from. Both must outlive the narrator.
  Narrator(const Scenario& scenario, std::string_view text, const Context& context, std::ostream& out);

  PlayWatcher Watcher();

 private:
  void LineBegins(const ScenarioLine& line);
  void LineEnds(const ScenarioLine& line, Form* form);
  void BoxAnswered(const BoxRequest& box, MessageAnswer answer, Form* form);
  void ShowEnded(const std::string& ending);
  void Ended(const FoundRecords& found);

  /// Prints the lines of the file that are the scenario's up to that one, comments too.
  void TellUpTo(size_t line);
  bool IsOwn(size_t line) const;
  /// Draws the form if it looks different from when it was last drawn.
  void DrawIfChanged(Form& form);
  /// Prints a piece that stands apart from the lines around it.
  void SetApart(std::string_view piece);
  /// Whether the next line goes on acting, with nothing said between.
  bool ActsGoOn(const ScenarioLine& line) const;

  const Scenario& scenario_;
  const Context& context_;
  std::ostream& out_;
  std::vector<std::string_view> lines_;
  size_t told_ = 0;
  bool stoodApart_ = false;
  std::string screen_;
  std::string drawn_;
};

}  // namespace fiscalon
