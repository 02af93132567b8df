#include "bindings/c/front_end_module.h"
#include "frontends/qt/qt_toolkit.h"

/// The file that brings windows of Qt 6 to the library, which loads it when a host asks for them.
namespace {

std::string Hindrance() {
  return fiscalon::QtToolkit::HasDisplay() ? std::string()
                                           : "there is no display to show forms on; set DISPLAY or WAYLAND_DISPLAY";
}

std::unique_ptr<fiscalon::Toolkit> Make() {
  return std::make_unique<fiscalon::QtToolkit>();
}

}  // namespace

extern "C" {
// The library looks for it by this name.
extern const fiscalon::c::FrontEndModule fiscalon_front_end_module;
const fiscalon::c::FrontEndModule fiscalon_front_end_module = {
    .version = FISCALON_VERSION, .frontEnd = {.name = "qt", .hindrance = Hindrance, .make = Make}};
}
