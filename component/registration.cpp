#include "component/registration.h"

#include <string>
#include <vector>

#include "component/failure.h"
#include "component/module.h"
#include "component/registry.h"

namespace fiscalon::component {

namespace {

const std::wstring kClassesKey = L"Software\\Classes\\";
/// The system's own proxy for interfaces that a type library describes.
const std::wstring kProxyOfTypeLibraries = L"{00020424-0000-0000-C000-000000000046}";

#ifdef _WIN64
const std::wstring kThisWordSize = L"win64";
const std::wstring kOtherWordSize = L"win32";
#else
const std::wstring kThisWordSize = L"win32";
const std::wstring kOtherWordSize = L"win64";
#endif

struct NamedType {
  std::wstring name = {};
  std::wstring id = {};
};

/// What the type library names.
struct ComponentTypes {
  std::wstring library = {};
  std::wstring version = {};
  std::wstring description = {};
  std::vector<NamedType> classes = {};
  std::vector<NamedType> interfaces = {};
};

std::wstring Braced(REFGUID id) {
  wchar_t text[39] = {};
  StringFromGUID2(id, text, 39);
  return text;
}

std::wstring Taken(BSTR text) {
  std::wstring taken(text, SysStringLen(text));
  SysFreeString(text);
  return taken;
}

void Need(HRESULT result) {
  if (FAILED(result))
    throw ComponentError(result, "The component's own type library cannot be read.");
}

void AddType(ITypeLib& library, UINT index, ComponentTypes& types) {
  Reference<ITypeInfo> information;
  Need(library.GetTypeInfo(index, information.Place()));
  TYPEATTR* attributes = nullptr;
  Need(information->GetTypeAttr(&attributes));
  const TYPEKIND kind = attributes->typekind;
  const WORD flags = attributes->wTypeFlags;
  const std::wstring id = Braced(attributes->guid);
  information->ReleaseTypeAttr(attributes);
  BSTR name = nullptr;
  Need(information->GetDocumentation(MEMBERID_NIL, &name, nullptr, nullptr, nullptr));
  const NamedType type{Taken(name), id};
  if (kind == TKIND_COCLASS && (flags & TYPEFLAG_FCANCREATE) != 0)
    types.classes.push_back(type);
  if (kind == TKIND_DISPATCH || kind == TKIND_INTERFACE)
    types.interfaces.push_back(type);
}

ComponentTypes TypesOfTheLibrary() {
  const Reference<ITypeLib> library = TypeLibrary();
  TLIBATTR* attributes = nullptr;
  Need(library->GetLibAttr(&attributes));
  ComponentTypes types{
      .library = Braced(attributes->guid),
      .version = std::to_wstring(attributes->wMajorVerNum) + L"." + std::to_wstring(attributes->wMinorVerNum)};
  library->ReleaseTLibAttr(attributes);
  BSTR description = nullptr;
  Need(library->GetDocumentation(-1, nullptr, &description, nullptr, nullptr));
  types.description = Taken(description);
  for (UINT index = 0; index < library->GetTypeInfoCount(); ++index) AddType(*library.Get(), index, types);
  return types;
}

Registry RegistryOf(Audience audience) {
  return audience == Audience::Machine ? Registry(HKEY_LOCAL_MACHINE, L"HKEY_LOCAL_MACHINE")
                                       : Registry(HKEY_CURRENT_USER, L"HKEY_CURRENT_USER");
}

std::wstring ClassKey(const NamedType& type) {
  return kClassesKey + L"CLSID\\" + type.id;
}

std::wstring InterfaceKey(const NamedType& type) {
  return kClassesKey + L"Interface\\" + type.id;
}

/// The name by which hosts create a class, which is a key too.
std::wstring ProgramId(const NamedType& type) {
  return L"Fiscalon." + type.name;
}

std::wstring VersionKey(const ComponentTypes& types) {
  return kClassesKey + L"TypeLib\\" + types.library + L"\\" + types.version;
}

void WriteClass(const Registry& registry, const ComponentTypes& types, const NamedType& type,
                const std::wstring& path) {
  const std::wstring key = ClassKey(type);
  const std::wstring name = ProgramId(type);
  registry.Write(key, L"", name);
  registry.Write(key + L"\\InprocServer32", L"", path);
  registry.Write(key + L"\\InprocServer32", L"ThreadingModel", L"Apartment");
  registry.Write(key + L"\\ProgID", L"", name);
  registry.Write(key + L"\\Programmable", L"", L"");
  registry.Write(key + L"\\TypeLib", L"", types.library);
  registry.Write(key + L"\\Version", L"", types.version);
  registry.Write(kClassesKey + name, L"", name);
  registry.Write(kClassesKey + name + L"\\CLSID", L"", type.id);
}

void WriteInterface(const Registry& registry, const ComponentTypes& types, const NamedType& type) {
  const std::wstring key = InterfaceKey(type);
  registry.Write(key, L"", type.name);
  registry.Write(key + L"\\ProxyStubClsid32", L"", kProxyOfTypeLibraries);
  registry.Write(key + L"\\TypeLib", L"", types.library);
  registry.Write(key + L"\\TypeLib", L"Version", types.version);
}

void WriteAll(const Registry& registry, const ComponentTypes& types) {
  const std::wstring path = ModulePath();
  const std::wstring version = VersionKey(types);
  registry.Write(version, L"", types.description);
  registry.Write(version + L"\\0\\" + kThisWordSize, L"", path);
  registry.Write(version + L"\\FLAGS", L"", L"0");
  registry.Write(version + L"\\HELPDIR", L"", path.substr(0, path.find_last_of(L'\\')));
  for (const NamedType& type : types.interfaces) WriteInterface(registry, types, type);
  for (const NamedType& type : types.classes) WriteClass(registry, types, type, path);
}

void RemoveAll(const Registry& registry, const ComponentTypes& types) {
  for (const NamedType& type : types.classes) registry.Remove(ClassKey(type));
  for (const NamedType& type : types.interfaces) registry.Remove(InterfaceKey(type));
  const std::wstring version = VersionKey(types);
  registry.Remove(version + L"\\0\\" + kThisWordSize);
  // Names and type library are one for both word sizes.
  if (!registry.Has(version + L"\\0\\" + kOtherWordSize)) {
    for (const NamedType& type : types.classes) registry.Remove(kClassesKey + ProgramId(type));
    registry.Remove(version);
    registry.RemoveIfEmpty(kClassesKey + L"TypeLib\\" + types.library);
  }
  for (const wchar_t* folder : {L"CLSID", L"Interface", L"TypeLib"}) registry.RemoveIfEmpty(kClassesKey + folder);
  registry.RemoveIfEmpty(L"Software\\Classes");
}

}  // namespace

void Register(Audience audience) {
  const ComponentTypes types = TypesOfTheLibrary();
  const Registry registry = RegistryOf(audience);
  const bool again = registry.Has(VersionKey(types) + L"\\0\\" + kThisWordSize);
  try {
    WriteAll(registry, types);
  } catch (...) {
    const std::exception_ptr reason = std::current_exception();
    try {
      if (!again)
        RemoveAll(registry, types);
    } catch (const ComponentError&) {
      // Why it could not be written says more.
    }
    std::rethrow_exception(reason);
  }
}

void Unregister(Audience audience) {
  RemoveAll(RegistryOf(audience), TypesOfTheLibrary());
}

}  // namespace fiscalon::component
