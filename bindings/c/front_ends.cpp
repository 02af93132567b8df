#include "bindings/c/front_ends.h"

#include <stdexcept>
#include <thread>

#include "bindings/c/answer.h"
#include "bindings/c/front_end_module.h"
#include "bindings/c/front_ends_here.h"
#include "core/host_setup.h"
#include "core/module_state.h"
#include "frontends/scripted/scripted_toolkit.h"

namespace fiscalon::c {

namespace {

struct Installed {
  std::unique_ptr<Toolkit> toolkit = {};
  std::string name = {};
  std::thread::id thread = {};
  int forks = 0;
  std::string hindrance = {};
};

/// It stays: no front end outlives the program's own `main` well.
Installed& Now() {
  static Installed& installed = *new Installed;
  return installed;
}

bool IsOfTheParent(const Installed& installed) {
  return installed.toolkit && installed.forks != Forks() && installed.name != kScripted;
}

void ExpectOwnThread() {
  if (Now().toolkit && Now().thread != std::this_thread::get_id())
    Fail(FISCALON_ERROR_THREAD,
         "The front end was installed on another thread of this program. Show screens, and change it, on that thread.");
}

const NamedFrontEnd& FrontEndNamed(const char* utf8) {
  static_cast<void>(FromHost(utf8));
  const std::string_view name = utf8;
  static constexpr NamedFrontEnd kScriptedOne = {
      kScripted, [] { return std::string(); },
      []() -> std::unique_ptr<Toolkit> { return std::make_unique<ScriptedToolkit>(); }};
  if (name == kScripted)
    return kScriptedOne;
  std::string names;
  for (const NamedFrontEnd& frontEnd : FrontEndsHere()) {
    if (frontEnd.name == name)
      return frontEnd;
    names.append("\"").append(frontEnd.name).append("\", ");
  }
  Fail(FISCALON_ERROR_FRONT_END, "There is no front end \"" + std::string(name) + "\" on this system. It has " + names +
                                     "\"" + std::string(kScripted) + "\".");
}

/// A front end says in words alone why it can't be made.
std::unique_ptr<Toolkit> Made(const NamedFrontEnd& frontEnd) {
  if (const std::string hindrance = frontEnd.hindrance(); !hindrance.empty())
    Fail(FISCALON_ERROR_FRONT_END,
         "The front end \"" + std::string(frontEnd.name) + "\" can't show forms: " + hindrance);
  try {
    return frontEnd.make();
  } catch (const std::runtime_error& error) {
    Fail(FISCALON_ERROR_FRONT_END,
         "The front end \"" + std::string(frontEnd.name) + "\" can't show forms: " + error.what());
  }
}

}  // namespace

void InstallFrontEnd(std::string_view name, std::unique_ptr<Toolkit> toolkit) {
  ExpectNoScreen();
  ExpectOwnThread();
  Installed& installed = Now();
  std::string kept(name);
  UseToolkit(toolkit.get());
  // What a parent has opened is not a child's to close.
  if (IsOfTheParent(installed))
    static_cast<void>(installed.toolkit.release());
  installed.name = std::move(kept);
  installed.toolkit = std::move(toolkit);
  installed.thread = std::this_thread::get_id();
  installed.forks = Forks();
}

void ExpectFrontEndOfThisThread() {
  ExpectOwnThread();
  if (IsOfTheParent(Now()))
    Fail(
        FISCALON_ERROR_FORKED,
        "The front end was installed before this process was forked, and can't show forms here. Start a process anew.");
}

}  // namespace fiscalon::c

using namespace fiscalon::c;

extern "C" {

int fiscalon_use_front_end(const char* name) {
  return Answer([&] {
    ExpectNoScreen();
    ExpectOwnThread();
    if (name == nullptr)
      return InstallFrontEnd("", nullptr);
    const NamedFrontEnd& frontEnd = FrontEndNamed(name);
    // Some are one of a kind, and are there already.
    if (Now().toolkit && Now().name == frontEnd.name && frontEnd.name != kScripted && !IsOfTheParent(Now()))
      return;
    InstallFrontEnd(frontEnd.name, Made(frontEnd));
  });
}

int fiscalon_front_end_hindrance(const char* name, const char** reason) {
  return AnswerAt(reason, [&] {
    const NamedFrontEnd& frontEnd = FrontEndNamed(name);
    try {
      Now().hindrance = frontEnd.hindrance();
    } catch (const Failure& failure) {
      Now().hindrance = failure.what();
    }
    return Now().hindrance.c_str();
  });
}

int fiscalon_use_front_end_folder(const char* path) {
  return Answer([&] { LoadFrontEndsFrom(path == nullptr ? "" : path); });
}

int fiscalon_reset(void) {
  return Answer([] {
    ExpectNoBatch();
    InstallFrontEnd("", nullptr);
    LoadFrontEndsFrom("");
    fiscalon::ResetModule();
  });
}

}  // extern "C"
