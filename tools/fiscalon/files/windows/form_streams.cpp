#include "tools/fiscalon/files/form_streams.h"

namespace fiscalon {

/// Windows need no streams, and what they start is given none.
void FormStreams::Take() {}
void FormStreams::GiveBack() {}

}  // namespace fiscalon
