#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "core/forms/text_field.h"

namespace fiscalon {

/// A text and its selection after an edit.
struct EditedText {
  std::string text = {};
  Selection selection = {};

  bool operator==(const EditedText&) const = default;
};

/// Edits text fields where the platform has no editor: for front ends that draw their fields themselves, or show none.
/// What comes of an edit is theirs to report (`UserActs::EditText`, or `SelectText` where the text stays): the field
/// itself is left alone. A line end is one character.
class FieldEditor {
 public:
  /// What a key makes of a field that the form has left it to: a character is typed; Left, Right, Home and End move the
  /// caret, with Ctrl by words or to the ends of the text, Up and Down by lines, all of them with Shift selecting;
  /// Backspace and Delete erase, with Ctrl a word; editors' commands copy, cut, paste, undo, redo and select all. Any
  /// other key does nothing.
  EditedText Key(const TextField& field, const KeyStroke& stroke, int character);

  // What has no key of its own on every keyboard.

  /// Replaces the selection, cut so that the field's limit holds.
  EditedText Paste(const TextField& field, std::string_view text);
  EditedText EraseToLineStart(const TextField& field);
  EditedText EraseToLineEnd(const TextField& field);
  EditedText EraseWordBefore(const TextField& field);

  /// Where the caret stands: that end of the selection which moves.
  int Caret(const TextField& field) const;

 private:
  enum class Extend { No, Yes };

  EditedText Command(const TextField& field, const KeyStroke& stroke);
  EditedText Move(const TextField& field, const KeyStroke& stroke);
  EditedText MoveTo(const TextField& field, int position, Extend extend);
  EditedText EraseByKey(const TextField& field, int keyCode, bool wordwise);
  EditedText Typed(const TextField& field, std::string_view text);
  /// Another text, which can be undone.
  EditedText Changed(const TextField& field, EditedText edited);
  EditedText GoBack(const TextField& field, std::vector<EditedText>& from, std::vector<EditedText>& to);

  /// Another field has a history of its own, and code that selects leaves the caret at the end.
  void Attend(const TextField& field);

  const TextField* field_ = nullptr;
  Selection selection_ = {};
  bool caretIsAtStart_ = false;
  /// What is typed at one go is undone at one go: where the next character would stand.
  int typedUpTo_ = -1;
  std::vector<EditedText> undo_;
  std::vector<EditedText> redo_;
  std::string clipboard_;
};

}  // namespace fiscalon
