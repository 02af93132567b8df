#pragma once

#include <functional>
#include <optional>
#include <utility>

#include "core/forms/act_watcher.h"
#include "core/forms/form.h"

namespace fiscalon {

/// The acts of the user on the form of one dialog. After each the dialog, if it has to, is brought in line with
/// the form.
class WatchedActs {
 public:
  /// `settle` runs after each act, where the dialog is to be brought in line.
  WatchedActs(Form& form, ActWatcher* watcher, std::function<void()> settle = {})
      : acts_(form.Acts()), watcher_(watcher), settle_(std::move(settle)) {}
  WatchedActs(const WatchedActs&) = delete;
  WatchedActs& operator=(const WatchedActs&) = delete;

  /// An act is under way: a handler runs, or waits in a message box.
  bool Acting() const { return depth_ > 0; }

  /// Another window, such as a message box, blocks the dialog.
  void Interrupted() { ++interruptions_; }
  /// How often that has been.
  int Interruptions() const { return interruptions_; }

  /// The form has moved the focus.
  void FocusMoved(FocusBy by) { moved_ = by; }
  /// Whether code has moved the focus since the last press began, and the press itself not since: a field that was
  /// pressed has it by code then, its whole text selected.
  bool IsFocusGiven() const { return moved_ == FocusBy::KeyboardOrCode; }

  KeyOutcome Key(const KeyStroke& stroke) {  ///< see `UserActs`
    KeyOutcome outcome;
    Do(KeyAct{stroke}, [&] { outcome = acts_.Key(stroke); });
    return outcome;
  }
  // The same for a key and its character that came apart.
  KeyOutcome KeyDown(int keyCode, int shift) {  ///< see `UserActs`
    KeyOutcome outcome;
    const KeyStroke stroke = {.keyCode = keyCode, .shift = shift};
    Do(KeyAct{stroke, KeyAct::Half::Key}, [&] { outcome = acts_.KeyDown(keyCode, shift); });
    return outcome;
  }
  KeyOutcome Character(int character) {  ///< see `UserActs`
    KeyOutcome outcome;
    const KeyStroke stroke = StrokeOf(static_cast<char>(character));
    Do(KeyAct{stroke, KeyAct::Half::Character}, [&] { outcome = acts_.Character(character); });
    return outcome;
  }
  void EditText(const EditAct& edit) {  ///< see `UserActs`
    Do(edit, [&] { acts_.EditText(*edit.field, edit.text, edit.selection); });
  }
  /// See `UserActs`; nobody else hears of it.
  void SelectText(TextField& field, Selection selection) { acts_.SelectText(field, selection); }
  bool Press(Control& control) {  ///< see `UserActs`
    bool clicks = false;
    moved_.reset();
    Do(PressAct{&control}, [&] { clicks = acts_.Press(control); });
    pressed_ = clicks ? &control : nullptr;
    return clicks;
  }
  void Release(Control& control) {  ///< see `UserActs`
    Do(ReleaseAct{&control}, [&] { acts_.Release(control); });
  }
  void Click(Control& control) {  ///< see `UserActs`
    Do(ClickAct{&control}, [&] { acts_.Click(control); });
  }
  /// A widget tells that it was clicked: its press is completed; without one the click comes from an assistive program.
  void Clicked(Control& control) {
    if (std::exchange(pressed_, nullptr) == &control)
      Release(control);
    else
      Click(control);
  }
  /// The act of choosing has begun with a press, if the mouse was it.
  void Pick(ListControl& list, int row) {
    Do(ChooseAct{&list, row}, [&] { acts_.Pick(list, row); });
  }
  void Choose(ListControl& list, int row) {  ///< see `UserActs`
    Do(ChooseAct{&list, row}, [&] { acts_.Choose(list, row); });
  }
  void BringFocus(Control& control) {  ///< see `UserActs`
    Do(BringFocusAct{&control}, [&] { acts_.BringFocus(control); });
  }
  void Close(CloseReason reason) {  ///< see `UserActs`
    Do(CloseAct{reason}, [&] { acts_.Close(reason); });
  }

 private:
  template <class Run>
  void Do(const UserAct& act, Run&& run) {
    // What comes in while an act is under way is none.
    const bool heard = watcher_ != nullptr && depth_ == 0;
    if (heard)
      watcher_->ActBegins(act);
    ++depth_;
    run();
    --depth_;
    if (heard)
      watcher_->ActEnded();
    if (depth_ == 0 && settle_)
      settle_();
  }

  UserActs& acts_;
  ActWatcher* watcher_;
  std::function<void()> settle_;
  const Control* pressed_ = nullptr;
  int depth_ = 0;
  int interruptions_ = 0;
  std::optional<FocusBy> moved_ = {};
};

}  // namespace fiscalon
