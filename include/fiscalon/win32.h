#pragma once

/// The front end of Windows' own controls, for hosts that link fiscalon::win32.

#include "frontends/win32/win32_toolkit.h"
