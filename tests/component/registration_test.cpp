#include <olectl.h>
#include <sddl.h>

#include <map>
#include <string>

#include "component/module.h"
#include "tests/component/host.h"

// The system's headers have no declaration of it.
STDAPI DllInstall(BOOL install, LPCWSTR whom);

namespace fiscalon::component {
namespace {

/// Everything below a key: the text of each value by "path|name".
using Export = std::map<std::wstring, std::wstring>;

void AddKey(HKEY root, const std::wstring& path, Export& found) {
  HKEY key = nullptr;
  if (RegOpenKeyExW(root, path.c_str(), 0, KEY_READ, &key) != ERROR_SUCCESS)
    return;
  found[path + L"|"] = L"(key)";
  wchar_t name[256] = {};
  wchar_t text[1024] = {};
  for (DWORD index = 0;; ++index) {
    DWORD length = 256;
    DWORD bytes = sizeof text;
    if (RegEnumValueW(key, index, name, &length, nullptr, nullptr, reinterpret_cast<BYTE*>(text), &bytes) !=
        ERROR_SUCCESS)
      break;
    found[path + L"|" + name] = text;
  }
  for (DWORD index = 0;; ++index) {
    DWORD length = 256;
    if (RegEnumKeyExW(key, index, name, &length, nullptr, nullptr, nullptr, nullptr) != ERROR_SUCCESS)
      break;
    AddKey(root, (path.empty() ? L"" : path + L"\\") + name, found);
  }
  RegCloseKey(key);
}

/// Two empty roots in place of the machine's and the user's.
class RegistrationTest : public Component {
 protected:
  void SetUp() override {
    Component::SetUp();
    RegCreateKeyExW(HKEY_CURRENT_USER, kFolder, 0, nullptr, 0, KEY_ALL_ACCESS, nullptr, &folder_, nullptr);
    machine_ = Make(L"Machine");
    user_ = Make(L"User");
    Use(machine_, user_);
  }
  void TearDown() override {
    RegOverridePredefKey(HKEY_LOCAL_MACHINE, nullptr);
    RegOverridePredefKey(HKEY_CURRENT_USER, nullptr);
    RegCloseKey(machine_);
    RegCloseKey(user_);
    RegCloseKey(folder_);
    RegDeleteTreeW(HKEY_CURRENT_USER, kFolder);
    Component::TearDown();
  }

  HKEY Make(const wchar_t* name) {
    HKEY key = nullptr;
    RegCreateKeyExW(folder_, name, 0, nullptr, 0, KEY_ALL_ACCESS, nullptr, &key, nullptr);
    return key;
  }
  static void Use(HKEY machine, HKEY user) {
    RegOverridePredefKey(HKEY_LOCAL_MACHINE, machine);
    RegOverridePredefKey(HKEY_CURRENT_USER, user);
  }
  static Export All(HKEY root) {
    Export found;
    AddKey(root, L"", found);
    return found;
  }
  static void Write(HKEY root, const wchar_t* path) {
    HKEY key = nullptr;
    RegCreateKeyExW(root, path, 0, nullptr, 0, KEY_ALL_ACCESS, nullptr, &key, nullptr);
    RegCloseKey(key);
  }

