#include "bindings/c/front_ends_here.h"

#include "frontends/win32/win32_toolkit.h"

namespace fiscalon::c {

namespace {

constexpr NamedFrontEnd kFrontEnds[] = {
    {"win32", [] { return std::string(); },
     []() -> std::unique_ptr<Toolkit> { return std::make_unique<Win32Toolkit>(); }},
};

}  // namespace

std::span<const NamedFrontEnd> FrontEndsHere() {
  return kFrontEnds;
}

}  // namespace fiscalon::c
