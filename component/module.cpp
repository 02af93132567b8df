#include "component/module.h"

#include <mutex>

#include "component/failure.h"

namespace fiscalon::component {

namespace {

struct ModuleUse {
  std::mutex lock = {};
  long needed = 0;
  long locks = 0;
  /// Loaded for the first object, let go with the last: at the library's end it would be too late.
  Reference<ITypeLib> types = {};
};

ModuleUse& Use() {
  static ModuleUse use;
  return use;
}

}  // namespace

Needed::Needed() {
  const std::lock_guard lock(Use().lock);
  ++Use().needed;
}

Needed::~Needed() {
  Reference<ITypeLib> letGo;
  const std::lock_guard lock(Use().lock);
  if (--Use().needed == 0)
    letGo = std::move(Use().types);
}

void LockModule(ModuleLock change) {
  const std::lock_guard lock(Use().lock);
  if (change == ModuleLock::More)
    ++Use().locks;
  else if (Use().locks > 0)
    --Use().locks;
}

bool NobodyNeedsTheModule() {
  const std::lock_guard lock(Use().lock);
  return Use().needed == 0 && Use().locks == 0;
}

std::wstring ModulePath() {
  HMODULE module = nullptr;
  GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                     reinterpret_cast<LPCWSTR>(&ModulePath), &module);
  std::wstring path(MAX_PATH, L'\0');
  for (;;) {
    const DWORD length = GetModuleFileNameW(module, path.data(), static_cast<DWORD>(path.size()));
    if (length < path.size()) {
      path.resize(length);
      return path;
    }
    path.resize(path.size() * 2);
  }
}

Reference<ITypeLib> TypeLibrary() {
  const std::lock_guard lock(Use().lock);
  if (Use().types)
    return Use().types;
  Reference<ITypeLib> types;
  const HRESULT loaded = LoadTypeLibEx(ModulePath().c_str(), REGKIND_NONE, types.Place());
  if (FAILED(loaded))
    throw ComponentError(loaded, "The type library in the component's own file cannot be loaded.");
  if (Use().needed > 0)
    Use().types = types;
  return types;
}

Reference<ITypeInfo> TypeInformation(REFGUID id) {
  Reference<ITypeInfo> information;
  const HRESULT found = TypeLibrary()->GetTypeInfoOfGuid(id, information.Place());
  if (FAILED(found))
    throw ComponentError(found, "The component's type library lacks one of its own types.");
  return information;
}

}  // namespace fiscalon::component
