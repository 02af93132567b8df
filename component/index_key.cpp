#include "component/index_key.h"

#include <ole2.h>

#include "component/texts.h"
#include "core/platform/runtime_error.h"

namespace fiscalon::component {

namespace {

/// A VARIANT of our own.
struct Value : VARIANT {
  Value() { VariantInit(this); }
  ~Value() { VariantClear(this); }
  Value(const Value&) = delete;
  Value& operator=(const Value&) = delete;
};

bool IsNumber(VARTYPE type) {
  switch (type) {
    case VT_I1:
    case VT_I2:
    case VT_I4:
    case VT_I8:
    case VT_INT:
    case VT_UI1:
    case VT_UI2:
    case VT_UI4:
    case VT_UI8:
    case VT_UINT:
    case VT_R4:
    case VT_R8:
    case VT_CY:
    case VT_DECIMAL:
      return true;
    default:
      return false;
  }
}

}  // namespace

IndexKey ReadIndexKey(const VARIANT& given) {
  Value value;
  // The system follows a reference without a look at it.
  if ((given.vt & VT_BYREF) != 0 && given.byref == nullptr)
    Raise(error_number::kTypeMismatch);
  if (FAILED(VariantCopyInd(&value, const_cast<VARIANT*>(&given))))
    Raise(error_number::kTypeMismatch);
  if (value.vt == VT_BSTR)
    return FromHost(value.bstrVal);
  if (!IsNumber(value.vt))
    Raise(error_number::kTypeMismatch);
  if (FAILED(VariantChangeType(&value, &value, 0, VT_I4)))
    Raise(error_number::kSubscriptOutOfRange);
  return static_cast<int32_t>(value.lVal);
}

}  // namespace fiscalon::component
