#include "screens/parts/help_button.h"

#include <cstdint>
#include <utility>

#include "core/module_state.h"
#include "core/platform/files.h"
#include "screens/parts/joined_events.h"

namespace fiscalon {

HelpButton::HelpButton(fiscalon::Form& form, std::string name, const ButtonDesign& design, ButtonEvents own)
    : Button(form, std::move(name), design, EventsOf(this, std::move(own))) {}

ButtonEvents HelpButton::EventsOf(HelpButton* self, ButtonEvents own) {
  own.click = Joined(std::move(own.click), Handler([self] { self->OpenHelp(); }));
  return own;
}

void HelpButton::FindFolder(std::string_view govFilename) {
  folder_ = govFilename;
  for (int up = 0; up < 3; ++up) folder_ = Files::ParentFolder(folder_);
}

void HelpButton::OpenHelp() const {
  constexpr std::string_view kHelpFile = "ZELMOR.CHM>ShowTopic";
  constexpr int32_t kContext = 100000004;
  TheToolkit().OpenHelp(Files::JoinPath(folder_, kHelpFile), kContext);
}

}  // namespace fiscalon
