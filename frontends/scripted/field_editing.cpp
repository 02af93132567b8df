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

}  // namespace

EditedText InsertText(const TextField& field, std::string_view inserted) {
  if (!field.Designed().multiLine)
    inserted = inserted.substr(0, inserted.find_first_of("\r\n"));
  const Selection selection = field.Selected();
  if (field.MaxLength() != Design::kNoLimit) {
    const int kept = static_cast<int>(field.Text().size()) - selection.length;
    inserted = inserted.substr(0, static_cast<size_t>(std::max(field.MaxLength() - kept, 0)));
  }
  if (inserted.empty())
    return {.text = field.Text(), .selection = selection};
  return Replace(field, selection, inserted);
}

EditedText EditByKey(const TextField& field, int keyCode) {
  const Selection selection = field.Selected();
  const int size = static_cast<int>(field.Text().size());
  switch (keyCode) {
    case key::kBackspace:
      if (selection.length > 0)
        return Erase(field, selection.start, selection.length);
      return selection.start > 0 ? Erase(field, selection.start - 1, 1) : MoveCaret(field, 0);
    case key::kDelete:
      if (selection.length > 0)
        return Erase(field, selection.start, selection.length);
      return selection.start < size ? Erase(field, selection.start, 1) : MoveCaret(field, size);
    case key::kLeft:
      return MoveCaret(field, selection.length > 0 ? selection.start : std::max(selection.start - 1, 0));
    case key::kRight:
      return MoveCaret(field, selection.length > 0 ? selection.End() : std::min(selection.start + 1, size));
    case key::kHome:
      return MoveCaret(field, 0);
    case key::kEnd:
      return MoveCaret(field, size);
    default:
      return {.text = field.Text(), .selection = selection};
  }
}

}  // namespace fiscalon
