#pragma once

#include <ocidl.h>
#include <ole2.h>

#include "component/counted.h"
#include "component/dispatch.h"
#include "component/failure.h"

namespace fiscalon::component {

/// What all of the classes that the type library names do alike: being called by name, and saying that their failures
/// carry error information. `CoClass` is the class's name in the type library, `Interface` its own dual interface.
template <typename CoClass, typename Interface>
class Automation : public Counted<Interface, ISupportErrorInfo, IProvideClassInfo> {
 public:
  HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override {
    if (count == nullptr)
      return E_POINTER;
    *count = 1;
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT index, LCID, ITypeInfo** information) override {
    return index == 0 ? Describe(__uuidof(Interface), information) : DISP_E_BADINDEX;
  }
  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID reserved, LPOLESTR* names, UINT count, LCID, DISPID* ids) override {
    return FindNames(__uuidof(Interface), {reserved, names, count, ids});
  }
  HRESULT STDMETHODCALLTYPE Invoke(DISPID member, REFIID reserved, LCID, WORD flags, DISPPARAMS* arguments,
                                   VARIANT* result, EXCEPINFO* exception, UINT* wrongArgument) override {
    // A host may let go of the object from within the call.
    const Reference<Interface> self(this);
    return CallMember(__uuidof(Interface), self.Get(),
                      {member, reserved, flags, arguments, result, exception, wrongArgument});
  }

  HRESULT STDMETHODCALLTYPE InterfaceSupportsErrorInfo(REFIID id) override {
    return id == __uuidof(Interface) || id == IID_IDispatch ? S_OK : S_FALSE;
  }
  HRESULT STDMETHODCALLTYPE GetClassInfo(ITypeInfo** information) override {
    return Describe(__uuidof(CoClass), information);
  }

 protected:
  template <typename Act>
  static HRESULT Answer(Act&& act) noexcept {
    return component::Answer(__uuidof(Interface), act);
  }
  template <typename Result, typename Act>
  static HRESULT Answer(Result* place, Act&& act) {
    return component::Answer(__uuidof(Interface), place, act);
  }

  void* Find(REFIID id) override {
    if (id == IID_IDispatch)
      return static_cast<IDispatch*>(this);
    return Counted<Interface, ISupportErrorInfo, IProvideClassInfo>::Find(id);
  }
};

}  // namespace fiscalon::component
