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

void SayMismatch() noexcept {
  try {
    Raise(error_number::kTypeMismatch);
  } catch (...) {
    ReportFailure(IID_IDispatch);
  }
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
            ->Invoke(object, call.member, call.flags, call.arguments, call.result, &exception, call.wrongArgument);
    if (call.exception != nullptr)
      *call.exception = exception;
    else
      Forget(exception);
    if (called == E_NOINTERFACE)
      called = DISP_E_TYPEMISMATCH;
    if (called == DISP_E_TYPEMISMATCH)
      SayMismatch();
    return called;
  });
}

}  // namespace fiscalon::component
