#include "core/forms/text_field.h"

#include <algorithm>
#include <utility>

namespace fiscalon {

void TextField::Reset() {
  Control::Reset();
  text_.clear();
  selection_ = {};
  locked_ = Designed().locked;
}

const std::string& TextField::Text() const {
  Touch();
  return text_;
}

void TextField::Text(std::string_view text) {
  Touch();
  if (text == text_)
    return;
  const int fromEnd = static_cast<int>(text_.size()) - selection_.End();
  text_ = text;
  selection_ = Clamped({.start = static_cast<int>(text_.size()) - fromEnd});
  Changed();
  Fire("Change", Handlers().change);
}

void TextField::Edit(std::string text, Selection selection) {
  // A text that code has made too long may stay, but grows no longer. What the edit put in ends at the caret.
  const int limit = std::max(MaxLength(), static_cast<int>(text_.size()));
  const int excess = static_cast<int>(text.size()) - limit;
  if (MaxLength() != Design::kNoLimit && excess > 0) {
    const int end = std::clamp(selection.End(), excess, static_cast<int>(text.size()));
    selection = {.start = end - excess};
    text.erase(static_cast<size_t>(selection.start), static_cast<size_t>(excess));
  }
  const bool changed = text != text_;
  text_ = std::move(text);
  selection_ = Clamped(selection);
  Changed();
  if (changed)
    Fire("Change", Handlers().change);
}

bool TextField::Locked() const {
  Touch();
  return locked_;
}

void TextField::Locked(bool locked) {
  Touch();
  locked_ = locked;
  Changed();
}

Selection TextField::Selected() const {
  Touch();
  return selection_;
}

void TextField::Select(Selection selection) {
  Touch();
  selection_ = Clamped(selection);
  Changed();
}

void TextField::SelectAll() {
  Select({.start = 0, .length = static_cast<int>(Text().size())});
}

Selection TextField::Clamped(Selection selection) const {
  const int size = static_cast<int>(text_.size());
  const int start = std::clamp(selection.start, 0, size);
  return {.start = start, .length = std::clamp(selection.length, 0, size - start)};
}

}  // namespace fiscalon
