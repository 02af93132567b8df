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
struct KeyAct {
  /// Some front ends get a key and its character apart.
  enum class Half {
    Both,
    /// The stroke has no character yet; one may follow.
    Key,
    /// Of the key before.
    Character,
  };

  KeyStroke stroke = {};
  Half half = Half::Both;
};
/// The front end's editing has made this of a field's text.
struct EditAct {
  enum class Origin {
    /// What the form has left of the key before.
    Key,
    /// A menu, the mouse, an assistive program.
    Elsewhere,
  };

  TextField* field = nullptr;
  std::string text = {};
  Selection selection = {};
  Origin origin = Origin::Elsewhere;
};
struct PressAct {
  Control* control = nullptr;
};
struct ReleaseAct {
  Control* control = nullptr;
};
struct ClickAct {
  Control* control = nullptr;
};
struct ChooseAct {
  ListControl* list = nullptr;
  int row = 0;
};
struct BringFocusAct {
  Control* control = nullptr;
};
struct CloseAct {
  CloseReason reason = CloseReason::CloseBox;
};
using UserAct = std::variant<KeyAct, EditAct, PressAct, ReleaseAct, ClickAct, ChooseAct, BringFocusAct, CloseAct>;

/// Hears of all that a user does at a front end and is shown by it. Form and fields are still as they were before the
/// act when it begins.
class ActWatcher {
 public:
  virtual ~ActWatcher() = default;

  virtual void Opened(Form& /*form*/) {}
  virtual void ActBegins(const UserAct& /*act*/) {}
  /// The act and all that it has set off are over.
  virtual void ActEnded() {}
  virtual void BoxAnswered(const BoxRequest& /*box*/, MessageAnswer /*answer*/) {}
  virtual void Beeped() {}
  virtual void HelpOpened(std::string_view /*file*/, int32_t /*context*/) {}
};

}  // namespace fiscalon
