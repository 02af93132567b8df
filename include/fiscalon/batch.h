#pragma once

/// The judging of payments that a host holds in its own memory, and of whole batches. docs/batch-guide.md tells how.

#include "validation/batch.h"
#include "validation/judge_payment.h"
