#pragma once

#include "core/platform/locale.h"

namespace fiscalon {

/// How the locale with the system's name, such as L"fr-CA", writes numbers, money and moments; with the user's own
/// settings where the name is `LOCALE_NAME_USER_DEFAULT`. One without a currency, and one that the system does not
/// have, count as English (Canada).
Locale LocaleFromServices(const wchar_t* name);

}  // namespace fiscalon
