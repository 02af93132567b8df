#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "core/forms/toolkit.h"
#include "core/host_setup.h"
#include "core/platform/clock.h"
#include "core/platform/files.h"
#include "core/platform/locale.h"
#include "core/wording/language.h"

namespace fiscalon {

class Form;

/// The state that all objects of the library share in a process: the doors to the outside, and what hosts
/// set once for all. One thread uses it, the host's; nothing here is locked.
struct ModuleState {
  std::shared_ptr<const Clock> clock = std::make_shared<SystemClock>();
  std::shared_ptr<Files> files = std::make_shared<SystemFiles>();
  /// As the system had it when it was last asked, or as the host has fixed it.
  Locale locale = SystemLocale();
  bool localeIsFixed = false;
  /// Of the forms that are shown from now on.
  Language language = {};
  /// Not owned: the host keeps its front end alive while it shows screens.
  Toolkit* toolkit = nullptr;

  /// The user's decimal separator as the last constructed `Levyra` found it. Decides whether a typed amount
  /// means cents.
  std::string decimalSeparator = {};
  /// Any value but 0 turns the play-by-play log on.
  int16_t playByPlayEnabled = 0;
  /// The folder of both logs.
  std::string mainPath = {};
  /// The last three digits of the host's session number.
  double sessionNumber = 0;
  /// The host's customer number, for lines of the error log.
  std::string customerNumber = {};
  /// Behind `Levyra::ShowGST58`; nothing sets it.
  bool showGst58 = false;

  /// The one instance of each form made so far, by the form's name.
  std::map<std::string, std::shared_ptr<Form>, std::less<>> forms = {};
  /// Those that are being shown, each by a handler of the one before it. Whoever shows one keeps it.
  std::vector<Form*> shown = {};
};

/// The process's module state, to look at. core/module_to_change.h says who may change it, and how.
const ModuleState& TheModule();

/// The installed front end. Error 91 where a host has installed none, with the remedy in the description.
Toolkit& TheToolkit();

/// Asks the system for the user's locale as it is now, unless the host has fixed one. It may take a
/// millisecond: too long for what is done a million times.
const Locale& AskForLocale();

/// Asks for the user's locale and keeps its decimal separator, as every construction of a `Levyra` does.
void QueryDecimalSeparator();

/// Keeps the decimal separator of the locale that the system was asked for last.
void KeepDecimalSeparator();

/// Has the host read `ShowGST58` as False.
void ClearShowGST58();

}  // namespace fiscalon
