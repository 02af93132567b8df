// What the system calls in the component's file. None of it holds any of the program's logic.

#include <olectl.h>

#include <cwchar>

#include "component/class_factory.h"
#include "component/failure.h"
#include "component/module.h"
#include "component/registration.h"

using fiscalon::component::Answer;
using fiscalon::component::Audience;
using fiscalon::component::ComponentError;

STDAPI DllGetClassObject(REFCLSID classId, REFIID interfaceId, void** factory) {
  return fiscalon::component::FindClassFactory(classId, interfaceId, factory);
}

STDAPI DllCanUnloadNow() {
  return fiscalon::component::NobodyNeedsTheModule() ? S_OK : S_FALSE;
}

STDAPI DllRegisterServer() {
  return Answer(IID_NULL, [] { Register(Audience::Machine); });
}

STDAPI DllUnregisterServer() {
  return Answer(IID_NULL, [] { Unregister(Audience::Machine); });
}

/// `regsvr32 /i[:user]`: for all users, or for the current one, who needs no administrator's rights for it.
STDAPI DllInstall(BOOL install, LPCWSTR whom) {
  return Answer(IID_NULL, [&] {
    const std::wstring audience = whom == nullptr ? L"" : whom;
    if (!audience.empty() && _wcsicmp(audience.c_str(), L"user") != 0)
      throw ComponentError(E_INVALIDARG, "The component is installed for all users (/i) or for one (/i:user).");
    const Audience registered = audience.empty() ? Audience::Machine : Audience::User;
    if (install)
      Register(registered);
    else
      Unregister(registered);
  });
}
