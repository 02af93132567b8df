#pragma once

#include <fiscalon_component.h>
#include <gtest/gtest.h>
#include <ole2.h>

#include <ostream>
#include <string>
#include <string_view>
#include <vector>

#include "component/reference.h"

/// What a host on Windows has at hand: texts, values, calls by name, and the error information of a failed call.
namespace fiscalon::component {

/// A text that a host owns.
class HostText {
 public:
  HostText() = default;
  HostText(std::wstring_view text) : text_(SysAllocStringLen(text.data(), static_cast<UINT>(text.size()))) {}
  HostText(const wchar_t* text) : HostText(std::wstring_view(text)) {}
  HostText(const HostText&) = delete;
  HostText& operator=(const HostText&) = delete;
  ~HostText() { SysFreeString(text_); }

  operator BSTR() const { return text_; }
  BSTR* Place() { return &text_; }
  std::wstring_view View() const { return {text_, SysStringLen(text_)}; }

 private:
  BSTR text_ = nullptr;
};

/// A value that a host passes to a call by name, or has from one.
class HostValue {
 public:
  HostValue() { VariantInit(&value_); }
  HostValue(int number) : HostValue() { Set(VT_I4).lVal = number; }
  HostValue(double number) : HostValue() { Set(VT_R8).dblVal = number; }
  HostValue(bool truth) : HostValue() { Set(VT_BOOL).boolVal = truth ? VARIANT_TRUE : VARIANT_FALSE; }
  HostValue(const wchar_t* text) : HostValue() { Set(VT_BSTR).bstrVal = SysAllocString(text); }
  HostValue(IDispatch* object) : HostValue() {
    Set(VT_DISPATCH).pdispVal = object;
    if (object != nullptr)
      object->AddRef();
  }
  HostValue(const HostValue& other) : HostValue() { VariantCopy(&value_, const_cast<VARIANT*>(&other.value_)); }
  HostValue& operator=(const HostValue&) = delete;
  ~HostValue() { VariantClear(&value_); }

  /// Of that type from now on; whoever calls it fills it.
  VARIANT& Set(VARTYPE type) {
    VariantClear(&value_);
    value_.vt = type;
    return value_;
  }
  VARIANT& Raw() { return value_; }
  VARTYPE Type() const { return value_.vt; }
  std::wstring_view Text() const { return value_.vt == VT_BSTR ? std::wstring_view(value_.bstrVal) : L"(no text)"; }
  int Number() const { return value_.vt == VT_I4 ? value_.lVal : value_.vt == VT_BOOL ? value_.boolVal : -99999; }
  IDispatch* Object() const { return value_.vt == VT_DISPATCH ? value_.pdispVal : nullptr; }

 private:
  VARIANT value_;
};

/// A failed call as a host sees it.
struct Failed {
  HRESULT code = S_OK;
  std::wstring source = {};
  std::wstring description = {};

  friend bool operator==(const Failed&, const Failed&) = default;
};

inline std::ostream& operator<<(std::ostream& out, const Failed& failed) {
  out << std::hex << "0x" << static_cast<unsigned long>(failed.code) << std::dec << " from \""
      << std::string(failed.source.begin(), failed.source.end()) << "\": \""
      << std::string(failed.description.begin(), failed.description.end()) << '"';
  return out;
}

/// What a call that returned that code left in the thread's error information.
Failed FailureOf(HRESULT code);

/// The platform's own run-time error of that number and description.
Failed RunTimeError(int number, const wchar_t* description);

/// How a call by name ended.
struct Called {
  HRESULT code = S_OK;
  HostValue value = {};
  /// What the call itself says of its failure, where the code is DISP_E_EXCEPTION.
  Failed failed = {};
};

/// The identifier of a member, or DISPID_UNKNOWN.
DISPID MemberNamed(IDispatch* object, const wchar_t* name);
/// Calls it with arguments in their usual order.
Called Call(IDispatch* object, DISPID member, WORD flags, std::vector<HostValue> arguments = {});
Called Get(IDispatch* object, const wchar_t* name, std::vector<HostValue> arguments = {});
Called Do(IDispatch* object, const wchar_t* name, std::vector<HostValue> arguments = {});
Called Put(IDispatch* object, const wchar_t* name, HostValue value, WORD flags = DISPATCH_PROPERTYPUT);

/// A new object of a class, by its factory.
template <typename CoClass, typename Interface>
Reference<Interface> New() {
  Reference<IClassFactory> factory;
  EXPECT_EQ(DllGetClassObject(__uuidof(CoClass), IID_IClassFactory, reinterpret_cast<void**>(factory.Place())), S_OK);
  Reference<Interface> object;
  EXPECT_EQ(factory->CreateInstance(nullptr, __uuidof(Interface), reinterpret_cast<void**>(object.Place())), S_OK);
  return object;
}
inline Reference<_Levyra> NewSession() {
  return New<Levyra, _Levyra>();
}
inline Reference<_PC4s> NewRecords() {
  return New<PC4s, _PC4s>();
}
inline Reference<_clsValidateAddInfo> NewCheck() {
  return New<clsValidateAddInfo, _clsValidateAddInfo>();
}

/// The one text that a getter gives.
template <typename Interface>
std::wstring TextOf(Interface* object, HRESULT (STDMETHODCALLTYPE Interface::*get)(BSTR*)) {
  HostText text;
  EXPECT_EQ((object->*get)(text.Place()), S_OK);
  return std::wstring(text.View());
}

/// An object of somebody else's.
class ForeignObject final : public IDispatch {
 public:
  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override;
  ULONG STDMETHODCALLTYPE AddRef() override { return ++references; }
  ULONG STDMETHODCALLTYPE Release() override { return --references; }
  HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS*, VARIANT*, EXCEPINFO*, UINT*) override {
    return E_NOTIMPL;
  }

  ULONG references = 1;
  /// Whether it has the common two interfaces or whatever it is asked for.
  bool claimsAll = false;
};

/// Nothing of a test may still need the component when it ends.
class Component : public testing::Test {
 protected:
  void SetUp() override;
  void TearDown() override;
};

}  // namespace fiscalon::component
