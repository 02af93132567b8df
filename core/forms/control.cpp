#include "core/forms/control.h"

#include <utility>

#include "core/forms/form.h"
#include "core/forms/label.h"

namespace fiscalon {

Control::Control(fiscalon::Form& form, ControlKind kind, std::string name, const CommonDesign& design,
                 CommonEvents events)
    : form_(form), kind_(kind), name_(std::move(name)), design_(design), events_(std::move(events)) {
  form_.Register(*this);
}

void Control::Reset() {
  enabled_ = design_.enabled;
  visible_ = design_.visible;
}

void Control::Touch() const {
  form_.Load();
}

void Control::Changed() {
  form_.ControlChanged(*this);
}

void Control::Fire(std::string_view event, const Handler& handler) {
  if (handler)
    form_.Fire(name_, event, handler);
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
  form_.focus_.Keep();
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
  form_.focus_.Keep();
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
  form_.focus_.Set(*this);
}

void Control::GoAndClick(FocusBy by) {
  form_.acts_.GoAndClick(*this, by);
}

}  // namespace fiscalon
