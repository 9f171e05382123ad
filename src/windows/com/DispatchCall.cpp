#include "windows/com/DispatchCall.h"

#include <utility>

#include "base/Error.h"
#include "windows/com/Bstr.h"
#include "windows/com/ErrorTranslation.h"

namespace quorvane::com {

namespace {

/// Puts `value`, whose type is that of the variable, where a reference leads. What an object or a text replaces is
/// released.
void Store(const VARIANT& reference, VARIANT& value) {
  const VARTYPE type = reference.vt & static_cast<VARTYPE>(~VT_BYREF);
  switch (type) {
    case VT_I4:
    case VT_INT:
      *reference.plVal = value.lVal;
      return;
    case VT_I2:
      *reference.piVal = value.iVal;
      return;
    case VT_BOOL:
      *reference.pboolVal = value.boolVal;
      return;
    case VT_BSTR:
      SysFreeString(*reference.pbstrVal);
      *reference.pbstrVal = value.bstrVal;
      break;
    case VT_DISPATCH:
    case VT_UNKNOWN:
      if (*reference.ppunkVal != nullptr) (*reference.ppunkVal)->Release();
      *reference.ppunkVal = value.punkVal;
      break;
    default:
      RaiseError(ErrorNumber::TypeMismatch);
  }
  value.vt = VT_EMPTY;  // the variable owns it now
}

}  // namespace

bool DispatchCall::Has(std::size_t index) const {
  if (index >= arguments_.cArgs) return false;
  const VARIANT& value = arguments_.rgvarg[arguments_.cArgs - 1 - index];
  return !(value.vt == VT_ERROR && value.scode == DISP_E_PARAMNOTFOUND);
}

const VARIANT& DispatchCall::At(std::size_t index) const {
  if (!Has(index)) RaiseError(ErrorNumber::ArgumentNotOptional, u"Argument not optional");
  return arguments_.rgvarg[arguments_.cArgs - 1 - index];
}

void DispatchCall::Give(std::size_t index, const Variant& value) const {
  const VARIANT& reference = At(index);
  if ((reference.vt & VT_BYREF) == 0) RaiseError(ErrorNumber::TypeMismatch);
  if (reference.vt == (VT_BYREF | VT_VARIANT)) {
    Check(VariantCopy(reference.pvarVal, const_cast<VARIANT*>(&value.Get())));
    return;
  }
  VARIANT converted;
  VariantInit(&converted);
  const VARTYPE type = reference.vt & static_cast<VARTYPE>(~VT_BYREF);
  Check(VariantChangeType(&converted, const_cast<VARIANT*>(&value.Get()), 0, type));
  Store(reference, converted);
  VariantClear(&converted);
}

void DispatchCall::Return(Variant value) const {
  if (result_ != nullptr) *result_ = value.Detach();
}

}  // namespace quorvane::com
