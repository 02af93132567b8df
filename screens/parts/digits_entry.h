#pragma once

#include <string>

#include "core/forms/text_field.h"
#include "screens/parts/asked.h"

namespace fiscalon {

/// A field that keeps the digits of what is typed into it, and passes the focus on to `next` when it is full.
class DigitsEntry : public TextField {
 public:
  DigitsEntry(fiscalon::Form& form, std::string name, const FieldDesign& design, Asked<Control*> next,
              FieldEvents own = {});

 private:
  static FieldEvents EventsOf(DigitsEntry* self);

  Asked<Control*> next_;
};

}  // namespace fiscalon
