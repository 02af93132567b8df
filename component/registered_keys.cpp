#include "component/registered_keys.h"

#include "component/failure.h"
#include "component/module.h"

namespace fiscalon::component {

namespace {

/// The system's own proxy for interfaces that a type library describes.
const std::wstring kProxyOfTypeLibraries = L"{00020424-0000-0000-C000-000000000046}";

struct NamedType {
  std::wstring name = {};
  std::wstring id = {};
};

/// What the type library names.
struct ComponentTypes {
  std::wstring library = {};
  std::wstring majorVersion = {};
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
  ComponentTypes types{.library = Braced(attributes->guid), .majorVersion = std::to_wstring(attributes->wMajorVerNum)};
  types.version = types.majorVersion + L"." + std::to_wstring(attributes->wMinorVerNum);
  library->ReleaseTLibAttr(attributes);
  BSTR description = nullptr;
  Need(library->GetDocumentation(-1, nullptr, &description, nullptr, nullptr));
  types.description = Taken(description);
  for (UINT index = 0; index < library->GetTypeInfoCount(); ++index) AddType(*library.Get(), index, types);
  return types;
}

RegisteredKey InterfaceKey(const ComponentTypes& types, const NamedType& type) {
  return {.path = L"Interface\\" + type.id,
          .values = {{L"", L"", type.name},
                     {L"\\ProxyStubClsid32", L"", kProxyOfTypeLibraries},
                     {L"\\TypeLib", L"", types.library},
                     {L"\\TypeLib", L"Version", types.version}}};
}

/// The name by which hosts create a class.
std::wstring ProgramId(const NamedType& type) {
  return L"Fiscalon." + type.name;
}

/// The same name of this version for hosts that must not meet a later one.
std::wstring VersionedProgramId(const ComponentTypes& types, const NamedType& type) {
  return ProgramId(type) + L"." + types.majorVersion;
}

RegisteredKey ClassKey(const ComponentTypes& types, const NamedType& type, const ComponentPlace& place) {
  return {.path = L"CLSID\\" + type.id,
          .values = {{L"", L"", ProgramId(type)},
                     {L"\\InprocServer32", L"", place.file},
                     {L"\\InprocServer32", L"ThreadingModel", L"Apartment"},
                     {L"\\ProgID", L"", VersionedProgramId(types, type)},
                     {L"\\VersionIndependentProgID", L"", ProgramId(type)},
                     {L"\\Programmable", L"", L""},
                     {L"\\TypeLib", L"", types.library},
                     {L"\\Version", L"", types.version}}};
}

RegisteredKey NameKey(const ComponentTypes& types, const NamedType& type) {
  return {.path = ProgramId(type),
          .owner = KeyOwner::BothWordSizes,
          .values = {{L"", L"", ProgramId(type)},
                     {L"\\CLSID", L"", type.id},
                     {L"\\CurVer", L"", VersionedProgramId(types, type)}}};
}

RegisteredKey VersionedNameKey(const ComponentTypes& types, const NamedType& type) {
  return {.path = VersionedProgramId(types, type),
          .owner = KeyOwner::BothWordSizes,
          .values = {{L"", L"", ProgramId(type)}, {L"\\CLSID", L"", type.id}}};
}

}  // namespace

std::wstring RegisteredKeys::OfWordSize(const std::wstring& wordSize) const {
  return libraryVersion + L"\\0\\" + wordSize;
}

RegisteredKeys KeysOfTheComponent(const ComponentPlace& place) {
  const ComponentTypes types = TypesOfTheLibrary();
  RegisteredKeys registered{.library = L"TypeLib\\" + types.library};
  registered.libraryVersion = registered.library + L"\\" + types.version;
  std::vector<RegisteredKey>& keys = registered.keys;
  keys.push_back(
      {.path = registered.libraryVersion,
       .owner = KeyOwner::BothWordSizes,
       .values = {{L"", L"", types.description}, {L"\\FLAGS", L"", L"0"}, {L"\\HELPDIR", L"", place.folder}}});
  keys.push_back({.path = registered.OfWordSize(place.wordSize), .values = {{L"", L"", place.file}}});
  for (const NamedType& type : types.interfaces) keys.push_back(InterfaceKey(types, type));
  for (const NamedType& type : types.classes) keys.push_back(ClassKey(types, type, place));
  for (const NamedType& type : types.classes) {
    keys.push_back(NameKey(types, type));
    keys.push_back(VersionedNameKey(types, type));
  }
  return registered;
}

}  // namespace fiscalon::component
