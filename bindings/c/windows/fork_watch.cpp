#include "bindings/c/fork_watch.h"

namespace fiscalon::c {

// A process begins anew here.
void OnFork(void (* /*before*/)(), void (* /*inParent*/)(), void (* /*inChild*/)()) {}

}  // namespace fiscalon::c
