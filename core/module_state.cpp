#include "core/module_state.h"

#include "core/module_to_change.h"
#include "core/platform/runtime_error.h"

namespace fiscalon {

const ModuleState& TheModule() {
  return ModuleToChange();
}

ModuleState& ModuleToChange() {
  static ModuleState state;
  return state;
}

Toolkit& TheToolkit() {
  if (Toolkit* toolkit = TheModule().toolkit)
    return *toolkit;
  throw RuntimeError(error_number::kObjectNotSet,
                     "No forms toolkit is installed. Call UseToolkit before a screen or a message box is shown.");
}

const Locale& AskForLocale() {
  ModuleState& module = ModuleToChange();
  if (!module.localeIsFixed)
    module.locale = SystemLocale();
  return module.locale;
}

void QueryDecimalSeparator() {
  AskForLocale();
  KeepDecimalSeparator();
}

void KeepDecimalSeparator() {
  const std::string& separator = TheModule().locale.decimal;
  ModuleToChange().decimalSeparator = separator.substr(0, separator.find('\0'));
}

void ClearShowGST58() {
  ModuleToChange().showGst58 = false;
}

}  // namespace fiscalon
