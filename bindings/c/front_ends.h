#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "core/forms/toolkit.h"

namespace fiscalon::c {

/// A front end that hosts ask for by its name.
struct NamedFrontEnd {
  std::string_view name = {};
  /// Why it can't show forms here and now, in one line of UTF-8; empty where nothing is in the way. May throw
  /// FISCALON_ERROR_FRONT_END, which says as much.
  std::string (*hindrance)() = nullptr;
  std::unique_ptr<Toolkit> (*make)() = nullptr;
};

/// Who shows the forms of this process from now on; null for nobody. Throws FISCALON_ERROR_BUSY while a screen is open,
/// FISCALON_ERROR_THREAD.
void InstallFrontEnd(std::string_view name, std::unique_ptr<Toolkit> toolkit);

/// Nobody sees its forms, so a forked child may go on with it.
inline constexpr std::string_view kScripted = "scripted";

/// Asked within a turn before a screen is shown. Throws FISCALON_ERROR_THREAD, FISCALON_ERROR_FORKED.
void ExpectFrontEndOfThisThread();

}  // namespace fiscalon::c
