#pragma once

#include <string>
#include <string_view>
#include <utility>

#include "core/forms/control.h"

namespace fiscalon {

/// The characters of a field that the next typed one replaces: positions counted from 0. An empty selection is the
/// caret.
struct Selection {
  int start = 0;   ///< the first one
  int length = 0;  ///< how many

  /// The position behind the last one.
  int End() const { return start + length; }
  /// Whether start and length are the same.
  bool operator==(const Selection&) const = default;
};

/// A field for text. Its `Change` fires whenever the text really changes, by the user or by code.
class TextField : public Control {
 public:
  using Design = FieldDesign;              ///< the options of a field
  using ArrayEvents = FieldHandlers<int>;  ///< the events of a member of an array

  /// On a form, by the name that handlers and scenarios know.
  TextField(fiscalon::Form& form, std::string name, const FieldDesign& design, FieldEvents events = {})
      : Control(form, ControlKind::TextField, std::move(name), CommonDesign::Of(design), CommonEvents::Of(events)),
        design_(design),
        change_(std::move(events.change)) {}

  /// The field as the form's definition has it.
  const FieldDesign& Designed() const { return design_; }
  /// How many characters can be typed or pasted; 0 for any number.
  int MaxLength() const { return design_.maxLength; }
  /// Whether it takes line ends.
  bool IsMultiLine() const { return design_.multiLine; }

  /// All that stands in the field.
  const std::string& Text() const;
  /// Sets the text from code, of any length. The selection collapses and the caret keeps its distance from the
  /// end, so that a filter that takes a character away does not disturb typing.
  void Text(std::string_view text);

  /// Whether the user can't change the text; code can.
  bool Locked() const;
  void Locked(bool locked);

  /// What the next typed character replaces.
  Selection Selected() const;
  /// Positions beyond the text are brought back to its end.
  void Select(Selection selection);
  /// Selects all of the text.
  void SelectAll();

  std::string ValueInComparisons() const override { return Text(); }

  void Reset(PassKey<fiscalon::Form> key) override;
  void FocusCame(PassKey<Focus> key, FocusBy by) override;
  KeyOutcome KeyMeans(PassKey<UserActs> key, int keyCode, int character) override;
  /// What the user's editing made of the text. What it put in ends at the caret, and is cut to the limit and, in a
  /// field of one line, at its first line end. Line ends of several lines become CR LF.
  void Edit(PassKey<UserActs> key, std::string text, Selection selection);
  /// The front end, where the user has selected, shows it already.
  void Select(PassKey<UserActs> /*key*/, Selection selection) { selection_ = Clamped(selection); }

 private:
  Selection Clamped(Selection selection) const;

  FieldDesign design_;
  Handler change_;
  std::string text_;
  Selection selection_;
  bool locked_ = false;
};

}  // namespace fiscalon
