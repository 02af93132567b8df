#pragma once

#include <string>
#include <vector>

#include "core/platform/windows/wide_text.h"
#include "frontends/win32/windows_api.h"

#include <oleacc.h>

namespace fiscalon::win32 {

/// A part of an object, counted from 1, or with `CHILDID_SELF` the object itself.
inline VARIANT Part(LONG number) {
  VARIANT part = {};
  part.vt = VT_I4;
  part.lVal = number;
  return part;
}

/// The accessible object of a window, for programs on its own thread.
class HeldObject {
 public:
  explicit HeldObject(HWND window) {
    ::AccessibleObjectFromWindow(window, static_cast<DWORD>(OBJID_CLIENT), __uuidof(IAccessible),
                                 reinterpret_cast<void**>(&object_));
  }
  explicit HeldObject(IDispatch& object) {
    object.QueryInterface(__uuidof(IAccessible), reinterpret_cast<void**>(&object_));
  }
  ~HeldObject() {
    if (object_ != nullptr)
      object_->Release();
  }
  HeldObject(const HeldObject&) = delete;
  HeldObject& operator=(const HeldObject&) = delete;

  HRESULT Name(std::string* name, LONG part = CHILDID_SELF) const {
    BSTR text = nullptr;
    const HRESULT result = object_->get_accName(Part(part), &text);
    *name = text == nullptr ? std::string() : FromWide(text);
    ::SysFreeString(text);
    return result;
  }
  std::string Name() const {
    std::string name;
    Name(&name);
    return name;
  }
  HRESULT PutValue(const wchar_t* value) const {
    const BSTR text = ::SysAllocString(value);
    const HRESULT result = object_->put_accValue(self_, text);
    ::SysFreeString(text);
    return result;
  }
  HRESULT DoDefaultAction() const { return object_->accDoDefaultAction(self_); }
  HRESULT TakeFocus() const { return TakeFocus(self_); }
  HRESULT TakeFocus(const VARIANT& part) const { return object_->accSelect(SELFLAG_TAKEFOCUS, part); }
  /// A row is a part of its list, counted from 1.
  HRESULT SelectRow(LONG row, LONG how = SELFLAG_TAKESELECTION | SELFLAG_TAKEFOCUS) const {
    return object_->accSelect(how, Part(row));
  }
  LONG Parts() const {
    LONG count = 0;
    object_->get_accChildCount(&count);
    return count;
  }
  std::string NameOfPart(LONG part) const {
    std::string name;
    Name(&name, part);
    return name;
  }
  std::vector<std::string> NamesOfPartsWithObjects() const {
    std::vector<std::string> names;
    for (LONG part = 1; part <= Parts(); ++part) {
      IDispatch* object = nullptr;
      if (object_->get_accChild(Part(part), &object) != S_OK)
        continue;
      names.push_back(HeldObject(*object).Name());
      object->Release();
    }
    return names;
  }
  LONG RoleOfPart(LONG part) const {
    VARIANT role = {};
    object_->get_accRole(Part(part), &role);
    return role.lVal;
  }
  LONG StatesOfPart(LONG part) const {
    VARIANT states = {};
    object_->get_accState(Part(part), &states);
    return states.lVal;
  }
  /// 0 for none.
  LONG SelectedPart() const {
    VARIANT selected = {};
    object_->get_accSelection(&selected);
    return selected.vt == VT_I4 ? selected.lVal : 0;
  }
  HRESULT DoDefaultActionOfRow(LONG row) const { return object_->accDoDefaultAction(Part(row)); }

 private:
  IAccessible* object_ = nullptr;
  const VARIANT self_ = Part(CHILDID_SELF);
};

}  // namespace fiscalon::win32
