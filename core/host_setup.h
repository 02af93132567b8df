#pragma once

#include <string_view>

#include "core/forms/toolkit.h"
#include "core/platform/date.h"
#include "core/platform/locale.h"
#include "core/wording/language.h"

/// What a host sets once, for all objects of the process.
namespace fiscalon {

/// Installs the front end that shows forms, boxes and help; null takes it away. The library does not own it.
void UseToolkit(Toolkit* toolkit);

/// Has it be that moment, until `ResetModule`: for tests that must come out the same on any day.
void UseFixedClock(const DateTime& now);

/// Has the user be one of that locale, until `ResetModule`, whatever the system says. By its name "en-CA", "en-US" or
/// "fr-CA"; "system" goes by the system again, whose settings every construction of a `Levyra` asks for. Error 5 for
/// another name.
void UseLocale(const Locale& locale);
/// The same by a name: "en-CA", "en-US", "fr-CA" or "system". Error 5 for another one.
void UseLocale(std::string_view name);

/// Has forms and boxes be shown in that language, until `ResetModule`; a form that is up keeps its own. By its name
/// "en", which is how it is without this call, or "fr". Error 5 for another name, which its description tells. Only
/// what the user reads changes: properties, records, logs and errors stay in English, and numbers and dates go by the
/// locale.
void UseLanguage(const Language& language);
void UseLanguage(std::string_view name);  ///< by its name

/// Puts the library back to how it is when it has just been loaded: the system's clock and locale, forms in English, no
/// toolkit, no form made, no logs. Objects of the host keep their properties and can be used on.
void ResetModule();

}  // namespace fiscalon
