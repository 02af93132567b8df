#pragma once

#include "core/forms/field_editor.h"
#include "core/forms/text_field.h"
#include "frontends/terminal/control_view.h"
#include "frontends/terminal/wrapped_text.h"

namespace fiscalon::terminal {

/// A field for text, of one line or several: [text____], or <text    > where it is locked, or :text    : where it is
/// disabled. It is as wide as usual, and wider where its text is and the line has room; a text that is longer still
/// scrolls, with « and » for what lies beyond.
class TextView final : public ControlView {
 public:
  TextView(TextField& field, WatchedActs& acts) : ControlView(field, acts), field_(field) {}

  Size Wanted(int room, Grow grow) const override;
  void Draw(Screen& screen, const Rect& place, Focused focused) override;
  Point CursorIn(const Rect& place) const override;

  void Edit(const KeyStroke& stroke, const KeyOutcome& outcome) override;
  bool TakesKey(const KeyStroke& stroke) override;
  void Paste(std::string_view text) override;

  /// A press on an edge gives the focus and leaves the caret alone.
  void Press(Point at, const Rect& place) override;
  void Drag(Point at, const Rect& place) override;

  ShownControl Read(const Screen& seen, const Rect& place) const override;

 private:
  /// What of the text stands in each row.
  std::vector<WrappedLine> Rows(const Rect& place) const;
  /// The column of a row's first character.
  int Begin(const Rect& place, const WrappedLine& row) const;
  int Caret() const { return editor_.Caret(field_); }
  int PositionAt(Point at, const Rect& place) const;
  void DrawEdges(Screen& screen, const Rect& place, const std::vector<WrappedLine>& rows) const;
  /// The row in which a position of the text stands.
  static size_t RowOf(const std::vector<WrappedLine>& rows, int position);
  void ScrollTo(int position, int room);
  void Report(const EditedText& edited, EditAct::Origin origin);

  TextField& field_;
  FieldEditor editor_;
  /// The first character that is seen, in a field of one line.
  int first_ = 0;
  /// Where the mouse went down; nowhere while it is not.
  int dragFrom_ = -1;
};

}  // namespace fiscalon::terminal
