#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "windows/com/ComPtr.h"

namespace quorvane::com {

/// Owns one value of the automation kind.
class Variant {
 public:
  Variant() { VariantInit(&value_); }
  Variant(const Variant& other);
  Variant(Variant&& other) noexcept;
  Variant& operator=(Variant other) noexcept;
  ~Variant() { VariantClear(&value_); }

  static Variant Of(std::int32_t number);
  static Variant Of(bool truth);
  static Variant Of(std::u16string_view text);
  static Variant Of(const char16_t* text) { return Of(std::u16string_view(text)); }
  /// An object, which may be nothing. Adds a reference.
  static Variant Of(IDispatch* object);
  /// An argument by reference: the callee writes into the caller's variable, which must outlive the call. An object
  /// that the callee replaces it releases itself, and the caller owns what is there afterwards.
  static Variant To(std::int32_t& number);
  static Variant To(VARIANT_BOOL& truth);
  static Variant To(ComPtr<IDispatch>& object);
  static Variant To(Variant& value);
  /// A value of its own, what stood behind a reference included.
  static Variant CopyOf(const VARIANT& value);

  const VARIANT& Get() const { return value_; }
  VARIANT* Put() {
    VariantClear(&value_);
    return &value_;
  }
  /// The caller owns the value from now on.
  [[nodiscard]] VARIANT Detach();

  /// As the automation rules convert; raise error 13 where they do not, 6 for a number out of range. A value behind a
  /// reference is read through it.
  std::int32_t ToInt32() const { return ToInt32(value_); }
  bool ToBool() const { return ToBool(value_); }
  std::u16string ToText() const { return ToText(value_); }
  /// Nothing for a null object, for an empty value and for none (VT_NULL, VT_ERROR); error 13 for any other value.
  ComPtr<IDispatch> ToObject() const { return ToObject(value_); }

  static std::int32_t ToInt32(const VARIANT& value);
  static bool ToBool(const VARIANT& value);
  static std::u16string ToText(const VARIANT& value);
  static ComPtr<IDispatch> ToObject(const VARIANT& value);

 private:
  VARIANT value_;
};

}  // namespace quorvane::com
