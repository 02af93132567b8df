#pragma once

#include <string>
#include <utility>

#include "core/forms/captioned.h"

namespace fiscalon {

/// Text that the user reads.
class Label : public Captioned {
 public:
  using Design = LabelDesign;
  using ArrayEvents = NoEvents;

  Label(fiscalon::Form& form, std::string name, const LabelDesign& design)
      : Captioned(form, ControlKind::Label, std::move(name), design.caption, CommonDesign::Of(design), {}),
        design_(design) {}

  const LabelDesign& Designed() const { return design_; }
  bool TakesKeys() const override { return false; }

 private:
  LabelDesign design_;
};

/// A box with a heading around other controls, which hide and disable with it.
class Frame : public Captioned {
 public:
  using Design = FrameDesign;
  using ArrayEvents = NoEvents;

  Frame(fiscalon::Form& form, std::string name, const FrameDesign& design)
      : Captioned(form, ControlKind::Frame, std::move(name), design.caption, CommonDesign::Of(design), {}) {}

  bool TakesKeys() const override { return false; }
};

}  // namespace fiscalon
