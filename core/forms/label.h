#pragma once

#include <string>
#include <utility>

#include "core/forms/captioned.h"

namespace fiscalon {

/// Text that the user reads.
class Label : public Captioned {
 public:
  using Design = LabelDesign;    ///< the options of a label
  using ArrayEvents = NoEvents;  ///< it has no events

  /// On a form, by the name that handlers and scenarios know.
  Label(fiscalon::Form& form, std::string name, const LabelDesign& design)
      : Captioned(form, ControlKind::Label, std::move(name), design.caption, CommonDesign::Of(design), {}),
        design_(design) {}

  /// The label as the form's definition has it.
  const LabelDesign& Designed() const { return design_; }
  bool TakesKeys() const override { return false; }

 private:
  LabelDesign design_;
};

/// A box with a heading around other controls, which hide and disable with it.
class Frame : public Captioned {
 public:
  using Design = FrameDesign;    ///< the options of a frame
  using ArrayEvents = NoEvents;  ///< it has no events

  /// On a form, by the name that handlers and scenarios know.
  Frame(fiscalon::Form& form, std::string name, const FrameDesign& design)
      : Captioned(form, ControlKind::Frame, std::move(name), design.caption, CommonDesign::Of(design), {}) {}

  bool TakesKeys() const override { return false; }
};

}  // namespace fiscalon
