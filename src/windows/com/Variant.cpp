#include "windows/com/Variant.h"

#include <utility>

#include "base/Error.h"
#include "windows/com/Bstr.h"
#include "windows/com/ErrorTranslation.h"

namespace quorvane::com {

namespace {

// The calls below do not write to what they read from, whatever their declarations say.
VARIANT* Source(const VARIANT& value) {
  return const_cast<VARIANT*>(&value);
}

void Converted(const VARIANT& value, VARTYPE type, Variant& out) {
  Check(VariantChangeType(out.Put(), Source(value), VARIANT_ALPHABOOL, type));
}

bool IsNothing(VARTYPE type) {
  return type == VT_EMPTY || type == VT_NULL || type == VT_ERROR;
}

}  // namespace

Variant::Variant(const Variant& other) : Variant() {
  Check(VariantCopy(&value_, Source(other.value_)));
}

Variant::Variant(Variant&& other) noexcept : value_(other.Detach()) {}

Variant& Variant::operator=(Variant other) noexcept {
  std::swap(value_, other.value_);
  return *this;
}

VARIANT Variant::Detach() {
  VARIANT value = value_;
  VariantInit(&value_);
  return value;
}

Variant Variant::Of(std::int32_t number) {
  Variant made;
  made.value_.vt = VT_I4;
  made.value_.lVal = number;
  return made;
}

Variant Variant::Of(bool truth) {
  Variant made;
  made.value_.vt = VT_BOOL;
  made.value_.boolVal = truth ? VARIANT_TRUE : VARIANT_FALSE;
  return made;
}

Variant Variant::Of(std::u16string_view text) {
  Variant made;
  made.value_.bstrVal = Bstr(text).Detach();
  made.value_.vt = VT_BSTR;
  return made;
}

Variant Variant::Of(IDispatch* object) {
  Variant made;
  made.value_.vt = VT_DISPATCH;
  made.value_.pdispVal = ComPtr<IDispatch>(object).Detach();
  return made;
}

Variant Variant::To(std::int32_t& number) {
  static_assert(sizeof(LONG) == sizeof(std::int32_t));
  Variant made;
  made.value_.vt = VT_BYREF | VT_I4;
  made.value_.plVal = reinterpret_cast<LONG*>(&number);
  return made;
}

Variant Variant::To(VARIANT_BOOL& truth) {
  Variant made;
  made.value_.vt = VT_BYREF | VT_BOOL;
  made.value_.pboolVal = &truth;
  return made;
}

Variant Variant::To(ComPtr<IDispatch>& object) {
  Variant made;
  made.value_.vt = VT_BYREF | VT_DISPATCH;
  made.value_.ppdispVal = object.Put();
  return made;
}

Variant Variant::To(Variant& value) {
  Variant made;
  made.value_.vt = VT_BYREF | VT_VARIANT;
  made.value_.pvarVal = &value.value_;
  return made;
}

Variant Variant::CopyOf(const VARIANT& value) {
  Variant copy;
  Check(VariantCopyInd(&copy.value_, Source(value)));
  return copy;
}

std::int32_t Variant::ToInt32(const VARIANT& value) {
  if (value.vt == VT_I4) return value.lVal;
  Variant converted;
  Converted(value, VT_I4, converted);
  return converted.value_.lVal;
}

bool Variant::ToBool(const VARIANT& value) {
  if (value.vt == VT_BOOL) return value.boolVal != VARIANT_FALSE;
  Variant converted;
  Converted(value, VT_BOOL, converted);
  return converted.value_.boolVal != VARIANT_FALSE;
}

std::u16string Variant::ToText(const VARIANT& value) {
  if (value.vt == VT_BSTR) return Bstr::TextOf(value.bstrVal);
  Variant converted;
  Converted(value, VT_BSTR, converted);
  return Bstr::TextOf(converted.value_.bstrVal);
}

ComPtr<IDispatch> Variant::ToObject(const VARIANT& value) {
  const Variant direct = CopyOf(value);
  const VARIANT& held = direct.value_;
  if (IsNothing(held.vt)) return {};
  if (held.vt == VT_DISPATCH) return ComPtr<IDispatch>(held.pdispVal);
  if (held.vt != VT_UNKNOWN) RaiseError(ErrorNumber::TypeMismatch);
  if (held.punkVal == nullptr) return {};
  ComPtr<IDispatch> object = ComPtr<IUnknown>(held.punkVal).As<IDispatch>();
  if (!object) RaiseError(ErrorNumber::TypeMismatch);
  return object;
}

}  // namespace quorvane::com
