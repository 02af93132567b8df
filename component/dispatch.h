#pragma once

#include <ole2.h>

/// Calls by name, for all objects alike: what the type library says of an interface is how it is called.
namespace fiscalon::component {

/// What the type library says of an interface or a class.
HRESULT Describe(REFGUID id, ITypeInfo** information);

/// The arguments of `IDispatch::GetIDsOfNames`.
struct NamesAsked {
  REFIID reserved;
  LPOLESTR* names = nullptr;
  UINT count = 0;
  DISPID* ids = nullptr;
};

HRESULT FindNames(REFIID interfaceId, const NamesAsked& asked);

/// The arguments of `IDispatch::Invoke`.
struct MemberCall {
  DISPID member = 0;
  REFIID reserved;
  WORD flags = 0;
  DISPPARAMS* arguments = nullptr;
  VARIANT* result = nullptr;
  EXCEPINFO* exception = nullptr;
  UINT* wrongArgument = nullptr;
};

/// Turns each argument into the type that the member takes, and calls it. An object that lacks the wanted interface is
/// a mismatch of types like any other. A property is read also for who calls it as a method.
HRESULT CallMember(REFIID interfaceId, void* object, const MemberCall& call);

}  // namespace fiscalon::component
