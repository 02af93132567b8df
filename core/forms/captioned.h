#pragma once

#include <string>
#include <utility>

#include "core/forms/control.h"

namespace fiscalon {

/// What the controls that show a caption share.
class Captioned : public Control {
 public:
  std::string Caption() const;
  void Caption(std::string caption);
  /// That with which it begins whenever the form loads. Asking for it does not load the form.
  const std::string& DesignedCaption() const { return designedCaption_; }
  /// The caption as it reads, without the mark of an access key.
  virtual std::string PlainCaption() const { return Caption(); }

  std::string ValueInComparisons() const override { return Caption(); }

  void Reset(PassKey<fiscalon::Form> key) override;

 protected:
  Captioned(fiscalon::Form& form, ControlKind kind, std::string name, std::string caption, const CommonDesign& design,
            CommonEvents events)
      : Control(form, kind, std::move(name), design, std::move(events)), designedCaption_(std::move(caption)) {}

 private:
  std::string designedCaption_;
  std::string caption_;
};

}  // namespace fiscalon
