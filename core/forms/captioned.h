#pragma once

#include <string>

#include "core/forms/control.h"

namespace fiscalon {

/// What the controls that show a caption share. A "&" in it marks the access key of a button.
class Captioned : public Control {
 public:
  std::string Caption() const;
  void Caption(std::string caption);

  std::string DefaultValue() const override { return Caption(); }

 protected:
  using Control::Control;

  void Reset() override;

 private:
  std::string caption_;
};

}  // namespace fiscalon
