#pragma once

#include <string>
#include <utility>

#include "core/forms/control.h"

namespace fiscalon {

/// What the controls that show a caption share.
class Captioned : public Control {
 public:
  /// In English, for comparisons.
  std::string Caption() const { return WordedCaption().English(); }
  void Caption(Wording caption);
  /// With its words in each language, for texts that name the control.
  const Wording& WordedCaption() const;
  /// That with which it begins whenever the form loads. Asking for it does not load the form.
  const Wording& DesignedCaption() const { return designedCaption_; }

  /// The caption in the language of the form.
  std::string ShownCaption() const;
  /// The same as it reads, without the mark of an access key.
  virtual std::string PlainCaption() const { return ShownCaption(); }

  std::string ValueInComparisons() const override { return Caption(); }

  void Reset(PassKey<fiscalon::Form> key) override;

 protected:
  /// For the kinds that show a caption.
  Captioned(fiscalon::Form& form, ControlKind kind, std::string name, Wording caption, const CommonDesign& design,
            CommonEvents events)
      : Control(form, kind, std::move(name), design, std::move(events)), designedCaption_(std::move(caption)) {}

 private:
  Wording designedCaption_;
  Wording caption_;
};

}  // namespace fiscalon