  static constexpr const wchar_t* kFolder = L"Software\\Fiscalon tests";
  HKEY folder_ = nullptr;
  HKEY machine_ = nullptr;
  HKEY user_ = nullptr;
};

const std::wstring kSession = L"{59DF283E-D04B-4201-9D14-40F0A37E9651}";
const std::wstring kSessionInterface = L"{CA6A468F-B8D2-4F93-9932-2510454008C1}";
const std::wstring kLibraryKey = L"{2CF4D79D-59C6-45C6-81C2-8CC1F3046A37}";
#ifdef _WIN64
const std::wstring kThis = L"win64";
const std::wstring kOther = L"win32";
#else
const std::wstring kThis = L"win32";
const std::wstring kOther = L"win64";
#endif

void ExpectRegistered(Export found) {
  const std::wstring path = ModulePath();
  const std::wstring at = L"Software\\Classes\\";
  EXPECT_EQ(found[at + L"Fiscalon.Levyra\\CLSID|"], kSession);
  EXPECT_EQ(found[at + L"CLSID\\" + kSession + L"\\InprocServer32|"], path);
  EXPECT_EQ(found[at + L"CLSID\\" + kSession + L"\\InprocServer32|ThreadingModel"], L"Apartment");
  EXPECT_EQ(found[at + L"CLSID\\" + kSession + L"\\ProgID|"], L"Fiscalon.Levyra.1");
  EXPECT_EQ(found[at + L"CLSID\\" + kSession + L"\\VersionIndependentProgID|"], L"Fiscalon.Levyra");
  EXPECT_EQ(found[at + L"Fiscalon.Levyra\\CurVer|"], L"Fiscalon.Levyra.1");
  EXPECT_EQ(found[at + L"Fiscalon.Levyra.1\\CLSID|"], kSession);
  EXPECT_EQ(found[at + L"CLSID\\" + kSession + L"\\TypeLib|"], kLibraryKey);
  EXPECT_EQ(found[at + L"Interface\\" + kSessionInterface + L"|"], L"_Levyra");
  EXPECT_EQ(found[at + L"Interface\\" + kSessionInterface + L"\\ProxyStubClsid32|"],
            L"{00020424-0000-0000-C000-000000000046}");
  EXPECT_EQ(found[at + L"Interface\\" + kSessionInterface + L"\\TypeLib|"], kLibraryKey);
  EXPECT_EQ(found[at + L"Interface\\" + kSessionInterface + L"\\TypeLib|Version"], L"1.0");
  EXPECT_EQ(found[at + L"TypeLib\\" + kLibraryKey + L"\\1.0\\0\\" + kThis + L"|"], path);
  EXPECT_EQ(found[at + L"TypeLib\\" + kLibraryKey + L"\\1.0\\HELPDIR|"], path.substr(0, path.find_last_of(L'\\') + 1));
  size_t classes = 0;
  size_t versions = 0;
  size_t interfaces = 0;
  for (const auto& [key, text] : found) {
    classes += key.ends_with(L"\\InprocServer32|") ? 1 : 0;
    versions += key.ends_with(L"\\CurVer|") && found.contains(at + text + L"\\CLSID|") ? 1 : 0;
    interfaces += key.ends_with(L"\\ProxyStubClsid32|") ? 1 : 0;
  }
  // A record has an interface, and no class that hosts create.
  EXPECT_EQ(classes, 8U);
  EXPECT_EQ(versions, 8U);
  EXPECT_EQ(interfaces, 9U);
  EXPECT_FALSE(found.contains(at + L"Fiscalon.PC4|"));
  EXPECT_FALSE(found.contains(at + L"Fiscalon.PC4.1|"));
}

TEST_F(RegistrationTest, TheMachinesLeavesNothingBehind) {
  EXPECT_EQ(DllRegisterServer(), S_OK);
  ExpectRegistered(All(machine_));
  EXPECT_EQ(All(user_), Export({{L"|", L"(key)"}}));
  EXPECT_EQ(DllRegisterServer(), S_OK);
  ExpectRegistered(All(machine_));
  EXPECT_EQ(DllUnregisterServer(), S_OK);
  EXPECT_EQ(All(machine_), Export({{L"|", L"(key)"}, {L"Software|", L"(key)"}}));
}

TEST_F(RegistrationTest, TheUsersTouchesNothingOfTheMachines) {
  EXPECT_EQ(DllInstall(TRUE, L"user"), S_OK);
  ExpectRegistered(All(user_));
  EXPECT_EQ(All(machine_), Export({{L"|", L"(key)"}}));
  EXPECT_EQ(DllInstall(FALSE, L"USER"), S_OK);
  EXPECT_EQ(All(user_), Export({{L"|", L"(key)"}, {L"Software|", L"(key)"}}));
}

TEST_F(RegistrationTest, WhatOthersHaveStays) {
  Write(machine_, L"Software\\Classes\\CLSID\\{00000000-0000-0000-0000-000000000001}");
  Write(machine_, L"Software\\Classes\\Other.Program\\CLSID");
  Write(machine_, (L"Software\\Classes\\TypeLib\\" + kLibraryKey + L"\\0.9").c_str());
  const Export before = All(machine_);
  EXPECT_EQ(DllRegisterServer(), S_OK);
  EXPECT_EQ(DllUnregisterServer(), S_OK);
  EXPECT_EQ(All(machine_), before);
}

TEST_F(RegistrationTest, WhatTheOtherWordSizeNeedsStaysWithIt) {
  EXPECT_EQ(DllRegisterServer(), S_OK);
  Write(machine_, (L"Software\\Classes\\TypeLib\\" + kLibraryKey + L"\\1.0\\0\\" + kOther).c_str());
  EXPECT_EQ(DllUnregisterServer(), S_OK);
  Export left = All(machine_);
  EXPECT_EQ(left[L"Software\\Classes\\Fiscalon.Levyra\\CLSID|"], kSession);
  EXPECT_EQ(left[L"Software\\Classes\\Fiscalon.Levyra.1\\CLSID|"], kSession);
  EXPECT_TRUE(left.contains(L"Software\\Classes\\TypeLib\\" + kLibraryKey + L"\\1.0\\FLAGS|"));
  EXPECT_FALSE(left.contains(L"Software\\Classes\\TypeLib\\" + kLibraryKey + L"\\1.0\\0\\" + kThis + L"|"));
  EXPECT_FALSE(left.contains(L"Software\\Classes\\CLSID|"));
}

TEST_F(RegistrationTest, UnregisteringWhatNeverWasChangesNothing) {
  const Export before = All(machine_);
  EXPECT_EQ(DllUnregisterServer(), S_OK);
  EXPECT_EQ(DllInstall(FALSE, L"user"), S_OK);
  EXPECT_EQ(All(machine_), before);
  EXPECT_EQ(All(user_), before);
}

/// A key that nobody may write as long as this lives.
class ReadOnlyKey {
 public:
  ReadOnlyKey(HKEY root, const std::wstring& path) {
    RegCreateKeyExW(root, path.c_str(), 0, nullptr, 0, KEY_ALL_ACCESS, nullptr, &key_, nullptr);
    Allow(L"D:(A;;KR;;;WD)");
  }
  ~ReadOnlyKey() {
    Allow(L"D:(A;;KA;;;WD)");
    RegCloseKey(key_);
  }
  ReadOnlyKey(const ReadOnlyKey&) = delete;
  ReadOnlyKey& operator=(const ReadOnlyKey&) = delete;

