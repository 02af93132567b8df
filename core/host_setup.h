#pragma once

#include <string_view>

#include "core/forms/toolkit.h"
#include "core/platform/date.h"
#include "core/platform/locale.h"

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
void UseLocale(std::string_view name);

/// Puts the library back to how it is when it has just been loaded: the system's clock and locale, no toolkit, no form
/// made, no logs. Objects of the host keep their properties and can be used on.
void ResetModule();

}  // namespace fiscalon
