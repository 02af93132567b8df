#pragma once

/// The front end for character terminals, for hosts that link fiscalon::terminal.

#include "frontends/terminal/terminal_toolkit.h"
