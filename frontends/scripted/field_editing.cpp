#include "frontends/scripted/field_editing.h"

#include <algorithm>

#include "core/forms/keys.h"

namespace fiscalon {
namespace {

EditedText Replace(const TextField& field, Selection replaced, std::string_view by) {
  std::string text = field.Text();
  text.replace(static_cast<size_t>(replaced.start), static_cast<size_t>(replaced.length), by);
  return {.text = std::move(text), .selection = {.start = replaced.start + static_cast<int>(by.size())}};
}

EditedText Erase(const TextField& field, int start, int length) {
  return Replace(field, {.start = start, .length = length}, "");
}

EditedText MoveCaret(const TextField& field, int position) {
  return {.text = field.Text(), .selection = {.start = position}};
}

/// The length of the character at a position: CR LF is one.
int LengthAt(std::string_view text, int position) {
  const std::string_view rest = text.substr(static_cast<size_t>(position));
  return rest.starts_with("\r\n") ? 2 : static_cast<int>(std::min<size_t>(rest.size(), 1));
}

int LengthBefore(std::string_view text, int position) {
  const std::string_view head = text.substr(0, static_cast<size_t>(position));
  return head.ends_with("\r\n") ? 2 : static_cast<int>(std::min<size_t>(head.size(), 1));
}

int LineStart(std::string_view text, int position) {
  const size_t end = text.substr(0, static_cast<size_t>(position)).find_last_of("\r\n");
  return end == std::string_view::npos ? 0 : static_cast<int>(end) + 1;
}

int LineEnd(std::string_view text, int position) {
  return static_cast<int>(std::min(text.find_first_of("\r\n", static_cast<size_t>(position)), text.size()));
}

}  // namespace

EditedText InsertText(const TextField& field, std::string_view inserted) {
  const Selection selection = field.Selected();
  if (field.MaxLength() != FieldDesign::kNoLimit) {
    const int kept = static_cast<int>(field.Text().size()) - selection.length;
    inserted = inserted.substr(0, static_cast<size_t>(std::max(field.MaxLength() - kept, 0)));
  }
  if (inserted.empty())
    return {.text = field.Text(), .selection = selection};
  return Replace(field, selection, inserted);
}

EditedText EditByKey(const TextField& field, int keyCode) {
  const Selection selection = field.Selected();
  const std::string& text = field.Text();
  const int caret = selection.start;
  switch (keyCode) {
    case key::kBackspace:
      if (selection.length > 0)
        return Erase(field, caret, selection.length);
      return Erase(field, caret - LengthBefore(text, caret), LengthBefore(text, caret));
    case key::kDelete:
      return Erase(field, caret, selection.length > 0 ? selection.length : LengthAt(text, caret));
    case key::kLeft:
      return MoveCaret(field, selection.length > 0 ? caret : caret - LengthBefore(text, caret));
    case key::kRight:
      return MoveCaret(field, selection.length > 0 ? selection.End() : caret + LengthAt(text, caret));
    case key::kHome:
      return MoveCaret(field, LineStart(text, caret));
    case key::kEnd:
      return MoveCaret(field, LineEnd(text, selection.End()));
    default:
      return {.text = field.Text(), .selection = selection};
  }
}

}  // namespace fiscalon
