// The same program as C++, which the header is for too.
#include "tests/bindings/c/every_member.c"  // NOLINT(bugprone-suspicious-include)
