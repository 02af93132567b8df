#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/forms/text_field.h"

namespace fiscalon {

/// Where the caret of somebody is who plays the recorded lines: what that player has selected in the field that has the
/// focus. It parts from the user's by the mouse and by keys that no scenario knows, and is brought there by keys only
/// once something is done to the text.
class PlayerCaret {
 public:
  /// A form is up; null where no field has the focus.
  void FormOpens(const TextField* active);

  // Around each act of the user.
  void ActBegins(const TextField* active);
  void ActEnded(const TextField* active);

  /// Whether the player's selection is not the user's.
  bool IsElsewhere(const TextField& field) const { return played_ != field.Selected(); }
  bool Has(Selection selection) const { return played_ == selection; }

  // What the act that has begun does to it.
  /// It is the user's once the act is over.
  void CatchesUp() { catchesUp_ = true; }
  /// The act is recorded as a paste, which leaves another selection for the player than for the user.
  void Pastes(Selection user, Selection player) { paste_ = {.user = user, .player = player}; }

  /// It is the user's now.
  void IsIn(const TextField& field) { played_ = field.Selected(); }

  /// The keys that bring it to the end of a selection in that text and take so many characters before it away.
  std::vector<std::string> KeysThatErase(std::string_view text, Selection selection, int characters);

 private:
  struct Paste {
    Selection user = {};
    Selection player = {};
  };

  /// Nothing where it may be anywhere in the field.
  std::optional<Selection> played_ = Selection{};
  bool catchesUp_ = true;
  std::optional<Paste> paste_ = {};
  const TextField* activeBefore_ = nullptr;
  Selection selectedBefore_ = {};
};

}  // namespace fiscalon
