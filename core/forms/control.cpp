#include "core/forms/control.h"

#include <utility>

#include "core/forms/form_events.h"
#include "core/forms/label.h"

namespace fiscalon {

Control::Control(fiscalon::Form& form, ControlKind kind, std::string name, const CommonDesign& design,
                 CommonEvents events)
    : form_(form), kind_(kind), name_(std::move(name)), design_(design), events_(std::move(events)) {
  form_.Register({}, *this);
}

void Control::Reset(PassKey<fiscalon::Form> /*key*/) {
  enabled_ = design_.enabled;
  visible_ = design_.visible;
}

void Control::Touch() const {
  form_.Load();
}

void Control::Changed() {
  form_.ControlChanged({}, *this);
}

void Control::Fire(std::string_view event, const Handler& handler) {
  if (handler)
    form_.Fire({}, name_, event, handler);
}

void Control::FireLostFocus(PassKey<fiscalon::Form> /*key*/) {
  Fire("LostFocus", events_.lostFocus);
}

void Control::FireMouseDown(PassKey<UserActs> /*key*/) {
  Fire("MouseDown", events_.mouseDown);
}

void Control::FireKeyDown(PassKey<UserActs> /*key*/, int& keyCode, int shift) {
  if (events_.keyDown)
    form_.Fire({}, name_, "KeyDown", [&] { events_.keyDown(keyCode, shift); });
}

void Control::FireKeyPress(PassKey<UserActs> /*key*/, int& character) {
  if (events_.keyPress)
    form_.Fire({}, name_, "KeyPress", [&] { events_.keyPress(character); });
}

bool Control::Enabled() const {
  Touch();
  return enabled_;
}

void Control::Enabled(bool enabled) {
  Touch();
  if (std::exchange(enabled_, enabled) == enabled)
    return;
  Changed();
  form_.KeepFocus({});
}

bool Control::Visible() const {
  Touch();
  return visible_;
}

void Control::Visible(bool visible) {
  Touch();
  if (std::exchange(visible_, visible) == visible)
    return;
  Changed();
  form_.KeepFocus({});
}

bool Control::EnabledInFrames() const {
  return Enabled() && (design_.frame == nullptr || design_.frame->Enabled());
}

bool Control::VisibleInFrames() const {
  return Visible() && (design_.frame == nullptr || design_.frame->Visible());
}

bool Control::CanTakeFocus() const {
  return form_.IsUp() && TakesKeys() && VisibleInFrames() && EnabledInFrames();
}

void Control::SetFocus() {
  Touch();
  form_.SetFocus({}, *this);
}

void Control::GoAndClick(FocusBy by) {
  form_.Acts().GoAndClick({}, *this, by);
}

}  // namespace fiscalon
