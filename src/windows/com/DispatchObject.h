#pragma once

#include <string_view>
#include <vector>

#include "base/Error.h"
#include "base/Text.h"
#include "windows/com/ComObject.h"
#include "windows/com/DispatchCall.h"
#include "windows/com/WideText.h"

namespace quorvane::com {

/// One member that `Self` answers through IDispatch. `kinds` says which calls it serves (DISPATCH_METHOD,
/// DISPATCH_PROPERTYGET, DISPATCH_PROPERTYPUT, joined by |); two members of one name, one to read and one to write,
/// share their id.
template <class Self>
struct DispatchMember {
  const char16_t* name;
  DISPID id;
  WORD kinds;
  void (*call)(Self& self, DispatchCall& call);
};

/// A member, or the reading of a property: callers do not tell the two apart.
inline constexpr WORD kCalled = DISPATCH_METHOD | DISPATCH_PROPERTYGET;
inline constexpr WORD kWritten = DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF;

/// IDispatch by hand over a table of members, without a type library. `Self` gives
///
///     static const std::vector<DispatchMember<Self>>& Members();
///
/// `Main` is IDispatch or an interface above it. Errors of a member reach the caller as EXCEPINFO.
template <class Self, class Main = IDispatch, class... Rest>
class DispatchObject : public ComObject<Main, Rest...> {
 public:
  HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override {
    if (count == nullptr) return E_POINTER;
    *count = 0;
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo** info) override {
    if (info != nullptr) *info = nullptr;
    return E_NOTIMPL;
  }
  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID, DISPID* ids) override {
    if (names == nullptr || ids == nullptr || count == 0) return E_INVALIDARG;
    for (UINT i = 0; i < count; ++i) ids[i] = DISPID_UNKNOWN;
    const std::u16string_view wanted = Utf16(names[0]);
    for (const auto& member : Self::Members()) {
      if (!EqualsNoCaseAscii(member.name, wanted)) continue;
      ids[0] = member.id;
      return count == 1 ? S_OK : DISP_E_UNKNOWNNAME;  // arguments have no names
    }
    return DISP_E_UNKNOWNNAME;
  }
  HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID, LCID, WORD flags, DISPPARAMS* arguments, VARIANT* result,
                                   EXCEPINFO* exception, UINT*) override {
    if (arguments == nullptr) return E_INVALIDARG;
    if (result != nullptr) VariantInit(result);
    const Entry entry;
    const ComPtr<IUnknown> alive(static_cast<Main*>(this));  // a member may drop the caller's last reference
    try {
      DispatchCall call(flags, *arguments, result);
      for (const auto& member : Self::Members()) {
        if (member.id != id || (member.kinds & flags) == 0) continue;
        member.call(static_cast<Self&>(*this), call);
        return S_OK;
      }
      return DISP_E_MEMBERNOTFOUND;
    } catch (...) {
      if (result != nullptr) VariantClear(result);
      return Tell(CurrentError(), exception);
    }
  }
};

}  // namespace quorvane::com
