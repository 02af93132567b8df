#include "core/forms/button.h"

#include <algorithm>
#include <utility>

#include "core/forms/form.h"
#include "core/forms/form_misuse.h"

namespace fiscalon {

void ToggleButton::Reset(PassKey<fiscalon::Form> key) {
  AnyButton::Reset(key);
  value_ = design_.value;
}

bool ToggleButton::Value() const {
  Touch();
  return value_;
}

void ToggleButton::Value(bool value) {
  Touch();
  if (std::exchange(value_, value) == value)
    return;
  Changed();
  // Both values have changed before the first handler runs: no handler sees two options on, or none.
  if (ToggleButton* other = value ? OtherThatGoesOff() : nullptr)
    other->Value(false);
  FireClick();
}

OptionButton::OptionButton(fiscalon::Form& form, std::string name, const ToggleDesign& design, ButtonEvents events)
    : ToggleButton(form, ControlKind::OptionButton, std::move(name), design, std::move(events)) {
  for (const OptionButton* other : Group())
    if (design.value && other != this && other->Designed().value)
      throw FormMisuse(Owner().Name(), Name(), "is on at design, and so is " + other->Name() + " of the same group");
}

std::vector<OptionButton*> OptionButton::Group() const {
  std::vector<OptionButton*> group;
  for (Control* control : Owner().TabOrder())
    if (auto* option = dynamic_cast<OptionButton*>(control);
        option != nullptr && option->EnclosingFrame() == EnclosingFrame())
      group.push_back(option);
  return group;
}

Control& OptionButton::StopOfGroup() {
  OptionButton* first = nullptr;
  for (OptionButton* option : Group()) {
    if (!option->CanTakeFocus() || !option->IsTabStop())
      continue;
    if (option->Value())
      return *option;
    if (first == nullptr)
      first = option;
  }
  return first == nullptr ? *this : *first;
}

KeyOutcome OptionButton::KeyMeans(PassKey<UserActs> /*key*/, int keyCode, int /*character*/) {
  const bool back = keyCode == key::kLeft || keyCode == key::kUp;
  if (!back && keyCode != key::kRight && keyCode != key::kDown)
    return {};
  std::vector<OptionButton*> group = Group();
  std::erase_if(group, [](const Control* option) { return !option->CanTakeFocus(); });
  const auto here = std::find(group.begin(), group.end(), this) - group.begin();
  const auto size = static_cast<std::ptrdiff_t>(group.size());
  group[static_cast<size_t>((here + (back ? size - 1 : 1)) % size)]->GoAndClick(FocusBy::KeyboardOrCode);
  return {};
}

ToggleButton* OptionButton::OtherThatGoesOff() {
  for (OptionButton* option : Group())
    if (option != this && option->Value())
      return option;
  return nullptr;
}

}  // namespace fiscalon
