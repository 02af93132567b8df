#include "bindings/c/front_end_module.h"

#include <dlfcn.h>

#include <cstdlib>
#include <map>

#include "bindings/c/failure.h"

namespace fiscalon::c {

namespace {

struct Modules {
  std::string folder = {};
  std::map<std::string, const FrontEndModule*, std::less<>> loaded = {};
};

Modules& TheModules() {
  static Modules& modules = *new Modules;
  return modules;
}

/// The library's own file, whatever the folder that a host has put it into.
std::string FolderOfTheLibrary() {
  Dl_info here = {};
  if (dladdr(&kFrontEndSymbol, &here) == 0)
    return ".";
  const std::string path = here.dli_fname;
  const size_t slash = path.rfind('/');
  return slash == path.npos ? "." : path.substr(0, slash);
}

std::string Folder() {
  if (!TheModules().folder.empty())
    return TheModules().folder;
  if (const char* const folder = std::getenv("FISCALON_FRONT_ENDS"); folder != nullptr && *folder != '\0')
    return folder;
  return FolderOfTheLibrary() + "/fiscalon-c/" FISCALON_VERSION;
}

/// How users of this system get it.
std::string Remedy(std::string_view name) {
  return "On Debian install the package libfiscalon-c-" + std::string(name) +
         ", of the version " FISCALON_VERSION "; elsewhere name its folder by FISCALON_FRONT_ENDS.";
}

const FrontEndModule* Load(const std::string& file, std::string_view name) {
  const std::string front = "The front end \"" + std::string(name) + "\" ";
  void* const library = dlopen(file.c_str(), RTLD_NOW | RTLD_LOCAL);
  if (library == nullptr) {
    const char* const reason = dlerror();
    Fail(FISCALON_ERROR_FRONT_END,
         front + "can't be loaded: " + (reason == nullptr ? file : reason) + ". " + Remedy(name));
  }
  const auto* const module = static_cast<const FrontEndModule*>(dlsym(library, kFrontEndSymbol));
  if (module == nullptr || std::string_view(module->version) != FISCALON_VERSION) {
    dlclose(library);
    Fail(FISCALON_ERROR_FRONT_END, front + "in " + file + " is of another version. " + Remedy(name));
  }
  return module;
}

}  // namespace

const NamedFrontEnd& LoadedFrontEnd(std::string_view name) {
  auto& loaded = TheModules().loaded;
  auto found = loaded.find(name);
  if (found == loaded.end())
    found = loaded.emplace(name, Load(Folder() + "/front-end-" + std::string(name) + ".so", name)).first;
  return found->second->frontEnd;
}

void LoadFrontEndsFrom(std::string folder) {
  TheModules().folder = std::move(folder);
}

}  // namespace fiscalon::c