 private:
  void Allow(const wchar_t* rights) {
    PSECURITY_DESCRIPTOR descriptor = nullptr;
    ConvertStringSecurityDescriptorToSecurityDescriptorW(rights, SDDL_REVISION_1, &descriptor, nullptr);
    EXPECT_EQ(RegSetKeySecurity(key_, DACL_SECURITY_INFORMATION, descriptor), ERROR_SUCCESS);
    LocalFree(descriptor);
  }

  HKEY key_ = nullptr;
};

TEST_F(RegistrationTest, ARegistryThatCannotBeWrittenSaysWhereAndWhatToDo) {
  const std::wstring path = L"Software\\Classes\\TypeLib\\" + kLibraryKey + L"\\1.0";
  const std::wstring remedy = L" Register as an administrator, or for one user: regsvr32 /n /i:user fiscalon.dll";
  const ReadOnlyKey ofTheMachine(machine_, path);
  const ReadOnlyKey ofTheUser(user_, path);
  Failed failed = FailureOf(DllRegisterServer());
  EXPECT_EQ(failed.code, HRESULT_FROM_WIN32(ERROR_ACCESS_DENIED));
  EXPECT_EQ(failed.source, L"Fiscalon");
  EXPECT_EQ(failed.description.find(L"Cannot make HKEY_LOCAL_MACHINE\\" + path + L": "), 0U);
  EXPECT_TRUE(failed.description.ends_with(remedy));
  EXPECT_EQ(All(machine_), Export({{L"|", L"(key)"}, {L"Software|", L"(key)"}}));
  failed = FailureOf(DllInstall(TRUE, L"user"));
  EXPECT_EQ(failed.code, HRESULT_FROM_WIN32(ERROR_ACCESS_DENIED));
  EXPECT_EQ(failed.description.find(L"Cannot make HKEY_CURRENT_USER\\" + path + L": "), 0U);
}

TEST_F(RegistrationTest, WhatWasWrittenGoesAgainWhereTheRestCannotBe) {
  const std::wstring path = L"Software\\Classes\\Fiscalon.clsValidateAddInfo";
  const ReadOnlyKey last(machine_, path);
  EXPECT_EQ(DllRegisterServer(), HRESULT_FROM_WIN32(ERROR_ACCESS_DENIED));
  for (const auto& [key, text] : All(machine_)) EXPECT_TRUE((path + L"|").starts_with(key.substr(0, key.size() - 1)));
}

TEST_F(RegistrationTest, OnlyTwoAudiencesAreKnown) {
  const Failed failed = FailureOf(DllInstall(TRUE, L"everybody"));
  EXPECT_EQ(failed.code, E_INVALIDARG);
  EXPECT_EQ(failed.description, L"The component is installed for all users (/i) or for one (/i:user).");
  EXPECT_EQ(DllInstall(TRUE, nullptr), S_OK);
  ExpectRegistered(All(machine_));
}

}  // namespace
}  // namespace fiscalon::component
