#include "bindings/c/front_ends_here.h"

#include "bindings/c/front_end_module.h"
#include "frontends/terminal/terminal_toolkit.h"

namespace fiscalon::c {

namespace {

// clang-format off
constexpr NamedFrontEnd kFrontEnds[] = {
    {"qt", [] { return LoadedFrontEnd("qt").hindrance(); }, [] { return LoadedFrontEnd("qt").make(); }},
    {"terminal", TerminalToolkit::Hindrance, []() -> std::unique_ptr<Toolkit> { return std::make_unique<TerminalToolkit>(); }},
};
// clang-format on

}  // namespace

std::span<const NamedFrontEnd> FrontEndsHere() {
  return kFrontEnds;
}

}  // namespace fiscalon::c
