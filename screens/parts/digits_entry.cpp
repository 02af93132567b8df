#include "screens/parts/digits_entry.h"

#include <utility>

#include "core/resume_next.h"
#include "core/value_routines.h"
#include "screens/parts/joined_events.h"
#include "screens/parts/moving_on.h"

namespace fiscalon {

DigitsEntry::DigitsEntry(fiscalon::Form& form, std::string name, const FieldDesign& design, Asked<Control*> next,
                         FieldEvents own)
    : TextField(form, std::move(name), design, Joined(std::move(own), EventsOf(this))), next_(std::move(next)) {}

FieldEvents DigitsEntry::EventsOf(DigitsEntry* self) {
  return {.change = [self] {
    ResumeNext::Run([&] { self->Text(DigitsOnly(self->Text())); });
    MoveOn(*self, self->next_);
  }};
}

}  // namespace fiscalon
