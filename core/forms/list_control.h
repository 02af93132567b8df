#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "core/forms/control.h"
#include "core/wording/wording.h"

namespace fiscalon {

/// Rows of text of which at most one is selected: what drop-down lists and list boxes share. `Click` fires when the
/// user picks a row or steps to another one, `Chosen` behind it when the row was picked. Code that selects a row fires
/// nothing.
class ListControl : public Control {
 public:
  using Design = ListDesign;              ///< the options of lists
  using ArrayEvents = ListHandlers<int>;  ///< the events of a member of an array

  /// No row.
  static constexpr int kNothingSelected = -1;

  /// The list as the form's definition has it.
  const ListDesign& Designed() const { return design_; }

  /// Adds a row behind the others.
  void AddItem(Wording text);
  /// Error 5 for a row that is not there. A selected row that goes leaves nothing selected.
  void RemoveItem(int row);
  /// Takes all rows out; nothing is selected then.
  void Clear();
  /// Throws `FormMisuse` for a row that is not there: for what drives a list, not for handlers.
  void ExpectRow(int row) const;

  /// How many rows there are.
  int ListCount() const;
  /// The text of a row in English, for comparisons. Rows count from 0; one that is not there is empty.
  std::string List(int row) const;
  /// The same in the language of the form.
  std::string ShownRow(int row) const;

  /// The row that is selected, counted from 0; `kNothingSelected` where none is.
  int ListIndex() const;
  /// Error 5 for a row that is not there; `kNothingSelected` is allowed.
  void ListIndex(int row);

  /// The text of the selected row in English, empty where none is.
  std::string Text() const { return List(ListIndex()); }
  /// The same in the language of the form.
  std::string ShownText() const { return ShownRow(ListIndex()); }

  std::string ValueInComparisons() const override { return Text(); }

  void Reset(PassKey<fiscalon::Form> key) override;
  void FocusCame(PassKey<Focus> /*key*/, FocusBy /*by*/) override { typed_.clear(); }
  KeyOutcome KeyMeans(PassKey<UserActs> key, int keyCode, int character) override;
  /// The user picks a row, perhaps the selected one.
  void Pick(PassKey<UserActs> key, int row);

 protected:
  /// For the two kinds.
  ListControl(fiscalon::Form& form, ControlKind kind, std::string name, const ListDesign& design, ListEvents events)
      : Control(form, kind, std::move(name), CommonDesign::Of(design), CommonEvents::Of(events)),
        design_(design),
        click_(std::move(events.click)),
        chosen_(std::move(events.chosen)) {}

 private:
  /// The user goes to a row by keys.
  void Step(int row);
  /// Adds to what was typed and goes to the row that begins with it.
  void Type(char character);
  /// The row's words; none for a row that is not there.
  Wording WordedRow(int row) const;
  /// The first row from that one on, and around, which is shown to begin with a text; `kNothingSelected` if none is.
  int RowThatBeginsWith(std::string_view text, int from) const;
  /// Selects a row, by code or by any other way than typing.
  void Select(int row);

  ListDesign design_;
  Handler click_;
  Handler chosen_;
  std::vector<Wording> rows_;
  int selected_ = kNothingSelected;
  /// What was typed since the focus came, or since the row was changed otherwise.
  std::string typed_;
};

/// A list that shows the selected row and drops the others down. No text of the user's own.
class DropDownList : public ListControl {
 public:
  /// On a form, by the name that handlers and scenarios know.
  DropDownList(fiscalon::Form& form, std::string name, const ListDesign& design, ListEvents events = {})
      : ListControl(form, ControlKind::DropDownList, std::move(name), design, std::move(events)) {}
};

/// A box of rows, all of which show at once, or by scrolling.
class ListBox : public ListControl {
 public:
  /// On a form, by the name that handlers and scenarios know.
  ListBox(fiscalon::Form& form, std::string name, const ListDesign& design, ListEvents events = {})
      : ListControl(form, ControlKind::ListBox, std::move(name), design, std::move(events)) {}
};

}  // namespace fiscalon
