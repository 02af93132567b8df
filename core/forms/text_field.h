#pragma once

#include <string>
#include <string_view>

#include "core/forms/control.h"

namespace fiscalon {

/// The characters of a field that the next typed one replaces: positions counted from 0. An empty selection is the
/// caret.
struct Selection {
  int start = 0;
  int length = 0;

  int End() const { return start + length; }
  bool operator==(const Selection&) const = default;
};

/// A field for text. Its `Change` fires whenever the text really changes, by the user or by code.
class TextField : public Control {
 public:
  TextField(fiscalon::Form& form, std::string name, const Design& design, Events events = {})
      : Control(form, ControlKind::TextField, std::move(name), design, std::move(events)) {}

  const std::string& Text() const;
  /// Sets the text from code, of any length. The selection collapses and the caret keeps its distance from the
  /// end, so that a filter that takes a character away does not disturb typing.
  void Text(std::string_view text);

  int MaxLength() const { return Designed().maxLength; }

  bool Locked() const;
  void Locked(bool locked);

  Selection Selected() const;
  /// Positions beyond the text are brought back to its end.
  void Select(Selection selection);
  void SelectAll();

  std::string DefaultValue() const override { return Text(); }

 private:
  friend class UserActs;

  void Reset() override;
  /// What the user's editing made of the text, within the limit.
  void Edit(std::string text, Selection selection);
  Selection Clamped(Selection selection) const;

  std::string text_;
  Selection selection_;
  bool locked_ = false;
};

}  // namespace fiscalon
