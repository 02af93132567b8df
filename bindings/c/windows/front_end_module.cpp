#include "bindings/c/front_end_module.h"

namespace fiscalon::c {

// All front ends of this system are built in.
void LoadFrontEndsFrom(std::string /*folder*/) {}

}  // namespace fiscalon::c
