#include <ocidl.h>
#include <olectl.h>

#include <thread>

#include "tests/component/host.h"

namespace fiscalon::component {
namespace {

using ModuleTest = Component;

struct Identity {
  const wchar_t* name = nullptr;
  const CLSID& classId;
  const IID& interfaceId;
  const wchar_t* classText = nullptr;
  const wchar_t* interfaceText = nullptr;
};

// They stand in hosts that were built long ago.
const Identity kIdentities[] = {
    {L"PC4", __uuidof(PC4), __uuidof(_PC4), L"{3CE07A07-F32A-490E-9ED2-8C16C0A4D8C8}",
     L"{753D8EE7-B8AB-4A3E-B01B-F71CF8D7F245}"},
    {L"PC4s", __uuidof(PC4s), __uuidof(_PC4s), L"{2CDBB42E-246B-4646-9B28-648C65C7E38F}",
     L"{62321617-D784-4AA4-9F31-AEB3F4F1F260}"},
    {L"clsPC4GovFormat", __uuidof(clsPC4GovFormat), __uuidof(_clsPC4GovFormat),
     L"{9A61225E-9E48-4990-B07D-065A08B0A78E}", L"{07348267-251E-4766-8089-2E5B8AF3C256}"},
    {L"clsPC4GovFormats", __uuidof(clsPC4GovFormats), __uuidof(_clsPC4GovFormats),
     L"{8B20FC72-CC7B-47D6-BCE4-65FAC4B191CE}", L"{C81DAE67-8F83-4B23-8407-8CA770778BA8}"},
    {L"clsPC4FreeFormat", __uuidof(clsPC4FreeFormat), __uuidof(_clsPC4FreeFormat),
     L"{DB65E93A-2C73-446A-9B23-139484CE4527}", L"{FADED4C9-5EBC-4802-84B2-24BB2F789FF7}"},
    {L"clsPC4FreeFormats", __uuidof(clsPC4FreeFormats), __uuidof(_clsPC4FreeFormats),
     L"{85644516-8C31-4453-A8AA-2A6C191832FD}", L"{ACB74A23-F6C0-437D-A801-861ED69D7FED}"},
    {L"Levyra", __uuidof(Levyra), __uuidof(_Levyra), L"{59DF283E-D04B-4201-9D14-40F0A37E9651}",
     L"{CA6A468F-B8D2-4F93-9932-2510454008C1}"},
    {L"clsValidateAddInfo", __uuidof(clsValidateAddInfo), __uuidof(_clsValidateAddInfo),
     L"{EDE6386E-E16A-4FB1-BD14-7C4009662173}", L"{DB2436AC-C4CC-4A89-80E4-4CB2E22A8116}"},
    {L"Setup", __uuidof(Setup), __uuidof(_Setup), L"{BEF9DE8A-3F3F-43BC-B1AE-7557CAE16401}",
     L"{40E806F5-D23F-4107-9609-247626C3562A}"},
};
constexpr const wchar_t* kLibrary = L"{2CF4D79D-59C6-45C6-81C2-8CC1F3046A37}";

HRESULT FindFactory(REFCLSID classId, Reference<IClassFactory>& factory) {
  return DllGetClassObject(classId, IID_IClassFactory, reinterpret_cast<void**>(factory.Place()));
}

std::wstring TextOfId(REFGUID id) {
  wchar_t text[39] = {};
  StringFromGUID2(id, text, 39);
  return text;
}

TEST_F(ModuleTest, IdentifiersNeverChange) {
  for (const Identity& each : kIdentities) {
    EXPECT_EQ(TextOfId(each.classId), each.classText) << each.name;
    EXPECT_EQ(TextOfId(each.interfaceId), each.interfaceText) << each.name;
  }
  const Reference<_PC4s> records = NewRecords();
  Reference<ITypeInfo> information;
  ASSERT_EQ(records->GetTypeInfo(0, 0, information.Place()), S_OK);
  Reference<ITypeLib> library;
  UINT index = 0;
  ASSERT_EQ(information->GetContainingTypeLib(library.Place(), &index), S_OK);
  TLIBATTR* attributes = nullptr;
  library->GetLibAttr(&attributes);
  EXPECT_EQ(TextOfId(attributes->guid), kLibrary);
  EXPECT_EQ(attributes->wMajorVerNum, 1);
  EXPECT_EQ(attributes->wMinorVerNum, 0);
  library->ReleaseTLibAttr(attributes);
}

TEST_F(ModuleTest, EachObjectAndEachLockKeepsItLoaded) {
  for (const Identity& each : kIdentities) {
    if (each.classId == __uuidof(PC4))
      continue;
    Reference<IClassFactory> factory;
    ASSERT_EQ(FindFactory(each.classId, factory), S_OK) << each.name;
    EXPECT_EQ(DllCanUnloadNow(), S_FALSE);
    Reference<IUnknown> object;
    ASSERT_EQ(factory->CreateInstance(nullptr, each.interfaceId, reinterpret_cast<void**>(object.Place())), S_OK);
    factory = {};
    EXPECT_EQ(DllCanUnloadNow(), S_FALSE) << each.name;
    object = {};
    EXPECT_EQ(DllCanUnloadNow(), S_OK) << each.name;
  }
  Reference<IClassFactory> factory;
  FindFactory(__uuidof(Levyra), factory);
  factory->LockServer(TRUE);
  factory->LockServer(TRUE);
  factory->LockServer(FALSE);
  factory = {};
  EXPECT_EQ(DllCanUnloadNow(), S_FALSE);
  FindFactory(__uuidof(Levyra), factory);
  factory->LockServer(FALSE);
  // One too many is no lock less.
  factory->LockServer(FALSE);
  factory = {};
  EXPECT_EQ(DllCanUnloadNow(), S_OK);
}

TEST_F(ModuleTest, AMemberAndAWalkKeepItLoaded) {
  Reference<_PC4s> records = NewRecords();
  Reference<_PC4> member;
  records->Add(nullptr, nullptr, nullptr, nullptr, member.Place());
  Reference<IUnknown> walk;
  records->get_NewEnum(walk.Place());
  records = {};
  EXPECT_EQ(DllCanUnloadNow(), S_FALSE);
  member = {};
  EXPECT_EQ(DllCanUnloadNow(), S_FALSE);
  walk = {};
  EXPECT_EQ(DllCanUnloadNow(), S_OK);
}

TEST_F(ModuleTest, ARecordIsNotMadeByHosts) {
  Reference<IClassFactory> factory;
  EXPECT_EQ(FindFactory(__uuidof(PC4), factory), CLASS_E_CLASSNOTAVAILABLE);
  EXPECT_FALSE(factory);
  EXPECT_EQ(FindFactory(IID_IDispatch, factory), CLASS_E_CLASSNOTAVAILABLE);
}

TEST_F(ModuleTest, FactoriesMindWhatTheyAreAsked) {
  EXPECT_EQ(DllGetClassObject(__uuidof(Levyra), IID_IClassFactory, nullptr), E_POINTER);
  void* none = this;
  EXPECT_EQ(DllGetClassObject(__uuidof(Levyra), IID_IDispatch, &none), E_NOINTERFACE);
  EXPECT_EQ(none, nullptr);
  Reference<IClassFactory> factory;
  ASSERT_EQ(FindFactory(__uuidof(Levyra), factory), S_OK);
  ForeignObject outer;
  none = this;
  EXPECT_EQ(factory->CreateInstance(&outer, IID_IUnknown, &none), CLASS_E_NOAGGREGATION);
  EXPECT_EQ(none, nullptr);
  EXPECT_EQ(factory->CreateInstance(nullptr, IID_IUnknown, nullptr), E_POINTER);
  EXPECT_EQ(factory->CreateInstance(nullptr, IID_IStream, &none), E_NOINTERFACE);
  EXPECT_EQ(outer.references, 1U);
}

TEST_F(ModuleTest, AnObjectIsOneWhateverItIsAskedFor) {
  const Reference<_Levyra> session = NewSession();
  for (const IID& id : {IID_IUnknown, IID_IDispatch, __uuidof(_Levyra), IID_ISupportErrorInfo, IID_IProvideClassInfo}) {
    Reference<IUnknown> part;
    ASSERT_EQ(session->QueryInterface(id, reinterpret_cast<void**>(part.Place())), S_OK);
    Reference<IUnknown> whole;
    ASSERT_EQ(part->QueryInterface(IID_IUnknown, reinterpret_cast<void**>(whole.Place())), S_OK);
    EXPECT_EQ(whole.Get(), static_cast<IUnknown*>(session.Get()));
  }
  void* none = this;
  EXPECT_EQ(session->QueryInterface(IID_IStream, &none), E_NOINTERFACE);
  EXPECT_EQ(none, nullptr);
  EXPECT_EQ(session->QueryInterface(IID_IUnknown, nullptr), E_POINTER);
}

TEST_F(ModuleTest, ObjectsDescribeThemselves) {
  const Reference<_Levyra> session = NewSession();
  UINT count = 0;
  EXPECT_EQ(session->GetTypeInfoCount(&count), S_OK);
  EXPECT_EQ(count, 1U);
  EXPECT_EQ(session->GetTypeInfoCount(nullptr), E_POINTER);
  Reference<ITypeInfo> information;
  EXPECT_EQ(session->GetTypeInfo(1, 0, information.Place()), DISP_E_BADINDEX);
  EXPECT_EQ(session->GetTypeInfo(0, 0, nullptr), E_POINTER);
  Reference<IProvideClassInfo> provider;
  ASSERT_EQ(session->QueryInterface(IID_IProvideClassInfo, reinterpret_cast<void**>(provider.Place())), S_OK);
  ASSERT_EQ(provider->GetClassInfo(information.Place()), S_OK);
  HostText name;
  information->GetDocumentation(MEMBERID_NIL, name.Place(), nullptr, nullptr, nullptr);
  EXPECT_EQ(name.View(), L"Levyra");
  Reference<ISupportErrorInfo> support;
  ASSERT_EQ(session->QueryInterface(IID_ISupportErrorInfo, reinterpret_cast<void**>(support.Place())), S_OK);
  EXPECT_EQ(support->InterfaceSupportsErrorInfo(__uuidof(_Levyra)), S_OK);
  EXPECT_EQ(support->InterfaceSupportsErrorInfo(__uuidof(_PC4s)), S_FALSE);
}

TEST_F(ModuleTest, CallsByNameMindWhatTheyAreAsked) {
  const Reference<_Levyra> session = NewSession();
  std::wstring name = L"NoSuchMember";
  LPOLESTR names = name.data();
  DISPID id = 0;
  EXPECT_EQ(session->GetIDsOfNames(IID_NULL, &names, 1, 0, &id), DISP_E_UNKNOWNNAME);
  EXPECT_EQ(id, DISPID_UNKNOWN);
  EXPECT_EQ(session->GetIDsOfNames(IID_IUnknown, &names, 1, 0, &id), DISP_E_UNKNOWNINTERFACE);
  EXPECT_EQ(session->GetIDsOfNames(IID_NULL, nullptr, 1, 0, &id), E_POINTER);
  EXPECT_EQ(session->Invoke(1, IID_NULL, 0, DISPATCH_PROPERTYGET, nullptr, nullptr, nullptr, nullptr), E_POINTER);
  DISPPARAMS none = {};
  EXPECT_EQ(session->Invoke(1, IID_IUnknown, 0, DISPATCH_PROPERTYGET, &none, nullptr, nullptr, nullptr),
            DISP_E_UNKNOWNINTERFACE);
  EXPECT_EQ(Call(session.Get(), 999, DISPATCH_METHOD).code, DISP_E_MEMBERNOTFOUND);
  // Names are found whatever their case.
  EXPECT_EQ(MemberNamed(session.Get(), L"paidamount"), 5);
  // A failure is told also to a caller that gives no place for it.
  HostValue code = L"12";
  DISPPARAMS one = {&code.Raw(), nullptr, 1, 0};
  EXPECT_EQ(session->Invoke(15, IID_NULL, 0, DISPATCH_METHOD, &one, nullptr, nullptr, nullptr), DISP_E_EXCEPTION);
}

/// Closes the next form that a thread shows.
void CloseFormOf(DWORD thread) {
  HWND form = nullptr;
  while (form == nullptr) {
    EnumThreadWindows(
        thread,
        [](HWND window, LPARAM found) {
          wchar_t kind[32] = {};
          GetClassNameW(window, kind, 32);
          if (std::wstring(kind) == L"FiscalonForm" && IsWindowVisible(window))
            *reinterpret_cast<HWND*>(found) = window;
          return TRUE;
        },
        reinterpret_cast<LPARAM>(&form));
    Sleep(1);
  }
  PostMessageW(form, WM_CLOSE, 0, 0);
}

TEST_F(ModuleTest, GoesAndComesAgainAfterItHasShownAForm) {
  using FindFactoryExport = HRESULT(STDAPICALLTYPE*)(REFCLSID, REFIID, void**);
  using MayGoExport = HRESULT(STDAPICALLTYPE*)();
  for (int round = 0; round < 2; ++round) {
    const HMODULE module = LoadLibraryW(FISCALON_COMPONENT);
    ASSERT_NE(module, nullptr);
    const auto find =
        reinterpret_cast<FindFactoryExport>(reinterpret_cast<void*>(GetProcAddress(module, "DllGetClassObject")));
    const auto mayGo =
        reinterpret_cast<MayGoExport>(reinterpret_cast<void*>(GetProcAddress(module, "DllCanUnloadNow")));
    {
      Reference<IClassFactory> factory;
      ASSERT_EQ(find(__uuidof(Levyra), IID_IClassFactory, reinterpret_cast<void**>(factory.Place())), S_OK);
      Reference<_Levyra> session;
      ASSERT_EQ(factory->CreateInstance(nullptr, __uuidof(_Levyra), reinterpret_cast<void**>(session.Place())), S_OK);
      std::thread user(CloseFormOf, GetCurrentThreadId());
      VARIANT_BOOL chosen = VARIANT_TRUE;
      EXPECT_EQ(session->ShowLevyraScreen(HostText(L"15"), &chosen), S_OK);
      EXPECT_EQ(chosen, VARIANT_FALSE);
      user.join();
      EXPECT_EQ(mayGo(), S_FALSE);
    }
    EXPECT_EQ(mayGo(), S_OK);
    FreeLibrary(module);
    EXPECT_EQ(GetModuleHandleW(L"fiscalon.dll"), nullptr);
  }
}

TEST_F(ModuleTest, OnlyTheRecordIsMadeByNobodyElse) {
  Reference<ITypeLib> library;
  wchar_t path[MAX_PATH] = {};
  GetModuleFileNameW(nullptr, path, MAX_PATH);
  ASSERT_EQ(LoadTypeLibEx(path, REGKIND_NONE, library.Place()), S_OK);
  for (const Identity& each : kIdentities) {
    Reference<ITypeInfo> information;
    ASSERT_EQ(library->GetTypeInfoOfGuid(each.classId, information.Place()), S_OK) << each.name;
    TYPEATTR* attributes = nullptr;
    information->GetTypeAttr(&attributes);
    const bool creatable = (attributes->wTypeFlags & TYPEFLAG_FCANCREATE) != 0;
    information->ReleaseTypeAttr(attributes);
    EXPECT_EQ(creatable, each.classId != __uuidof(PC4)) << each.name;
  }
}

}  // namespace
}  // namespace fiscalon::component
