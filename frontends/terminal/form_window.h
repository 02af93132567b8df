#pragma once

#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string_view>
#include <vector>

#include "core/forms/form.h"
#include "core/forms/laid_out.h"
#include "core/forms/watched_acts.h"
#include "frontends/terminal/cell_layout.h"
#include "frontends/terminal/control_view.h"
#include "frontends/terminal/window.h"

namespace fiscalon::terminal {

/// A form on a screen, made from its controls and its layout alone. Keys, mouse and focus go to the form first. Title,
/// buttons and status stay where the rest does not fit and scrolls.
class FormWindow final : public Window, private FormObserver {
 public:
  /// The form must be up. It is observed until the window goes. The watcher, if any, hears of all acts.
  explicit FormWindow(Form& form, ActWatcher* watcher = nullptr);
  ~FormWindow() override;

  void Draw(Screen& screen) override;
  void Take(const Input& input) override;
  const Language& ShownIn() const override { return form_.ShownIn(); }

  /// The window closes for a reason that no key tells, such as the end of the session.
  void CloseFor(CloseReason reason) { acts_.Close(reason); }

  /// Hears of each handler that is about to run.
  std::function<void(std::string_view object, std::string_view event)> onHandler = {};

  // As it was drawn last.

  ControlView& ViewOf(const Control& control) const { return *views_.at(&control); }
  /// Where a control stands on the screen; nowhere if it is hidden, forgotten by the layout, or scrolled out of sight.
  std::optional<Rect> PlaceOf(const Control& control) const;
  /// The control that stands there, or null.
  const Control* ControlAt(Point at) const;
  /// All of the window.
  const Rect& Place() const { return window_; }
  Point TitleBegins() const { return {window_.x + kBeforeTitle, window_.y}; }
  Point CloseMark() const { return {window_.Right() - kBehindCloseMark, window_.y}; }

 private:
  static constexpr int kBeforeTitle = 3;
  static constexpr int kBehindCloseMark = 4;

  // FormObserver
  void ControlChanged(const Control& /*control*/) override {}
  void FocusMoved(const Control& control, FocusBy by) override;
  void HandlerRuns(std::string_view object, std::string_view event) override;

  void LayOut(Size screen);
  void PlaceButtons(int room);
  void FollowFocus();
  void DrawEdges(Screen& screen);
  void DrawBody(Screen& screen);
  void DrawStatus(Screen& screen);
  std::string KeysToPress(int room) const;
  /// The place of a control in the body, with that of what is read before it.
  std::optional<Rect> PlaceToSee(const Control& control) const;

  void TakeKey(const KeyStroke& stroke);
  void TakeMouse(const MouseInput& mouse);
  void PressMouse(Point at);
  void TurnWheel(Point at, int rows);
  bool ScrollsByKey(const KeyStroke& stroke);
  void ScrollBy(int rows);

  ControlView* FocusedView() const;
  /// The list that is dropped down, or null.
  ControlView* OpenView() const;
  Control* PressableAt(Point at) const;
  bool IsButton(const Control& control) const { return buttons_.contains(&control); }

  Form& form_;
  WatchedActs acts_;
  std::map<const Control*, std::unique_ptr<ControlView>> views_;
  std::vector<LaidOutGroup> groups_;
  /// What is read before a field.
  std::map<const Control*, const Control*> captions_;

  CellLayout layout_;
  std::map<const Control*, Rect> buttons_;
  /// On the screen: all of it, and the part in which the body is seen.
  Rect window_ = {};
  Rect body_ = {};
  Size buttonRow_ = {};
  /// The part of the body that is seen first.
  Point scrolled_ = {};
  /// The user has scrolled by wheel or page: the focus need not be seen until something else is done.
  bool looksElsewhere_ = false;
  Control* pressed_ = nullptr;
};

}  // namespace fiscalon::terminal
