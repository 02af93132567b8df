#include "core/forms/field_editor.h"

#include <algorithm>
#include <cstdlib>
#include <utility>

#include "core/forms/keys.h"

namespace fiscalon {
namespace {

EditedText AsItIs(const TextField& field) {
  return {.text = field.Text(), .selection = field.Selected()};
}

EditedText Replaced(const TextField& field, Selection replaced, std::string_view by) {
  std::string text = field.Text();
  text.replace(static_cast<size_t>(replaced.start), static_cast<size_t>(replaced.length), by);
  return {.text = std::move(text), .selection = {.start = replaced.start + static_cast<int>(by.size())}};
}

EditedText Erased(const TextField& field, int from, int to) {
  return Replaced(field, {.start = from, .length = to - from}, "");
}

/// With the selection replaced by as much of a text as the field's limit lets in.
EditedText Inserted(const TextField& field, std::string_view inserted) {
  const Selection selection = field.Selected();
  if (field.MaxLength() != FieldDesign::kNoLimit) {
    const int kept = static_cast<int>(field.Text().size()) - selection.length;
    inserted = inserted.substr(0, static_cast<size_t>(std::max(field.MaxLength() - kept, 0)));
  }
  return inserted.empty() ? AsItIs(field) : Replaced(field, selection, inserted);
}

std::string_view Selected(const TextField& field) {
  const Selection selection = field.Selected();
  return std::string_view(field.Text())
      .substr(static_cast<size_t>(selection.start), static_cast<size_t>(selection.length));
}

/// Where the next character ends: CR LF is one.
int After(std::string_view text, int position) {
  const std::string_view rest = text.substr(static_cast<size_t>(position));
  return position + (rest.starts_with("\r\n") ? 2 : static_cast<int>(std::min<size_t>(rest.size(), 1)));
}

int Before(std::string_view text, int position) {
  const std::string_view head = text.substr(0, static_cast<size_t>(position));
  return position - (head.ends_with("\r\n") ? 2 : static_cast<int>(std::min<size_t>(head.size(), 1)));
}

int LineStart(std::string_view text, int position) {
  const size_t end = text.substr(0, static_cast<size_t>(position)).find_last_of("\r\n");
  return end == std::string_view::npos ? 0 : static_cast<int>(end) + 1;
}

int LineEnd(std::string_view text, int position) {
  return static_cast<int>(std::min(text.find_first_of("\r\n", static_cast<size_t>(position)), text.size()));
}

bool IsBlank(std::string_view text, int position) {
  return std::string_view(" \r\n").find(text[static_cast<size_t>(position)]) != std::string_view::npos;
}

int WordStart(std::string_view text, int position) {
  while (position > 0 && IsBlank(text, position - 1)) --position;
  while (position > 0 && !IsBlank(text, position - 1)) --position;
  return position;
}

/// Where the next word begins.
int NextWord(std::string_view text, int position) {
  const int size = static_cast<int>(text.size());
  while (position < size && !IsBlank(text, position)) ++position;
  while (position < size && IsBlank(text, position)) ++position;
  return position;
}

int LineAbove(std::string_view text, int position) {
  const int start = LineStart(text, position);
  if (start == 0)
    return position;
  const int above = LineStart(text, Before(text, start));
  return std::min(above + position - start, LineEnd(text, above));
}

int LineBelow(std::string_view text, int position) {
  const int end = LineEnd(text, position);
  if (end == static_cast<int>(text.size()))
    return position;
  const int below = After(text, end);
  return std::min(below + position - LineStart(text, position), LineEnd(text, below));
}

bool Holds(const KeyStroke& stroke, int modifier) {
  return (stroke.shift & modifier) != 0;
}

}  // namespace

EditedText FieldEditor::Key(const TextField& field, const KeyStroke& stroke, int character) {
  Attend(field);
  if (IsEditorCommand(stroke))
    return Command(field, stroke);
  if (character == key::kEnter)
    return Typed(field, "\r\n");
  if (character >= ' ')
    return Typed(field, std::string(1, static_cast<char>(character)));
  const int keyCode = character == 0 ? stroke.keyCode : character;
  if (keyCode == key::kBackspace || keyCode == key::kDelete)
    return EraseByKey(field, keyCode, Holds(stroke, shift_state::kControl));
  return Move(field, stroke);
}

int FieldEditor::Caret(const TextField& field) const {
  const Selection selection = field.Selected();
  return field_ == &field && selection_ == selection && caretIsAtStart_ ? selection.start : selection.End();
}

EditedText FieldEditor::Command(const TextField& field, const KeyStroke& stroke) {
  switch (stroke.keyCode) {
    case 'A':
      return {.text = field.Text(), .selection = {.length = static_cast<int>(field.Text().size())}};
    case 'Z':
      return GoBack(field, undo_, redo_);
    case 'Y':
      return GoBack(field, redo_, undo_);
    case 'V':
      return Paste(field, clipboard_);
    case key::kInsert:
      if (Holds(stroke, shift_state::kShift))
        return Paste(field, clipboard_);
      break;
    default:
      break;
  }
  if (const std::string_view selected = Selected(field); !selected.empty())
    clipboard_ = selected;
  const bool cuts = stroke.keyCode == 'X' || stroke.keyCode == key::kDelete;
  return cuts ? Changed(field, Replaced(field, field.Selected(), "")) : AsItIs(field);
}

EditedText FieldEditor::Move(const TextField& field, const KeyStroke& stroke) {
  const std::string& text = field.Text();
  const Selection selection = field.Selected();
  const Extend extend = Holds(stroke, shift_state::kShift) ? Extend::Yes : Extend::No;
  const bool far = Holds(stroke, shift_state::kControl);
  const bool collapses = extend == Extend::No && selection.length > 0 && !far;
  // Without Shift a key goes on from that end of the selection which lies in its direction.
  const int caret = caretIsAtStart_ ? selection.start : selection.End();
  const int left = extend == Extend::Yes ? caret : selection.start;
  const int right = extend == Extend::Yes ? caret : selection.End();
  switch (stroke.keyCode) {
    case key::kLeft:
      return MoveTo(field, collapses ? left : far ? WordStart(text, left) : Before(text, left), extend);
    case key::kRight:
      return MoveTo(field, collapses ? right : far ? NextWord(text, right) : After(text, right), extend);
    case key::kHome:
      return MoveTo(field, far ? 0 : LineStart(text, left), extend);
    case key::kEnd:
      return MoveTo(field, far ? static_cast<int>(text.size()) : LineEnd(text, right), extend);
    case key::kUp:
      return field.IsMultiLine() ? MoveTo(field, LineAbove(text, left), extend) : AsItIs(field);
    case key::kDown:
      return field.IsMultiLine() ? MoveTo(field, LineBelow(text, right), extend) : AsItIs(field);
    default:
      return AsItIs(field);
  }
}

EditedText FieldEditor::MoveTo(const TextField& field, int position, Extend extend) {
  const Selection selection = field.Selected();
  const int stays = extend == Extend::No ? position : caretIsAtStart_ ? selection.End() : selection.start;
  caretIsAtStart_ = position < stays;
  selection_ = {.start = std::min(position, stays), .length = std::abs(position - stays)};
  typedUpTo_ = -1;
  return {.text = field.Text(), .selection = selection_};
}

EditedText FieldEditor::EraseByKey(const TextField& field, int keyCode, bool wordwise) {
  const std::string& text = field.Text();
  const Selection selection = field.Selected();
  const int caret = selection.start;
  if (selection.length > 0)
    return Changed(field, Replaced(field, selection, ""));
  if (keyCode == key::kBackspace)
    return Changed(field, Erased(field, wordwise ? WordStart(text, caret) : Before(text, caret), caret));
  return Changed(field, Erased(field, caret, wordwise ? NextWord(text, caret) : After(text, caret)));
}

EditedText FieldEditor::Typed(const TextField& field, std::string_view text) {
  const bool goesOn = field.Selected() == Selection{.start = typedUpTo_};
  EditedText edited = Inserted(field, text);
  if (!goesOn || undo_.empty())
    edited = Changed(field, std::move(edited));
  typedUpTo_ = edited.selection.start;
  return edited;
}

EditedText FieldEditor::Paste(const TextField& field, std::string_view text) {
  Attend(field);
  return Changed(field, Inserted(field, text));
}

EditedText FieldEditor::EraseToLineStart(const TextField& field) {
  Attend(field);
  const Selection selection = field.Selected();
  return Changed(field, Erased(field, LineStart(field.Text(), selection.start), selection.End()));
}

EditedText FieldEditor::EraseToLineEnd(const TextField& field) {
  Attend(field);
  const Selection selection = field.Selected();
  return Changed(field, Erased(field, selection.start, LineEnd(field.Text(), selection.End())));
}

EditedText FieldEditor::EraseWordBefore(const TextField& field) {
  Attend(field);
  return EraseByKey(field, key::kBackspace, true);
}

EditedText FieldEditor::Changed(const TextField& field, EditedText edited) {
  constexpr size_t kMostSteps = 100;
  if (edited.text == field.Text() || field.Locked())
    return edited;
  undo_.push_back(AsItIs(field));
  if (undo_.size() > kMostSteps)
    undo_.erase(undo_.begin());
  redo_.clear();
  typedUpTo_ = -1;
  return edited;
}

EditedText FieldEditor::GoBack(const TextField& field, std::vector<EditedText>& from, std::vector<EditedText>& to) {
  // What came to nothing, since a handler took it back, is no step.
  while (!from.empty() && from.back().text == field.Text()) from.pop_back();
  if (from.empty() || field.Locked())
    return AsItIs(field);
  to.push_back(AsItIs(field));
  EditedText before = std::move(from.back());
  from.pop_back();
  typedUpTo_ = -1;
  return before;
}

void FieldEditor::Attend(const TextField& field) {
  if (field_ != &field) {
    undo_.clear();
    redo_.clear();
    typedUpTo_ = -1;
  }
  if (field_ != &field || selection_ != field.Selected())
    caretIsAtStart_ = false;
  field_ = &field;
  selection_ = field.Selected();
}

}  // namespace fiscalon
