#include "core/forms/event_queue.h"

namespace fiscalon {

std::optional<PostedEvent> EventQueue::Take() {
  while (!events_.empty()) {
    const PostedEvent event = events_.front();
    events_.pop_front();
    if (MayRun(event))
      return event;
  }
  return std::nullopt;
}

bool EventQueue::MayRun(const PostedEvent& event) {
  const auto* left = std::get_if<PostedLostFocus>(&event);
  return left == nullptr || ++lostFocusRuns_[left->control] <= kLostFocusPerAct;
}

}  // namespace fiscalon
