#include "frontends/played/player_caret.h"

#include <utility>

namespace fiscalon {

void PlayerCaret::FormOpens(const TextField* active) {
  if (active != nullptr)
    played_ = active->Selected();
}

void PlayerCaret::ActBegins(const TextField* active) {
  activeBefore_ = active;
  selectedBefore_ = active == nullptr ? Selection{} : active->Selected();
  catchesUp_ = active == nullptr || !IsElsewhere(*active);
}

void PlayerCaret::ActEnded(const TextField* active) {
  const auto paste = std::exchange(paste_, std::nullopt);
  if (active == nullptr)
    return;
  // What a handler selects is selected for a player too.
  const bool selected = active != activeBefore_ || active->Selected() != selectedBefore_;
  if (!catchesUp_ && !selected) {
    // A handler may have selected what the user had selected already.
    played_.reset();
    return;
  }
  played_ = active->Selected();
  // Undo and redo leave another selection than the paste that they have become. A handler's is the same for both.
  if (paste && active == activeBefore_ && played_ == paste->user)
    played_ = paste->player;
}

std::vector<std::string> PlayerCaret::KeysThatErase(std::string_view text, Selection selection, int characters) {
  std::vector<std::string> keys;
  auto caret = static_cast<int>(text.size());
  if (!played_) {
    keys.emplace_back("key End");
  } else if (played_->length > 0) {
    const bool toEnd = selection.End() > played_->start;
    keys.emplace_back(toEnd ? "key Right" : "key Left");
    caret = toEnd ? played_->End() : played_->start;
  } else {
    caret = played_->start;
  }
  for (; caret < selection.End(); ++caret) keys.emplace_back("key Right");
  for (; caret > selection.End(); --caret) keys.emplace_back("key Left");
  for (int i = 0; i < characters; ++i) keys.emplace_back("key Backspace");
  played_ = Selection{.start = selection.End() - characters};
  return keys;
}

}  // namespace fiscalon
