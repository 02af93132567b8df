#pragma once

/// All that a host program needs: the payment session, the records that it hands back, the texts' code page,
/// the errors that it raises, and the front end without a display for the host's own tests.

#include "core/module_state.h"
#include "core/records/pc4_records.h"
#include "core/platform/code_page.h"
#include "core/platform/runtime_error.h"
#include "core/platform/toolkit.h"
#include "core/session.h"
#include "frontends/scripted/scripted_toolkit.h"
