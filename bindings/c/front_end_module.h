#pragma once

#include "bindings/c/front_ends.h"

namespace fiscalon::c {

/// What a file that brings a front end offers under `kFrontEndSymbol`. Both sides are of one build: they share classes.
struct FrontEndModule {
  /// Looked at first, and the rest only where it is the library's own.
  const char* version = nullptr;
  NamedFrontEnd frontEnd = {};
};

inline constexpr const char* kFrontEndSymbol = "fiscalon_front_end_module";

/// The front end of the file "front-end-NAME" in the folder where such files lie, loaded with the first call and for as
/// long as the process lives. Throws FISCALON_ERROR_FRONT_END, which tells what to install.
const NamedFrontEnd& LoadedFrontEnd(std::string_view name);

/// The folder for `LoadedFrontEnd`, in the bytes of the system's paths; empty for the usual one.
void LoadFrontEndsFrom(std::string folder);

}  // namespace fiscalon::c
