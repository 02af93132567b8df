#pragma once

#include <deque>
#include <map>
#include <optional>
#include <variant>

#include "core/forms/keys.h"

namespace fiscalon {

class Control;

/// The `LostFocus` of the control that has just been left.
struct PostedLostFocus {
  Control* control = nullptr;
};
/// A keystroke of `SendKeys`.
struct PostedKey {
  KeyStroke stroke = {};
};
using PostedEvent = std::variant<PostedLostFocus, PostedKey>;

/// What waits until the running handler has returned, first in, first out.
class EventQueue {
 public:
  /// Within one act of the user a control's `LostFocus` runs at most so often: two fields that pull the focus
  /// from each other would go on for ever.
  static constexpr int kLostFocusPerAct = 2;

  void Post(const PostedEvent& event) { events_.push_back(event); }
  /// The next event that is due; nothing when the queue is empty.
  std::optional<PostedEvent> Take();

  void BeginAct() { lostFocusRuns_.clear(); }
  void Drop() { events_.clear(); }

 private:
  /// Counts the event and says whether it may still run within this act.
  bool MayRun(const PostedEvent& event);

  std::deque<PostedEvent> events_;
  std::map<const Control*, int> lostFocusRuns_;
};

}  // namespace fiscalon
