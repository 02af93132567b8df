#include "core/forms/text_field.h"

#include <algorithm>
#include <utility>

namespace fiscalon {
namespace {

/// A text with the caret behind what an edit has put in.
struct Edited {
  std::string text = {};
  int caret = 0;
};

/// Without what was put in behind its first line end.
Edited WithoutFurtherLines(const Edited& edited, int insertedAt) {
  const std::string_view inserted = std::string_view(edited.text).substr(0, static_cast<size_t>(edited.caret));
  const size_t end = inserted.find_first_of("\r\n", static_cast<size_t>(insertedAt));
  if (end == std::string_view::npos)
    return edited;
  return {.text = edited.text.substr(0, end) + edited.text.substr(inserted.size()), .caret = static_cast<int>(end)};
}

/// With CR LF for each CR or LF that stands alone.
Edited WithWholeLineEnds(const Edited& edited) {
  Edited whole;
  for (size_t i = 0; i < edited.text.size(); ++i) {
    if (static_cast<int>(i) == edited.caret)
      whole.caret = static_cast<int>(whole.text.size());
    const char character = edited.text[i];
    const bool pair = character == '\r' && i + 1 < edited.text.size() && edited.text[i + 1] == '\n';
    const bool afterPair = character == '\n' && i > 0 && edited.text[i - 1] == '\r';
    if ((character == '\r' && !pair) || (character == '\n' && !afterPair))
      whole.text += "\r\n";
    else
      whole.text += character;
  }
  if (edited.caret >= static_cast<int>(edited.text.size()))
    whole.caret = static_cast<int>(whole.text.size());
  return whole;
}

/// Without the last characters that were put in, as many as are too many, and without half a line end.
Edited Shortened(Edited edited, int excess) {
  const int end = std::clamp(edited.caret, excess, static_cast<int>(edited.text.size()));
  edited.text.erase(static_cast<size_t>(end - excess), static_cast<size_t>(excess));
  edited.caret = end - excess;
  const auto caret = static_cast<size_t>(edited.caret);
  if (caret > 0 && edited.text[caret - 1] == '\r' && (caret == edited.text.size() || edited.text[caret] != '\n'))
    edited.text.erase(static_cast<size_t>(--edited.caret), 1);
  return edited;
}

}  // namespace

void TextField::Reset(PassKey<fiscalon::Form> key) {
  Control::Reset(key);
  text_.clear();
  selection_ = {};
  locked_ = design_.locked;
}

void TextField::FocusCame(PassKey<Focus> /*key*/, FocusBy by) {
  if (by == FocusBy::KeyboardOrCode)
    SelectAll();
  else
    Select({.start = static_cast<int>(Text().size())});
}

KeyOutcome TextField::KeyMeans(PassKey<UserActs> /*key*/, int keyCode, int character) {
  const bool enters = character == key::kEnter || character == key::kLineFeed;
  // Of the control characters fields know Backspace, and line ends where there are lines.
  if (enters ? !IsMultiLine() : (character != 0 && character < ' ' && character != key::kBackspace))
    return {};
  const bool alters = character != 0 || keyCode == key::kDelete;
  if (alters && Locked())
    return {};
  return {.editing = true, .character = enters ? key::kEnter : character};
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
  Fire("Change", change_);
}

void TextField::Edit(PassKey<UserActs> /*key*/, std::string text, Selection selection) {
  // An edit that puts text in leaves a caret; a selection is of what was there.
  Edited edited = {.text = std::move(text), .caret = selection.End()};
  const bool endsLines = edited.text.find('\r') != std::string::npos || edited.text.find('\n') != std::string::npos;
  if (endsLines && IsMultiLine()) {
    edited = WithWholeLineEnds(edited);
  } else if (endsLines) {
    const auto same = std::mismatch(text_.begin(), text_.end(), edited.text.begin(), edited.text.end()).first;
    const int insertedAt = std::min(selection_.start, static_cast<int>(same - text_.begin()));
    const Edited line = WithoutFurtherLines(edited, insertedAt);
    // A paste that begins with a line end puts nothing in, and so it takes nothing away either.
    if (line.caret == insertedAt && line.text.size() < edited.text.size())
      return Changed();
    edited = line;
  }
  // What stays of a text that code has made too long may stay as it is, but nothing more goes in.
  const int kept = static_cast<int>(text_.size()) - selection_.length;
  const int excess = static_cast<int>(edited.text.size()) - std::max(MaxLength(), kept);
  if (MaxLength() != FieldDesign::kNoLimit && excess > 0) {
    if (kept >= MaxLength())
      return Changed();
    edited = Shortened(edited, excess);
  }
  const bool whole = edited.caret == selection.End();
  const bool changed = edited.text != text_;
  text_ = std::move(edited.text);
  selection_ = Clamped(whole ? selection : Selection{.start = edited.caret});
  Changed();
  if (changed)
    Fire("Change", change_);
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
