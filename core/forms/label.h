#pragma once

#include <string>
#include <utility>

#include "core/forms/captioned.h"

namespace fiscalon {

/// Text that the user reads.
class Label final : public Captioned {
 public:
  Label(fiscalon::Form& form, std::string name, const Design& design)
      : Captioned(form, ControlKind::Label, std::move(name), design, {}) {}
};

/// A box with a heading around other controls, which hide and disable with it.
class Frame final : public Captioned {
 public:
  Frame(fiscalon::Form& form, std::string name, const Design& design)
      : Captioned(form, ControlKind::Frame, std::move(name), design, {}) {}
};

}  // namespace fiscalon
