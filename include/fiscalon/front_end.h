#pragma once

/// For whoever writes a front end: the forms and their controls, the user's acts on them, who hears of both, and the
/// played user. docs/adding-a-front-end.md tells how.

#include "core/forms/act_watcher.h"
#include "core/forms/button.h"
#include "core/forms/form.h"
#include "core/forms/form_observer.h"
#include "core/forms/keys.h"
#include "core/forms/label.h"
#include "core/forms/laid_out.h"
#include "core/forms/layout.h"
#include "core/forms/list_control.h"
#include "core/forms/shown_control.h"
#include "core/forms/text_field.h"
#include "core/forms/toolkit.h"
#include "core/forms/user_acts.h"
#include "core/forms/usual_sizes.h"
#include "core/forms/watched_acts.h"
#include "core/platform/code_page.h"
#include "frontends/played/driven_toolkit.h"
#include "frontends/played/user_driver.h"
