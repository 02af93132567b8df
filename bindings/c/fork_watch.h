#pragma once

namespace fiscalon::c {

/// Has these routines called around each fork of the process, where the system has such. Throws `std::bad_alloc` where
/// there is no room for that.
void OnFork(void (*before)(), void (*inParent)(), void (*inChild)());

}  // namespace fiscalon::c
