#pragma once

#include <string>

#include "core/forms/control.h"
#include "core/forms/form.h"

namespace fiscalon {

/// A control whose whole state is a caption.
template <ControlKind kKind>
class Captioned final : public Control {
 public:
  Captioned(fiscalon::Form& form, std::string name, const Design& design)
      : Control(form, kKind, std::move(name), design, {}) {}

  std::string Caption() const {
    Touch();
    return caption_;
  }
  void Caption(std::string caption) {
    Touch();
    caption_ = std::move(caption);
    Changed();
  }

  std::string DefaultValue() const override { return Caption(); }

 private:
  void Reset() override {
    Control::Reset();
    caption_ = Designed().caption;
  }

  std::string caption_;
};

/// Text that the user reads.
using Label = Captioned<ControlKind::Label>;
/// A box with a heading around other controls.
using Frame = Captioned<ControlKind::Frame>;

}  // namespace fiscalon
