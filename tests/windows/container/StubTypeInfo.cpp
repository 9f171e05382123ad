#include "windows/container/StubTypeInfo.h"

#include <new>

#include "base/Text.h"
#include "windows/com/WideText.h"

namespace quorvane::container {

HRESULT StubTypeInfo::GetTypeAttr(TYPEATTR** attributes) {
  *attributes = new (std::nothrow) TYPEATTR{};
  if (*attributes == nullptr) return E_OUTOFMEMORY;
  (*attributes)->guid = guid_;
  (*attributes)->typekind = source_ ? TKIND_COCLASS : TKIND_DISPATCH;
  (*attributes)->cImplTypes = source_ ? 1 : 0;
  return S_OK;
}

HRESULT StubTypeInfo::GetIDsOfNames(LPOLESTR* names, UINT count, MEMBERID* ids) {
  if (count != 1) return DISP_E_UNKNOWNNAME;
  for (const auto& [name, id] : ids_) {
    if (!EqualsNoCaseAscii(name, com::FromWide(names[0]))) continue;
    ids[0] = id;
    return S_OK;
  }
  return DISP_E_UNKNOWNNAME;
}

HRESULT StubTypeInfo::GetRefTypeOfImplType(UINT index, HREFTYPE* reference) {
  if (!source_ || index != 0) return TYPE_E_ELEMENTNOTFOUND;
  *reference = 1;
  return S_OK;
}

HRESULT StubTypeInfo::GetImplTypeFlags(UINT index, INT* flags) {
  if (!source_ || index != 0) return TYPE_E_ELEMENTNOTFOUND;
  *flags = IMPLTYPEFLAG_FDEFAULT | IMPLTYPEFLAG_FSOURCE;
  return S_OK;
}

HRESULT StubTypeInfo::GetRefTypeInfo(HREFTYPE reference, ITypeInfo** info) {
  if (!source_ || reference != 1) return TYPE_E_ELEMENTNOTFOUND;
  *info = com::ComPtr<ITypeInfo>(source_).Detach();
  return S_OK;
}

}  // namespace quorvane::container
