#include "core/host_setup.h"

#include <memory>
#include <optional>
#include <string>

#include "core/forms/form.h"
#include "core/module_to_change.h"
#include "core/platform/runtime_error.h"

namespace fiscalon {

void UseToolkit(Toolkit* toolkit) {
  ModuleToChange().toolkit = toolkit;
}

void UseFixedClock(const DateTime& now) {
  ModuleToChange().clock = std::make_shared<FixedClock>(now);
}

void UseLocale(const Locale& locale) {
  ModuleToChange().locale = locale;
  ModuleToChange().localeIsFixed = true;
  KeepDecimalSeparator();
}

void UseLocale(std::string_view name) {
  const std::optional<Locale> locale = NamedLocale(name);
  if (!locale)
    Raise(error_number::kInvalidProcedureCall);
  UseLocale(*locale);
  ModuleToChange().localeIsFixed = name != kSystemLocaleName;
}

void UseLanguage(const Language& language) {
  ModuleToChange().language = language;
}

void UseLanguage(std::string_view name) {
  const std::optional<Language> language = NamedLanguage(name);
  if (!language)
    throw RuntimeError(error_number::kInvalidProcedureCall,
                       "There are no forms in the language \"" + std::string(name) + "\".");
  UseLanguage(*language);
}

void ResetModule() {
  // Forms go before the services: one may still hold a file that a failed output left open.
  ModuleToChange().forms.clear();
  ModuleToChange() = ModuleState{};
  // A host's session outlives this, and relies on what its construction has found.
  KeepDecimalSeparator();
}

}  // namespace fiscalon
