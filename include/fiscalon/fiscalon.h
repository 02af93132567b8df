#pragma once

/// All that a host program needs: the payment session, the records that it hands back, the check of payments that
/// arrive in bulk, the texts' code page, the errors that are raised, what is set once for the process, and the front
/// end without a display for the host's own tests.

#include "core/boolean.h"
#include "core/forms/toolkit.h"
#include "core/host_setup.h"
#include "core/platform/code_page.h"
#include "core/platform/runtime_error.h"
#include "core/records/pc4_records.h"
#include "core/session.h"
#include "frontends/scripted/scripted_toolkit.h"
#include "validation/validate_add_info.h"
