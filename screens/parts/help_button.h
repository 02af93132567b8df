#pragma once

#include <string>
#include <string_view>

#include "core/forms/button.h"

namespace fiscalon {

/// The Help button: opens the help file, which lies three folders above the record file.
class HelpButton : public Button {
 public:
  HelpButton(fiscalon::Form& form, std::string name, const ButtonDesign& design, ButtonEvents own = {});

  /// Takes the folder from the record file, when the form loads.
  void FindFolder(std::string_view govFilename);

 private:
  static ButtonEvents EventsOf(HelpButton* self, ButtonEvents own);
  void OpenHelp() const;

  std::string folder_;
};

}  // namespace fiscalon
