#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

#include "windows/com/Variant.h"

namespace quorvane::com {

/// One call that arrives at an object of ours through IDispatch. Arguments are counted from 0 in the order of the
/// member's declaration; reading one that was not given raises error 449, one of another type error 13.
class DispatchCall {
 public:
  /// `result` is where the caller wants the result, or nothing. All three must outlive this.
  DispatchCall(WORD flags, const DISPPARAMS& arguments, VARIANT* result)
      : flags_(flags), arguments_(arguments), result_(result) {}

  bool IsPut() const { return (flags_ & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF)) != 0; }

  std::size_t Count() const { return arguments_.cArgs; }
  /// False also for an argument that was left out in the middle.
  bool Has(std::size_t index) const;
  const VARIANT& At(std::size_t index) const;
  std::int32_t Int32(std::size_t index) const { return Variant::ToInt32(At(index)); }
  bool Bool(std::size_t index) const { return Variant::ToBool(At(index)); }
  std::u16string Text(std::size_t index) const { return Variant::ToText(At(index)); }
  ComPtr<IDispatch> Object(std::size_t index) const { return Variant::ToObject(At(index)); }

  /// Writes to the caller's variable behind an argument by reference, in its type. Raises error 13 for an argument that
  /// is none, or whose type does not take the value.
  void Give(std::size_t index, const Variant& value) const;

  /// A caller that does not want the result never sees it.
  void Return(Variant value) const;

 private:
  WORD flags_;
  const DISPPARAMS& arguments_;
  VARIANT* result_;
};

}  // namespace quorvane::com
