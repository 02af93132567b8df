#include "component/dispatch.h"

#include "component/failure.h"
#include "component/module.h"
#include "core/platform/runtime_error.h"

namespace fiscalon::component {

namespace {

template <typename Act>
HRESULT WithTypes(REFIID interfaceId, Act&& act) noexcept {
  try {
    return act();
  } catch (...) {
    return ReportFailure(interfaceId);
  }
}

/// What is refused before the object hears of the call, said as the object would say it.
void SayRefused(HRESULT refused) noexcept {
  try {
    if (refused == DISP_E_TYPEMISMATCH)
      Raise(error_number::kTypeMismatch);
    if (refused == DISP_E_OVERFLOW)
      Raise(error_number::kOverflow);
  } catch (...) {
    ReportFailure(IID_IDispatch);
  }
}

bool PutsAnObject(const DISPPARAMS& arguments) {
  if (arguments.cArgs == 0)
    return false;
  const VARIANT* value = &arguments.rgvarg[0];
  if (value->vt == (VT_BYREF | VT_VARIANT))
    value = value->pvarVal;
  return (value->vt & ~VT_BYREF) == VT_DISPATCH;
}

/// A script that makes a statement of a member, or an enumerator of a collection, asks for a method, whether it is one
/// or a property. Not the other way round: whoever looks at a property must not set a method off. And many a language
/// puts an object as it puts a value, where it is set by reference.
WORD FlagsOf(const MemberCall& call) {
  if ((call.flags & DISPATCH_METHOD) != 0)
    return call.flags | DISPATCH_PROPERTYGET;
  if ((call.flags & DISPATCH_PROPERTYPUT) != 0 && PutsAnObject(*call.arguments))
    return call.flags | DISPATCH_PROPERTYPUTREF;
  return call.flags;
}

void Forget(EXCEPINFO& exception) {
  SysFreeString(exception.bstrSource);
  SysFreeString(exception.bstrDescription);
  SysFreeString(exception.bstrHelpFile);
}

}  // namespace

HRESULT Describe(REFGUID id, ITypeInfo** information) {
  if (information == nullptr)
    return E_POINTER;
  *information = nullptr;
  return WithTypes(id, [&] {
    *information = TypeInformation(id).Detach();
    return S_OK;
  });
}

HRESULT FindNames(REFIID interfaceId, const NamesAsked& asked) {
  if (asked.reserved != IID_NULL)
    return DISP_E_UNKNOWNINTERFACE;
  if (asked.names == nullptr || asked.ids == nullptr)
    return E_POINTER;
  return WithTypes(interfaceId,
                   [&] { return TypeInformation(interfaceId)->GetIDsOfNames(asked.names, asked.count, asked.ids); });
}

HRESULT CallMember(REFIID interfaceId, void* object, const MemberCall& call) {
  if (call.reserved != IID_NULL)
    return DISP_E_UNKNOWNINTERFACE;
  if (call.arguments == nullptr)
    return E_POINTER;
  SetErrorInfo(0, nullptr);
  return WithTypes(interfaceId, [&] {
    EXCEPINFO exception = {};
    HRESULT called =
        TypeInformation(interfaceId)
            ->Invoke(object, call.member, FlagsOf(call), call.arguments, call.result, &exception, call.wrongArgument);
    if (call.exception != nullptr)
      *call.exception = exception;
    else
      Forget(exception);
    if (called == E_NOINTERFACE)
      called = DISP_E_TYPEMISMATCH;
    SayRefused(called);
    return called;
  });
}

}  // namespace fiscalon::component
