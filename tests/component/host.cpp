#include "tests/component/host.h"

#include "core/host_setup.h"

namespace fiscalon::component {

Failed FailureOf(HRESULT code) {
  Failed failed{.code = code};
  Reference<IErrorInfo> information;
  if (GetErrorInfo(0, information.Place()) != S_OK)
    return failed;
  HostText source;
  HostText description;
  information->GetSource(source.Place());
  information->GetDescription(description.Place());
  failed.source = source.View();
  failed.description = description.View();
  return failed;
}

Failed RunTimeError(int number, const wchar_t* description) {
  return {static_cast<HRESULT>(0x800A0000U + static_cast<unsigned>(number)), L"Fiscalon", description};
}

DISPID MemberNamed(IDispatch* object, const wchar_t* name) {
  std::wstring copy = name;
  LPOLESTR names = copy.data();
  DISPID id = DISPID_UNKNOWN;
  object->GetIDsOfNames(IID_NULL, &names, 1, LOCALE_USER_DEFAULT, &id);
  return id;
}

Called Call(IDispatch* object, DISPID member, WORD flags, std::vector<HostValue> arguments) {
  std::vector<VARIANT> reversed;
  for (auto argument = arguments.rbegin(); argument != arguments.rend(); ++argument)
    reversed.push_back(argument->Raw());
  DISPPARAMS parameters = {reversed.data(), nullptr, static_cast<UINT>(reversed.size()), 0};
  DISPID put = DISPID_PROPERTYPUT;
  if ((flags & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF)) != 0) {
    parameters.cNamedArgs = 1;
    parameters.rgdispidNamedArgs = &put;
  }
  Called called;
  EXCEPINFO exception = {};
  called.code = object->Invoke(member, IID_NULL, LOCALE_USER_DEFAULT, flags, &parameters, &called.value.Raw(),
                               &exception, nullptr);
  called.failed.code = exception.scode;
  called.failed.source = exception.bstrSource != nullptr ? exception.bstrSource : L"";
  called.failed.description = exception.bstrDescription != nullptr ? exception.bstrDescription : L"";
  SysFreeString(exception.bstrSource);
  SysFreeString(exception.bstrDescription);
  SysFreeString(exception.bstrHelpFile);
  return called;
}

Called Get(IDispatch* object, const wchar_t* name, std::vector<HostValue> arguments) {
  return Call(object, MemberNamed(object, name), DISPATCH_PROPERTYGET, std::move(arguments));
}

Called Do(IDispatch* object, const wchar_t* name, std::vector<HostValue> arguments) {
  return Call(object, MemberNamed(object, name), DISPATCH_METHOD, std::move(arguments));
}

Called Put(IDispatch* object, const wchar_t* name, HostValue value, WORD flags) {
  return Call(object, MemberNamed(object, name), flags, {std::move(value)});
}

HRESULT ForeignObject::QueryInterface(REFIID id, void** object) {
  const bool has = id == IID_IUnknown || id == IID_IDispatch || claimsAll;
  *object = has ? this : nullptr;
  if (has)
    AddRef();
  return has ? S_OK : E_NOINTERFACE;
}

void Component::SetUp() {
  ResetModule();
  UseLocale("en-CA");
}

void Component::TearDown() {
  SetErrorInfo(0, nullptr);
  EXPECT_EQ(DllCanUnloadNow(), S_OK);
}

}  // namespace fiscalon::component
