#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <variant>

#include "core/forms/close_reason.h"
#include "core/forms/keys.h"
#include "core/forms/text_field.h"
#include "core/forms/toolkit.h"

namespace fiscalon {

class Form;
class ListControl;

// The acts of a user as a front end passes them on to `UserActs`.
/// A key goes down.
struct KeyAct {
  /// Some front ends get a key and its character apart.
  enum class Half {
    Both,
    /// The stroke has no character yet; one may follow.
    Key,
    /// Of the key before.
    Character,
  };

  KeyStroke stroke = {};   ///< the key
  Half half = Half::Both;  ///< how much of it
};
/// The front end's editing has made this of a field's text.
struct EditAct {
  /// Where an edit comes from.
  enum class Origin {
    /// What the form has left of the key before.
    Key,
    /// A menu, the mouse, an assistive program.
    Elsewhere,
  };

  TextField* field = nullptr;         ///< whose text
  std::string text = {};              ///< all of it
  Selection selection = {};           ///< and what of it is selected
  Origin origin = Origin::Elsewhere;  ///< where the edit comes from
};
/// The mouse goes down on a control.
struct PressAct {
  Control* control = nullptr;  ///< on which
};
/// The mouse comes up on the control that was pressed.
struct ReleaseAct {
  Control* control = nullptr;  ///< on which
};
/// A control is clicked.
struct ClickAct {
  Control* control = nullptr;  ///< which
};
/// A row of a list is picked.
struct ChooseAct {
  ListControl* list = nullptr;  ///< whose
  int row = 0;                  ///< counted from 0
};
/// The focus is asked for in another way than by key or mouse.
struct BringFocusAct {
  Control* control = nullptr;  ///< to which it is to go
};
/// The window closes.
struct CloseAct {
  CloseReason reason = CloseReason::CloseBox;  ///< why
};
/// Whatever the user does.
using UserAct = std::variant<KeyAct, EditAct, PressAct, ReleaseAct, ClickAct, ChooseAct, BringFocusAct, CloseAct>;

/// Hears of all that a user does at a front end and is shown by it. Form and fields are still as they were before the
/// act when it begins.
class ActWatcher {
 public:
  virtual ~ActWatcher() = default;

  /// A form is about to be shown.
  virtual void Opened(Form& /*form*/) {}
  /// The user does something, which the form has not heard of yet.
  virtual void ActBegins(const UserAct& /*act*/) {}
  /// The act and all that it has set off are over.
  virtual void ActEnded() {}
  /// The user has closed a box.
  virtual void BoxAnswered(const BoxRequest& /*box*/, MessageAnswer /*answer*/) {}
  /// The form beeped.
  virtual void Beeped() {}
  /// A help file was opened at a context number.
  virtual void HelpOpened(std::string_view /*file*/, int32_t /*context*/) {}
};

}  // namespace fiscalon
