#include "component/registration.h"

#include "component/failure.h"
#include "component/module.h"
#include "component/registered_keys.h"
#include "component/registry.h"

namespace fiscalon::component {

namespace {

const std::wstring kClassesKey = L"Software\\Classes";

#ifdef _WIN64
const std::wstring kThisWordSize = L"win64";
const std::wstring kOtherWordSize = L"win32";
#else
const std::wstring kThisWordSize = L"win32";
const std::wstring kOtherWordSize = L"win64";
#endif

std::wstring Classes(const std::wstring& path) {
  return kClassesKey + L"\\" + path;
}

RegisteredKeys KeysOfThisFile() {
  const std::wstring path = ModulePath();
  return KeysOfTheComponent(
      {.file = path, .folder = path.substr(0, path.find_last_of(L'\\') + 1), .wordSize = kThisWordSize});
}

Registry RegistryOf(Audience audience) {
  return audience == Audience::Machine ? Registry(HKEY_LOCAL_MACHINE, L"HKEY_LOCAL_MACHINE")
                                       : Registry(HKEY_CURRENT_USER, L"HKEY_CURRENT_USER");
}

void WriteAll(const Registry& registry, const RegisteredKeys& registered) {
  for (const RegisteredKey& key : registered.keys)
    for (const RegisteredValue& value : key.values)
      registry.Write(Classes(key.path + value.below), value.name, value.text);
}

void RemoveAll(const Registry& registry, const RegisteredKeys& registered) {
  const auto remove = [&](KeyOwner owner) {
    for (const RegisteredKey& key : registered.keys)
      if (key.owner == owner)
        registry.Remove(Classes(key.path));
  };
  remove(KeyOwner::OneWordSize);
  if (!registry.Has(Classes(registered.OfWordSize(kOtherWordSize)))) {
    remove(KeyOwner::BothWordSizes);
    registry.RemoveIfEmpty(Classes(registered.library));
  }
  for (const wchar_t* folder : {L"CLSID", L"Interface", L"TypeLib"}) registry.RemoveIfEmpty(Classes(folder));
  registry.RemoveIfEmpty(kClassesKey);
}

}  // namespace

void Register(Audience audience) {
  const RegisteredKeys registered = KeysOfThisFile();
  const Registry registry = RegistryOf(audience);
  const bool again = registry.Has(Classes(registered.OfWordSize(kThisWordSize)));
  try {
    WriteAll(registry, registered);
  } catch (...) {
    const std::exception_ptr reason = std::current_exception();
    try {
      if (!again)
        RemoveAll(registry, registered);
    } catch (const ComponentError&) {
      // Why it could not be written says more.
    }
    std::rethrow_exception(reason);
  }
}

void Unregister(Audience audience) {
  RemoveAll(RegistryOf(audience), KeysOfThisFile());
}

}  // namespace fiscalon::component
