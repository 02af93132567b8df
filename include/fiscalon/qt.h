#pragma once

/// The Qt 6 front end, for hosts that link fiscalon::qt.

#include "frontends/qt/qt_toolkit.h"
