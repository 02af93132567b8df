#include "core/session.h"

#include <algorithm>
#include <string>

#include "core/forms/among.h"
#include "core/launch.h"
#include "core/logging.h"
#include "core/module_to_change.h"
#include "core/platform/runtime_error.h"
#include "core/screen.h"
#include "core/value_routines.h"
#include "core/values/integers.h"

namespace fiscalon {
namespace {

constexpr std::string_view kShowSource = "Fiscalon.ShowLevyraScreen";

// The form's one instance, which lives as long as the library.
std::shared_ptr<Form> InstanceOf(const LaunchRow& row) {
  auto& forms = ModuleToChange().forms;
  const auto made = forms.find(row.form);
  return made != forms.end() ? made->second : forms.emplace(row.form, row.make()).first->second;
}

// The next launch makes another one.
void ForgetInstanceOf(const LaunchRow& row) {
  auto& forms = ModuleToChange().forms;
  if (const auto made = forms.find(row.form); made != forms.end())
    forms.erase(made);
}

/// Sets a host's payment on its screen, shows it, and hands over what the user has confirmed.
bool Show(const LaunchRow& row, Levyra& host, Screen& screen, Toolkit& toolkit) {
  // The payment on a screen that is up stays what it is.
  screen.RefuseSecondShow();
  for (const LaunchProperty& property : row.properties) property.set(host, row.code, screen);
  if (row.beforeShow != nullptr)
    row.beforeShow(screen);
  {
    // A handler may reset the module, which forgets the form then.
    const Among<Form> shown(ModuleToChange().shown, screen);
    screen.ShowModal(toolkit, TheModule().language);
  }
  const bool chosen = screen.Chosen() == kTrue;
  // A file takes the records only with WriteFile exactly True, so any other value hands over the collection.
  if (chosen && host.WriteFile() != kTrue)
    host.PC4Records(screen.PC4Records());
  screen.Unload();
  return chosen;
}

}  // namespace

const LaunchRow* FindLaunchRow(std::string_view code) {
  const auto table = LaunchTable();
  const auto row = std::find_if(table.begin(), table.end(), [&](const LaunchRow& each) { return each.code == code; });
  return row == table.end() ? nullptr : &*row;
}

Levyra::Levyra() {
  QueryDecimalSeparator();
}

void Levyra::ZelmorNumber(std::string_view text) {
  zelmorNumber_ = text;
  ModuleToChange().customerNumber = text;
}

void Levyra::PaidAmount(std::string_view cents) {
  paidAmount_ = DollarsFromCents(cents);
}

bool Levyra::ShowGST58() const {
  return TheModule().showGst58;
}

void Levyra::PlayByPlayEnabled(Boolean value) {
  EnablePlayByPlay(value);
}

void Levyra::MainPath(std::string_view text) {
  ModuleToChange().mainPath = text;
}

void Levyra::SessionNumber(double number) {
  ModuleToChange().sessionNumber = ToInt32(number) % 1000;
}

bool Levyra::ShowLevyraScreen(std::string_view screenCode) {
  try {
    const LaunchRow* row = FindLaunchRow(screenCode);
    if (row == nullptr)
      throw RuntimeError(error_number::kInvalidScreenType, "Invalid Screen Type");
    return Launch(*row);
  } catch (const RuntimeError& error) {
    // The launch routine's own name stands in the source only until here: the host sees the last source.
    throw RuntimeError(error.Number(), error.Description(), std::string(kShowSource));
  }
}

bool Levyra::Launch(const LaunchRow& row) {
  Toolkit& toolkit = TheToolkit();
  // Kept here too: a handler may reset the module, which forgets its forms.
  const std::shared_ptr<Form> instance = InstanceOf(row);
  try {
    return Show(row, *this, static_cast<Screen&>(*instance), toolkit);
  } catch (const RuntimeError&) {
    throw;
  } catch (...) {
    // No failure that the form's code reckons with, such as memory that ran out: what it left half done would show in
    // the next launch.
    ForgetInstanceOf(row);
    throw;
  }
}

}  // namespace fiscalon
