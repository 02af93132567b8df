#pragma once

#include <span>

#include "bindings/c/front_ends.h"

namespace fiscalon::c {

/// The front ends that this system has, but for the scripted one, which all have.
std::span<const NamedFrontEnd> FrontEndsHere();

}  // namespace fiscalon::c
