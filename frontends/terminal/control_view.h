#pragma once

#include <memory>
#include <optional>

#include "core/forms/control.h"
#include "core/forms/shown_control.h"
#include "core/forms/watched_acts.h"
#include "frontends/terminal/cell_layout.h"
#include "frontends/terminal/screen.h"

namespace fiscalon::terminal {

enum class Focused { No, Yes };

/// A control as a terminal shows it. What it shows is the control's at the moment it is drawn; a view keeps only what
/// the form knows nothing of, such as which part of a long text is seen.
class ControlView {
 public:
  ControlView(Control& model, WatchedActs& acts) : model_(model), acts_(acts) {}
  ControlView(const ControlView&) = delete;
  ControlView& operator=(const ControlView&) = delete;
  virtual ~ControlView() = default;

  Control& Model() const { return model_; }

  /// There is room on the screen for so many rows more than usual.
  virtual void TakeMoreRows(int /*rows*/) {}

  /// The control stands out, such as a heading or a total.
  void StandOut() { standsOut_ = true; }

  /// The place that it takes where there is that much room in the line.
  virtual Size Wanted(int room, Grow grow) const = 0;
  virtual void Draw(Screen& screen, const Rect& place, Focused focused) = 0;
  /// Where the cursor stands while the control has the focus.
  virtual Point CursorIn(const Rect& place) const { return {place.x + 1, place.y}; }

  /// Keys that never come to the form: those of a list that is dropped down.
  virtual bool TakesKey(const KeyStroke& /*stroke*/) { return false; }
  /// A key that the form has left to the control's own editing.
  virtual void Edit(const KeyStroke& /*stroke*/, const KeyOutcome& /*outcome*/) {}
  virtual void Paste(std::string_view /*text*/) {}

  // The mouse. Where a press clicks, so does a release that comes while the mouse is still there.
  virtual void Press(Point at, const Rect& place);
  virtual void Drag(Point /*at*/, const Rect& /*place*/) {}
  virtual void Release(Point at, const Rect& place);
  /// Whether the wheel turns anything in it.
  virtual bool TurnWheel(int /*rows*/) { return false; }

  /// What opens over the form, such as the rows of a list that is dropped down: drawn when all else is.
  virtual void DrawOver(Screen& /*screen*/, const Rect& /*place*/) {}
  /// Where that stands; nothing while nothing is open.
  virtual std::optional<Rect> Over() const { return std::nullopt; }
  virtual void PressOver(Point /*at*/) {}
  virtual void CloseOver() {}

  /// What a user sees of it, read off the cells.
  virtual ShownControl Read(const Screen& seen, const Rect& place) const = 0;

 protected:
  WatchedActs& Acts() const { return acts_; }
  bool StandsOut() const { return standsOut_; }
  bool IsEnabled() const { return model_.EnabledInFrames(); }

  // What can't be used is faint, and stands between other edges, so that it needs no colour.
  static constexpr char32_t kDisabledEdge = U':';
  /// Of a text that can be used or can't.
  static Style TextStyle(bool enabled) { return {.ink = enabled ? Ink::Normal : Ink::Faint}; }
  /// Behind such a text: so that its end, which may be blank, can be told.
  static Style RoomStyle(bool enabled) { return {.ink = enabled ? Ink::Faint : Ink::Normal}; }
  /// How many cells from there on are text.
  static int LengthOfText(const Screen& seen, Point from, int right, bool enabled);
  /// The caption of a button with its access key underlined.
  static void PutCaption(Screen& screen, Point at, std::string_view caption, Style style);
  /// The same read back, with its mark.
  static std::string ReadCaption(const Screen& seen, Point from, int length);

 private:
  Control& model_;
  WatchedActs& acts_;
  bool standsOut_ = false;
  bool pressed_ = false;
};

/// The view of a control of that kind.
std::unique_ptr<ControlView> MakeView(Control& control, WatchedActs& acts);

}  // namespace fiscalon::terminal
