#pragma once

/// The front end that needs no display: for the tests of hosts, and for machines without a screen.

#include "frontends/scripted/scripted_toolkit.h"
