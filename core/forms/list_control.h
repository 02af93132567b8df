#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "core/forms/control.h"

namespace fiscalon {

/// Rows of text of which at most one is selected: what drop-down lists and list boxes share. `Click` fires when
/// the user picks a row, not when code selects one.
class ListControl : public Control {
 public:
  static constexpr int kNothingSelected = -1;

  void AddItem(std::string_view text);
  /// Error 5 for a row that is not there. A selected row that goes leaves nothing selected.
  void RemoveItem(int row);
  void Clear();

  int ListCount() const;
  /// The text of a row, counted from 0; empty for a row that is not there.
  std::string List(int row) const;

  int ListIndex() const;
  /// Error 5 for a row that is not there; `kNothingSelected` is allowed.
  void ListIndex(int row);

  /// The text of the selected row, empty where none is.
  std::string Text() const { return List(ListIndex()); }

  std::string DefaultValue() const override { return Text(); }

 protected:
  ListControl(fiscalon::Form& form, ControlKind kind, std::string name, const Design& design, Events events)
      : Control(form, kind, std::move(name), design, std::move(events)) {}

  void Reset() override;

 private:
  friend class UserActs;

  /// The user picks a row, the selected one too.
  void Pick(int row);

  std::vector<std::string> rows_;
  int selected_ = kNothingSelected;
};

/// A list that shows the selected row and drops the others down. No text of the user's own.
class DropDownList final : public ListControl {
 public:
  DropDownList(fiscalon::Form& form, std::string name, const Design& design, Events events = {})
      : ListControl(form, ControlKind::DropDownList, std::move(name), design, std::move(events)) {}
};

class ListBox final : public ListControl {
 public:
  ListBox(fiscalon::Form& form, std::string name, const Design& design, Events events = {})
      : ListControl(form, ControlKind::ListBox, std::move(name), design, std::move(events)) {}
};

}  // namespace fiscalon
