#pragma once

#include <optional>
#include <string>

#include "core/forms/act_watcher.h"
#include "core/forms/text_field.h"
#include "frontends/win32/control_view.h"

namespace fiscalon::win32 {

/// A text field, of one line or several. The editor is native; the form hears what it makes of the text, and may change
/// that.
class TextView final : public ControlView {
 public:
  TextView(TextField& field, WatchedActs& acts) : ControlView(field, acts), field_(field) {}

  SIZE Wanted(const DialogFonts& fonts) const override;
  void Refresh() override;
  LRESULT Message(UINT message, WPARAM wide, LPARAM extra) override;
  void Notified(int code) override;
  void Edit(const KeyOutcome& outcome, const KeyStroke& stroke, LPARAM extra) override;
  bool MousePressed(UINT message, POINT place) override;
  // AccessibleSource
  Answer EnterLater(const std::wstring& value) override;

  /// Positions in the editor.
  Selection NativeSelection() const;

 private:
  Design Designed() const override;
  ShownControl Content() const override;

  /// A command of the editor's own, such as a copy. False for any other key.
  bool DoCommand(const KeyStroke& stroke);
  bool PastesNothing() const;
  /// Left and Right leave a selection at its end, as on every desktop.
  bool CollapseSelection(const KeyStroke& stroke);
  /// Runs native editing, and tells the form what came of it afterwards.
  template <class Editing>
  void EditWith(EditAct::Origin origin, Editing&& editing);
  void SelectionMoved();

  /// The text as the editor has it: its line ends are all of one kind.
  std::wstring WantedText() const;
  bool IsAligned() const { return TextOfWindow(Window()) == WantedText(); }
  /// Whether the editor is to have the field's selection.
  bool ShowsSelection() const;
  // What the editor holds, as a field holds it.
  std::string FieldText() const;
  Selection FieldSelection() const;
  void SetNativeSelection(Selection selection);
  void SetLimit();
  /// A text that is too long for a field that can't be edited: how it begins, and all of it as a hint.
  void ShowBeginning();

  TextField& field_;
  /// As the editor has it.
  std::optional<size_t> limit_ = {};
  std::wstring hint_ = {};
  bool refreshing_ = false;
  int editing_ = 0;
  bool edited_ = false;
};

}  // namespace fiscalon::win32
